#include "shell/admin/attachments.h"

#include "contracts/host_contracts.h"
#include "database/connection.h"
#include "database/schema/installer.h"
#include "host/module_ids.h"
#include "shell/admin/output.h"

#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace ebtq::admin {

namespace {

using db::Connection;

struct Total
{
    qint64 files = 0;
    double bytes = 0;
};

/// Counts the stored bytes, which archives make fewer than the files had.
Total totalOf(Connection &connection, const QString &condition)
{
    const bool isOnServer = connection.location().contains(u"://");
    const QString sql =
        u"select count(*),coalesce(sum(%1(\"contents\")),0) from \"pubAttach\" where %2"_s.arg(
            isOnServer ? u"octet_length"_s : u"length"_s, condition);
    const RowBlock rows = connection.queryNative(sql.toUtf8());
    return {rows.value(0, 0).toLongLong(), rows.value(0, 1).toDouble()};
}

void show(const QString &what, const Total &total)
{
    printLine(stdout, u"%1：%2 个文件，%3 字节"_s.arg(what).arg(total.files).arg(total.bytes, 0, 'f', 0));
}

/// Owners are listings: a deleted listing leaves its files behind.
QString ownerless()
{
    return u"\"isActive\"=1 and (\"progID\"<>%1 or not exists(select 1 from fyxx f where cast(f.\"房源ID\" "
           u"as "
           u"text)=cast(\"pubAttach\".\"IDs\" as text)))"_s.arg(host::ListingModule);
}

/// Only the word itself: whoever presses Enter keeps the files.
bool isConfirmed(qint64 files, const QDate &before)
{
    printLine(stdout, u"将永久清除 %1 个 %2 之前的已删除文件，不能恢复。输入“清除”继续："_s.arg(files).arg(
                          before.toString(Qt::ISODate)));
    std::fflush(stdout);
    std::string answer;
    std::getline(std::cin, answer);
    return QString::fromStdString(answer).trimmed() == u"清除";
}

void purge(Connection &connection, const QDate &before)
{
    const QString condition = u"isActive<>1 and modifydate<#%1#"_s.arg(before.toString(Qt::ISODate));
    db::Transaction transaction(connection);
    const qint64 files =
        connection.query(u"select count(*) from pubAttach where "_s + condition).value(0, 0).toLongLong();
    if (files == 0 || !isConfirmed(files, before))
        return printLine(stdout, files == 0 ? u"没有可清除的文件"_s : u"没有清除任何文件"_s);
    const qint64 removed = connection.execute(u"delete from pubAttach where "_s + condition);
    transaction.commit();
    printLine(stdout, u"已清除 %1 个文件"_s.arg(removed));
}

} // namespace

int manageAttachments(const CommandLine &line)
{
    const bool purges = line.isSet(u"purge-deleted"_s);
    if (purges != line.isSet(u"before"_s))
        throw UsageError(u"选项 --purge-deleted 和 --before 须同时给出"_s);
    const auto connection = Connection::open(line.requiredText(u"db"_s));
    db::requireCurrent(*connection);
    if (purges) {
        purge(*connection, line.date(u"before"_s, {}));
        return 0;
    }
    show(u"有效"_s, totalOf(*connection, u"\"isActive\"=1"_s));
    show(u"已删除"_s, totalOf(*connection, u"\"isActive\"<>1 or \"isActive\" is null"_s));
    show(u"有效但无所属房源"_s, totalOf(*connection, ownerless()));
    return 0;
}

} // namespace ebtq::admin
