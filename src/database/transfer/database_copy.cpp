#include "database/transfer/database_copy.h"

#include "database/connection.h"
#include "database/schema/installer.h"
#include "database/schema/tables.h"
#include "database/transfer/table_digest.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// One snapshot of the source for the scope.
class Snapshot
{
public:
    explicit Snapshot(Connection &connection)
        : m_connection(connection)
    {
        m_connection.beginReading();
    }
    Snapshot(const Snapshot &) = delete;
    Snapshot &operator=(const Snapshot &) = delete;
    ~Snapshot() { m_connection.rollback(); }

private:
    Connection &m_connection;
};

QString nameOf(const TableDefinition &table)
{
    return QString::fromUtf16(table.name);
}

QStringList columnsOf(const TableDefinition &table)
{
    QStringList names;
    for (const ColumnDefinition &column : table.columns)
        names << QString::fromUtf16(column.name);
    return names;
}

void requireSource(Connection &source)
{
    const QString obstacle = Identity::of(source).obstacle();
    if (!obstacle.isEmpty())
        throw DatabaseError(u"源数据库：%1 %2"_s.arg(obstacle, source.location()));
}

/// The version is no content: a schema that was made and never filled is as good as none.
void requireEmpty(Connection &target)
{
    if (Identity::of(target).standing == Identity::Foreign)
        throw DatabaseError(u"目标数据库中有其他程序的表，未复制：%1"_s.arg(target.location()));
    for (const TableDefinition &table : schemaTables()) {
        const Catalog::Table *present = target.catalog().table(table.name);
        if (!present || present->name == u"host_schema")
            continue;
        const QString statement =
            u"select top 1 %1 from %2"_s.arg(QString::fromUtf16(table.columns.front().name), nameOf(table));
        if (target.query(statement).rowCount() > 0)
            throw DatabaseError(u"目标数据库中已有数据（表 %1），请用新的数据库，未复制：%2"_s.arg(
                nameOf(table), target.location()));
    }
}

void findLeftOut(Connection &source, const TableDefinition &table, QStringList &leftOut)
{
    const QStringList known = columnsOf(table);
    const Catalog::Table *present = source.catalog().table(table.name);
    if (!present)
        return;
    for (const Column &column : present->columns) {
        if (!known.contains(column.name, Qt::CaseInsensitive))
            leftOut << u"%1.%2"_s.arg(present->name, column.name);
    }
}

TableDigest copyTable(Connection &source, Connection &target, const TableDefinition &table,
                      const CopyProgress &progress)
{
    const QString name = nameOf(table);
    const qint64 total = source.query(u"select count(*) from %1"_s.arg(name)).value(0, 0).toLongLong();
    TableDigest digest;
    source.readTable(name, columnsOf(table), [&](const RowBlock &block) {
        target.insertRows(name, block);
        digest.add(block);
        if (progress)
            progress(name, digest.rowCount(), total);
    });
    if (progress && total == 0)
        progress(name, 0, 0);
    return digest;
}

void requireEqual(Connection &target, const TableDefinition &table, const TableDigest &expected)
{
    const TableDigest found = digestOf(target, nameOf(table), columnsOf(table));
    if (found == expected)
        return;
    throw DatabaseError(u"复制后核对不符，已全部撤销：表 %1 应有 %2 行（校验和 %3），实为 %4 "
                        "行（校验和 %5）"_s.arg(nameOf(table))
                            .arg(expected.rowCount())
                            .arg(expected.checksum())
                            .arg(found.rowCount())
                            .arg(found.checksum()));
}

} // namespace

CopyReport copyDatabase(Connection &source, Connection &target, const CopyProgress &progress)
{
    CopyReport report;
    const Snapshot snapshot(source);
    requireSource(source);
    Transaction transaction(target);
    requireEmpty(target);
    install(target);
    target.execute(u"delete from host_schema"_s);
    std::vector<TableDigest> digests;
    for (const TableDefinition &table : schemaTables()) {
        findLeftOut(source, table, report.leftOut);
        digests.push_back(copyTable(source, target, table, progress));
        report.rows += digests.back().rowCount();
    }
    auto expected = digests.begin();
    for (const TableDefinition &table : schemaTables())
        requireEqual(target, table, *expected++);
    updateStatistics(target);
    transaction.commit();
    return report;
}

} // namespace ebtq::db
