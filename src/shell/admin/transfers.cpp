#include "shell/admin/transfers.h"

#include "database/connection.h"
#include "database/transfer/backup.h"
#include "database/transfer/database_copy.h"
#include "database/transfer/fresh_file.h"
#include "shell/admin/output.h"

#include <QElapsedTimer>

#include <cstdio>

namespace ebtq::admin {

namespace {

using db::Connection;

constexpr qint64 millisecondsBetweenLines = 1000;

/// One line of progress per second and at the end of each part, flushed at once: a log or a person follows
/// it.
class ProgressLines
{
public:
    void show(const QString &what, qint64 done, qint64 total)
    {
        if (done < total && m_timer.isValid() && m_timer.elapsed() < millisecondsBetweenLines)
            return;
        m_timer.start();
        printLine(stdout, QStringLiteral("%1 %2/%3").arg(what).arg(done).arg(total));
        std::fflush(stdout);
    }

private:
    QElapsedTimer m_timer;
};

bool isOnServer(const QString &location)
{
    return location.startsWith(u"postgres") && location.contains(u"://");
}

QString requiredFile(const CommandLine &line, const QString &option)
{
    const QString location = line.requiredText(option);
    if (isOnServer(location))
        throw db::DatabaseError(QStringLiteral("服务器上的数据库请用服务器自带的工具（pg_dump、pg_restore）"
                                               "备份和恢复，见 docs/backup.md"));
    return location;
}

db::PageProgress pageProgress(ProgressLines &lines, const QString &what)
{
    return [&lines, what](int done, int total) { lines.show(what, done, total); };
}

} // namespace

int copy(const CommandLine &line)
{
    const QString from = line.requiredText(QStringLiteral("from"));
    const QString to = line.requiredText(QStringLiteral("to"));
    const auto source = Connection::open(from);
    db::FreshFile fresh(to);
    const auto target = Connection::open(to, Connection::Missing::IsCreated);
    ProgressLines lines;
    const db::CopyReport report =
        db::copyDatabase(*source, *target, [&lines](const QString &table, qint64 done, qint64 total) {
            lines.show(table, done, total);
        });
    fresh.keep();
    for (const QString &column : report.leftOut)
        printLine(stdout, QStringLiteral("提示：列 %1 不属于本系统，未复制").arg(column));
    printLine(stdout, QStringLiteral("已复制 %1 行，各表的行数和校验和与源数据库相同：%2")
                          .arg(report.rows)
                          .arg(target->location()));
    return 0;
}

int backUp(const CommandLine &line)
{
    const QString database = requiredFile(line, QStringLiteral("db"));
    const QString file = requiredFile(line, QStringLiteral("to"));
    ProgressLines lines;
    const db::BackupOutcome outcome = db::backUp(database, file, line.isSet(QStringLiteral("replace")),
                                                 pageProgress(lines, QStringLiteral("备份")));
    printLine(stdout, QStringLiteral("已备份 %1 行并核对无误：%2").arg(outcome.rows).arg(file));
    return 0;
}

int restore(const CommandLine &line)
{
    const QString file = requiredFile(line, QStringLiteral("from"));
    const QString database = requiredFile(line, QStringLiteral("db"));
    ProgressLines lines;
    const db::BackupOutcome outcome =
        db::restore(file, database, pageProgress(lines, QStringLiteral("恢复")));
    if (!outcome.hasChecksums)
        printLine(stdout, QStringLiteral("提示：该文件不是 ebtq-admin backup 所作，只核对了结构"));
    if (!outcome.keptAside.isEmpty())
        printLine(stdout, QStringLiteral("原数据库保留为：%1").arg(outcome.keptAside));
    printLine(stdout, QStringLiteral("已恢复：%1").arg(database));
    return 0;
}

} // namespace ebtq::admin
