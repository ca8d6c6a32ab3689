#include "database/schema/installer.h"

#include "database/connection.h"
#include "database/schema/ddl.h"
#include "database/schema/tables.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

bool hasIndex(Connection &connection, const QString &name)
{
    const QString statement = QString::fromUtf8(connection.ddlWords().findIndex).arg(name);
    return connection.queryNative(statement.toUtf8()).rowCount() != 0;
}

/// One thing of the schema that is not there, and the statement that makes it.
struct Gap
{
    QString name;
    QByteArray statement; ///< empty when it cannot be made behind the rows' backs
};

void findColumnGaps(const TableDefinition &table, const Catalog::Table &present, const DdlWords &words,
                    std::vector<Gap> &gaps)
{
    for (const ColumnDefinition &column : table.columns) {
        if (present.column(column.name))
            continue;
        const bool isKey = column.rule == ColumnDefinition::Key || column.rule == ColumnDefinition::AutoKey;
        gaps.push_back({u"列 %1.%2"_s.arg(QString::fromUtf16(table.name), QString::fromUtf16(column.name)),
                        isKey ? QByteArray() : addColumn(table, column, words)});
    }
}

std::vector<Gap> findGaps(Connection &connection)
{
    std::vector<Gap> gaps;
    const DdlWords &words = connection.ddlWords();
    if (const QByteArray foundation = connection.missingFoundation(); !foundation.isEmpty())
        gaps.push_back({u"函数"_s, foundation});
    for (const TableDefinition &table : schemaTables()) {
        if (const Catalog::Table *present = connection.catalog().table(table.name))
            findColumnGaps(table, *present, words, gaps);
        else
            gaps.push_back({u"表 %1"_s.arg(QString::fromUtf16(table.name)), createTable(table, words)});
        for (const IndexDefinition &index : table.indexes) {
            const QString name = QString::fromUtf16(index.name);
            const QByteArray creation = createIndex(table, index, words);
            if (!creation.isEmpty() && !hasIndex(connection, name))
                gaps.push_back({u"索引 %1"_s.arg(name), creation});
        }
    }
    return gaps;
}

/// Each would be kept up to date with every row that is saved, for nobody.
void dropRetiredIndexes(Connection &connection)
{
    for (const QStringView name : retiredIndexes()) {
        if (hasIndex(connection, name.toString()))
            connection.executeNative("drop index \"" + name.toUtf8() + '"');
    }
}

void writeVersion(Connection &connection)
{
    connection.execute(u"delete from host_schema"_s);
    connection.execute(u"insert into host_schema(version)values(%1)"_s.arg(schemaVersion));
}

/// A file may also be of an earlier version, which wrote no mark.
void writeMark(Connection &connection)
{
    if (QByteArray statement = connection.ddlWords().writeMark; !statement.isEmpty())
        connection.executeNative(statement.replace("%1", QByteArray::number(fileMark)));
}

void findWrongTypes(const TableDefinition &table, const Catalog::Table &present, QStringList &findings)
{
    for (const ColumnDefinition &column : table.columns) {
        const Column *found = present.column(column.name);
        if (found && found->type != column.type)
            findings << u"列 %1.%2 的类型不对"_s.arg(QString::fromUtf16(table.name), found->name);
    }
}

void findDamage(Connection &connection, QStringList &findings)
{
    const RowBlock damage = connection.queryNative(connection.ddlWords().findDamage);
    for (qsizetype row = 0; row < damage.rowCount(); ++row) {
        const QString text = damage.value(row, 0).toString();
        if (text != u"ok")
            findings << u"文件损坏：%1"_s.arg(text);
    }
}

} // namespace

InstallReport install(Connection &connection, Foreign foreign)
{
    InstallReport report;
    Transaction transaction(connection);
    requireInstallable(connection, foreign);
    report.versionBefore = Identity::of(connection).version;
    for (const Gap &gap : findGaps(connection)) {
        if (gap.statement.isEmpty())
            throw DatabaseError(u"缺少%1，它是主键，无法补建，请用备份恢复！"_s.arg(gap.name));
        connection.executeNative(gap.statement);
        report.added << gap.name;
    }
    dropRetiredIndexes(connection);
    if (report.versionBefore != schemaVersion)
        writeVersion(connection);
    writeMark(connection);
    transaction.commit();
    return report;
}

/// Table by table: a base on a server may hold tables of others, who alone may analyze them.
void updateStatistics(Connection &connection)
{
    QByteArray script;
    for (const TableDefinition &table : schemaTables()) {
        if (const Catalog::Table *present = connection.catalog().table(table.name))
            script += "analyze \"" + present->name.toUtf8() + "\";";
    }
    connection.executeNative(script);
}

QStringList foreignRoutines(Connection &connection)
{
    QStringList names;
    const RowBlock found = connection.queryNative(connection.ddlWords().findRoutines);
    for (qsizetype row = 0; row < found.rowCount(); ++row)
        names << (found.cell(row, 0) == "view" ? u"视图 %1"_s : u"触发器 %1"_s)
                     .arg(found.value(row, 1).toString());
    return names;
}

QStringList checkSchema(Connection &connection)
{
    const Identity identity = Identity::of(connection);
    const bool isOwn = identity.standing == Identity::Current || identity.standing == Identity::Older;
    QStringList findings;
    if (const QString obstacle = identity.obstacle(); !obstacle.isEmpty())
        findings << obstacle;
    if (!isOwn)
        return findings;
    for (const Gap &gap : findGaps(connection))
        findings << u"缺少%1"_s.arg(gap.name);
    for (const TableDefinition &table : schemaTables()) {
        if (const Catalog::Table *present = connection.catalog().table(table.name))
            findWrongTypes(table, *present, findings);
    }
    findDamage(connection, findings);
    return findings;
}

} // namespace ebtq::db
