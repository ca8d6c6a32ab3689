#include "database/postgresql/postgres_connection.h"

#include "database/dialect/dialect.h"
#include "database/full_block.h"
#include "database/postgresql/foundation.h"
#include "database/postgresql/postgres_error.h"
#include "database/postgresql/postgres_rows.h"
#include "database/postgresql/postgres_values.h"
#include "database/schema/ddl.h"

#include <QScopeGuard>

#include <libpq-fe.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

ColumnType typeNamed(const QString &name)
{
    struct Word
    {
        const char16_t *name;
        ColumnType type;
    };
    static constexpr Word words[] = {
        {u"int2", ColumnType::Integer},   {u"int4", ColumnType::Integer},  {u"int8", ColumnType::Integer},
        {u"float4", ColumnType::Number},  {u"float8", ColumnType::Number}, {u"numeric", ColumnType::Number},
        {u"timestamp", ColumnType::Date}, {u"date", ColumnType::Date},     {u"bytea", ColumnType::Binary},
    };
    for (const Word &word : words) {
        if (name == word.name)
            return word.type;
    }
    return ColumnType::Text;
}

constexpr char catalogStatement[] =
    "select relname,attname,typname,case when relkind in('r','p') and not exists(select from pg_index"
    " where indrelid=pg_class.oid and indkey[0]=attnum) then 1 else 0 end,"
    "case when typname in('int4','int8') and exists(select from pg_index where indrelid=pg_class.oid"
    " and indisprimary and indnkeyatts=1 and indkey[0]=attnum) then 1 else 0 end"
    " from pg_class join pg_namespace on pg_namespace.oid=relnamespace"
    " join pg_attribute on attrelid=pg_class.oid join pg_type on pg_type.oid=atttypid"
    " where nspname='ebtq' and relkind in('r','p','v','m','f') and attnum>0 and not attisdropped"
    " order by pg_class.oid,attnum";

Catalog catalogOf(const RowBlock &rows)
{
    Catalog catalog;
    Catalog::Table table;
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        const QString name = rows.value(row, 0).toString();
        if (name != table.name && !table.columns.empty())
            catalog.add(std::exchange(table, {}));
        table.name = name;
        table.columns.push_back({rows.value(row, 1).toString(), typeNamed(rows.value(row, 2).toString())});
        table.unindexed.push_back(rows.cell(row, 3) == "1");
        if (rows.cell(row, 4) == "1")
            table.rowKey = table.columns.back().name;
    }
    if (!table.columns.empty())
        catalog.add(std::move(table));
    return catalog;
}

QByteArray quoted(const QString &name)
{
    return '"' + QString(name).replace(u'"', u"\"\""_s).toUtf8() + '"';
}

} // namespace

PostgresConnection::PostgresConnection(const QString &url)
    : m_session(PostgresAddress(url))
{}

PostgresConnection::~PostgresConnection()
{
    m_session.rollback();
}

/// Another program may have upgraded the tables since the catalog was read: then a statement refused for that
/// reason is tried once more. A refused statement has changed nothing.
template<class Run> auto PostgresConnection::runTranslated(const SqlText &statement, Run run)
{
    try {
        return run(translated(statement));
    } catch (const DialectError &error) {
        if (!refreshCatalog())
            throw DatabaseError(error.message());
    } catch (const ServerError &error) {
        if (!error.isAboutTables() || !refreshCatalog())
            throw;
    }
    try {
        return run(translated(statement));
    } catch (const DialectError &error) {
        throw DatabaseError(error.message());
    }
}

Translation PostgresConnection::translated(const SqlText &statement)
{
    return translate(statement, dialect(), catalog());
}

RowBlock PostgresConnection::query(const SqlText &statement)
{
    return runTranslated(statement, [this](Translation translation) {
        if (translation.kind != StatementKind::Select)
            throw DatabaseError(u"此处只能使用查询语句（select）！"_s);
        const ListCounts counts(translation.counts,
                                [this](const QByteArray &sql, std::vector<Column> columns) {
                                    return read(sql, std::move(columns));
                                });
        return read(translation.sql, std::move(translation.columns), counts);
    });
}

qint64 PostgresConnection::execute(const SqlText &statement)
{
    return runTranslated(statement,
                         [this](const Translation &translation) { return m_session.run(translation.sql); });
}

RowBlock PostgresConnection::read(const QByteArray &statement, std::vector<Column> columns,
                                  const ListCounts &counts)
{
    RowBlock block(std::move(columns));
    m_session.run(statement, [&](const pg_result *rows) { appendRows(block, rows, counts); });
    block.finish();
    return block;
}

void PostgresConnection::insertRows(const QString &table, const RowBlock &rows)
{
    QByteArray names;
    for (const Column &column : rows.columns())
        names += (names.isEmpty() ? "" : ",") + quoted(column.name);
    m_session.copyIn("copy " + quoted(table) + '(' + names + ") from stdin", copyText(rows));
}

