#include "shell/admin/unseen_rows.h"

using namespace Qt::StringLiterals;

namespace ebtq::admin {

namespace {

constexpr qsizetype mostLines = 20;

struct TreeKey
{
    QStringView table;
    QStringView column;
};

constexpr TreeKey treeKeys[] = {
    {u"pdmdq", u"编码"}, {u"pdmlpzd", u"楼盘编号"}, {u"pdmcq", u"产权编号"}, {u"pdmfx", u"房型编号"}};

/// Each row of the statement in a pattern with %1 and %2 for its first two values.
QStringList lines(db::Connection &connection, const QString &statement, const QString &pattern)
{
    const RowBlock rows = connection.query(statement);
    QStringList result;
    for (qsizetype row = 0; row < std::min(rows.rowCount(), mostLines); ++row)
        result += pattern.arg(rows.value(row, 0).toString(), rows.value(row, 1).toString());
    if (rows.rowCount() > mostLines)
        result += u"……共 %1 项"_s.arg(rows.rowCount());
    return result;
}

} // namespace

QStringList namesOfUnseenRows(db::Connection &connection)
{
    QStringList found =
        lines(connection,
              u"select 楼盘编号,楼盘名称 from pdmlpzd where 地区ID is null or 地区ID not in(select 地区ID "
              u"from pdmdq) order by 楼盘编号"_s,
              u"楼盘“%1 %2”的地区不存在，楼盘字典中看不到它"_s);
    for (const TreeKey &key : treeKeys) {
        const QString column = key.column.toString();
        found += lines(
            connection,
            u"select %1,count(*) from %2 group by %1 having count(*)>1 order by %1"_s.arg(column, key.table),
            column + u"“%1”重复 %2 次，字典中只看得到其中一条"_s);
    }
    return found;
}

} // namespace ebtq::admin
