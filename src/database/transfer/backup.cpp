#include "database/transfer/backup.h"

#include "database/schema/installer.h"
#include "database/schema/tables.h"
#include "database/sqlite/sqlite_connection.h"
#include "database/transfer/file_swap.h"
#include "database/transfer/table_digest.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

constexpr QStringView checksumTable = u"host_backup";

void requireOther(const QString &one, const QString &other)
{
    const QString path = QFileInfo(one).canonicalFilePath();
    if (!path.isEmpty() && path == QFileInfo(other).canonicalFilePath())
        throw DatabaseError(u"备份和数据库不能是同一个文件：%1"_s.arg(one));
}

/// A table with the columns that it has in this file, those of an older version as well.
QStringList columnsOf(const Catalog::Table &table)
{
    QStringList names;
    for (const Column &column : table.columns)
        names << column.name;
    return names;
}

/// A few inserts in the engine's language: names of our own and hexadecimal digits need no care.
QByteArray checksumScript(Connection &database, BackupOutcome &outcome)
{
    QString script = u"begin; create table host_backup(tableName text, rowCount integer, checksum text);"_s;
    for (const TableDefinition &definition : schemaTables()) {
        const Catalog::Table *table = database.catalog().table(definition.name);
        if (!table)
            continue;
        const TableDigest digest = digestOf(database, table->name, columnsOf(*table));
        outcome.rows += digest.rowCount();
        script += u"insert into host_backup values('%1',%2,'%3');"_s.arg(table->name)
                      .arg(digest.rowCount())
                      .arg(digest.checksum());
    }
    return (script + u"commit"_s).toUtf8();
}

/// A backup of an older version lacks what came later; it is brought up after the restore.
void requireSound(Connection &connection)
{
    if (requireOwn(connection).standing == Identity::Current) {
        const QStringList findings = checkSchema(connection);
        if (!findings.isEmpty())
            throw DatabaseError(findings.join(u'\n'));
        return;
    }
    const RowBlock damage = connection.queryNative("pragma integrity_check(1)");
    if (damage.cell(0, 0) != "ok")
        throw DatabaseError(u"文件损坏：%1"_s.arg(damage.value(0, 0).toString()));
}

void requireChecksums(Connection &connection, BackupOutcome &outcome)
{
    outcome.hasChecksums = connection.catalog().table(checksumTable);
    if (!outcome.hasChecksums)
        return;
    const RowBlock recorded =
        connection.query(u"select tableName,rowCount,checksum from %1"_s.arg(checksumTable));
    for (qsizetype row = 0; row < recorded.rowCount(); ++row) {
        const QString name = recorded.value(row, 0).toString();
        const Catalog::Table *table = connection.catalog().table(name);
        const TableDigest found = table ? digestOf(connection, name, columnsOf(*table)) : TableDigest();
        if (!table || found.rowCount() != recorded.value(row, 1).toLongLong() ||
            found.checksum() != recorded.value(row, 2).toString())
            throw DatabaseError(u"表 %1 的内容与备份时不同"_s.arg(name));
        outcome.rows += found.rowCount();
    }
}

/// Looked at as a file that nobody changes, so that checking leaves no trace in it or beside it.
void requireGood(const QString &path, BackupOutcome &outcome)
{
    const QString location =
        u"file:%1?immutable=1"_s.arg(QString::fromLatin1(QUrl::toPercentEncoding(path, "/")));
    try {
        SqliteConnection connection(location, Connection::Missing::IsAnError);
        requireSound(connection);
        outcome.rows = 0;
        requireChecksums(connection, outcome);
    } catch (const DatabaseError &error) {
        throw DatabaseError(u"备份损坏或被改动过，不能使用：%1"_s.arg(error.message()));
    }
}

/// A backup made before there were statistics has none.
void makeReady(const QString &path, const BackupOutcome &outcome)
{
    SqliteConnection connection(path, Connection::Missing::IsAnError);
    if (outcome.hasChecksums)
        connection.executeNative("drop table host_backup");
    updateStatistics(connection);
}

/// The pages of a database in a file of its own, which needs no log beside it.
void writePages(const QString &path, sqlite3 *source, const PageProgress &progress)
{
    WholeFile file(path, WholeFile::Access::Writes);
    file.takePages(source, progress);
    file.run("pragma journal_mode=delete");
}

/// Another restore may have ended within the same second.
QString asideName(const QString &database)
{
    const QString moment =
        u"%1.%2"_s.arg(database, QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"));
    const auto isTaken = [](const QString &name) {
        return QFile::exists(name) || QFile::exists(name + u"-wal"_s) || QFile::exists(name + u"-journal"_s);
    };
    QString name = moment;
    for (int number = 2; isTaken(name); ++number)
        name = u"%1-%2"_s.arg(moment).arg(number);
    return name;
}

void putInPlace(UnfinishedFile &restored, const QString &database, BackupOutcome &outcome)
{
    const QString aside = asideName(database);
    if (!QFile::exists(database)) {
        keepAside(database, aside);
        return restored.takeName(false);
    }
    WholeFile replaced(database, WholeFile::Access::Writes);
    if (!replaced.seize())
        throw DatabaseError(u"数据库正被其他程序使用，请关闭后再恢复，未恢复：%1"_s.arg(database));
    restored.takeOverAccess(database);
    keepAside(database, aside);
    restored.takeName(true);
    outcome.keptAside = aside;
}

void requireFile(const QString &path)
{
    if (!QFileInfo(path).isFile())
        throw DatabaseError(u"找不到文件：%1"_s.arg(path));
}

} // namespace

BackupOutcome backUp(const QString &database, const QString &file, bool replaced,
                     const PageProgress &progress)
{
    requireFile(database);
    requireOther(database, file);
    if (!replaced && QFile::exists(file))
        throw DatabaseError(u"文件已存在，未备份（可用 --replace 覆盖）：%1"_s.arg(file));
    BackupOutcome outcome;
    SqliteConnection source(database, Connection::Missing::IsAnError);
    source.beginReading();
    (void)requireOwn(source);
    UnfinishedFile unfinished(file);
    writePages(unfinished.path(), source.handle(), progress);
    const QByteArray checksums = checksumScript(source, outcome);
    WholeFile(unfinished.path(), WholeFile::Access::Writes).run(checksums);
    requireGood(unfinished.path(), outcome);
    if (replaced)
        unfinished.takeOverAccess(file);
    unfinished.takeName(replaced);
    return outcome;
}

BackupOutcome restore(const QString &file, const QString &location, const PageProgress &progress)
{
    requireFile(file);
    requireOther(file, location);
    // Behind a link the file is replaced, not the link: others may know it by its own name.
    const QString linked = QFileInfo(location).canonicalFilePath();
    const QString database = linked.isEmpty() ? location : linked;
    BackupOutcome outcome;
    UnfinishedFile unfinished(database);
    try {
        writePages(unfinished.path(), WholeFile(file, WholeFile::Access::Reads).handle(), progress);
    } catch (const DatabaseError &error) {
        throw DatabaseError(u"无法从备份恢复，原数据库未动：%1"_s.arg(error.message()));
    }
    requireGood(unfinished.path(), outcome);
    makeReady(unfinished.path(), outcome);
    putInPlace(unfinished, database, outcome);
    return outcome;
}

} // namespace ebtq::db