qint64 PostgresConnection::insertRow(const QString &table, const RowBlock &row, const NewBlob &blob)
{
    const Catalog::Table *known = catalog().table(table);
    if (!known || known->rowKey.isEmpty())
        throw DatabaseError(u"表 %1 没有自动编号，无法写入！"_s.arg(table));
    QByteArray names;
    QByteArray places;
    PostgresValues values;
    const auto add = [&](const QString &name) {
        const QByteArray number = QByteArray::number(values.count() + 1);
        names += (names.isEmpty() ? "" : ",") + quoted(name);
        places += (places.isEmpty() ? "$" : ",$") + number;
    };
    for (int column = 0; column < row.columnCount(); ++column) {
        add(row.columns()[static_cast<size_t>(column)].name);
        if (row.isNull(0, column))
            values.addNull();
        else
            values.addText(row.cell(0, column));
    }
    if (blob.device) {
        add(blob.column);
        values.addBytes(*blob.device);
    }
    qint64 key = 0;
    m_session.run("insert into " + quoted(known->name) + '(' + names + ") values(" + places + ") returning " +
                      quoted(known->rowKey),
                  values, [&](const pg_result *rows) {
                      if (PQntuples(rows) > 0)
                          key = QByteArray(PQgetvalue(rows, 0, 0)).toLongLong();
                  });
    return key;
}

/// One state of the row, though it is read in pieces: a transaction of its own, unless there is one.
void PostgresConnection::readBlob(const BlobColumn &column, qint64 key, const PieceTaker &take)
{
    constexpr qint64 pieceSize = 8 << 20;
    const bool isOwn = !inTransaction();
    if (isOwn)
        beginReading();
    const auto end = qScopeGuard([&] {
        if (isOwn)
            rollback();
    });
    const Catalog::Table *known = catalog().table(column.table);
    const QByteArray name = quoted(column.column);
    const QByteArray rest = " from " + quoted(column.table) + " where " + quoted(known->rowKey) + '=' +
                            QByteArray::number(key) + " and " + name + " is not null";
    qint64 at = 1;
    for (qint64 size = pieceSize; size == pieceSize; at += pieceSize)
        size = m_session.readBytes("select substring(" + name + " from " + QByteArray::number(at) + " for " +
                                       QByteArray::number(pieceSize) + ')' + rest,
                                   take);
}

void PostgresConnection::readTable(const QString &table, const QStringList &columns, const BlockTaker &take)
{
    const Catalog::Table *known = catalog().table(table);
    std::vector<Column> described;
    QByteArray names;
    for (const QString &name : columns) {
        const Column *column = known ? known->column(name) : nullptr;
        if (!column)
            throw DatabaseError(u"列 %1.%2 不存在"_s.arg(table, name));
        described.push_back(*column);
        names += (names.isEmpty() ? "" : ",") + quoted(column->name);
    }
    RowBlock block(described);
    const auto pass = [&](bool isLast) {
        if (isLast ? block.rowCount() == 0 : !isFull(block))
            return;
        take(block);
        block = RowBlock(described);
    };
    const PostgresSession::ExactNumbers exact(m_session);
    m_session.run("select " + names + " from " + quoted(table), [&](const pg_result *rows) {
        appendStoredRows(block, rows);
        pass(false);
    });
    pass(true);
}

void PostgresConnection::executeNative(const QByteArray &script)
{
    m_hasCatalog = false;
    m_session.runScript(script);
}

RowBlock PostgresConnection::queryNative(const QByteArray &statement)
{
    std::optional<RowBlock> block;
    m_session.run(statement, [&](const pg_result *rows) {
        if (!block) {
            std::vector<Column> columns;
            for (int at = 0; at < PQnfields(rows); ++at)
                columns.push_back({QString::fromUtf8(PQfname(rows, at)), ColumnType::Text});
            block.emplace(std::move(columns));
        }
        appendRows(*block, rows);
    });
    if (!block)
        return {};
    block->finish();
    return std::move(*block);
}

const Dialect &PostgresConnection::dialect() const
{
    return postgresDialect();
}

const DdlWords &PostgresConnection::ddlWords() const
{
    return postgresWords();
}

QByteArray PostgresConnection::missingFoundation()
{
    return db::missingFoundation(*this);
}

const Catalog &PostgresConnection::catalog()
{
    if (!m_hasCatalog)
        refreshCatalog();
    return m_catalog;
}

bool PostgresConnection::refreshCatalog()
{
    const RowBlock rows = queryNative(catalogStatement);
    const QByteArray text(rows.arena().data(), static_cast<qsizetype>(rows.arena().size()));
    const bool isNew = !m_hasCatalog || text != m_catalogText;
    m_hasCatalog = true;
    if (isNew) {
        m_catalog = catalogOf(rows);
        m_catalogText = text;
    }
    return isNew;
}

} // namespace ebtq::db
