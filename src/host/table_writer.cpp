#include "host/table_writer.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

std::vector<Column> typedColumns(db::Connection &connection, const QString &table, QStringView names)
{
    std::vector<Column> columns;
    const db::Catalog::Table *known = connection.catalog().table(table);
    for (const QStringView name : names.split(u',')) {
        const Column *column = known ? known->column(name) : nullptr;
        if (!column)
            throw db::DatabaseError(u"列 %1.%2 不存在"_s.arg(table, name));
        columns.push_back(*column);
    }
    return columns;
}

} // namespace

TableWriter::TableWriter(db::Connection &connection, const QString &table, QStringView columns)
    : m_connection(connection)
    , m_table(table)
    , m_columns(typedColumns(connection, table, columns))
    , m_block(m_columns)
{}

void TableWriter::row(std::initializer_list<Cell> cells)
{
    part(cells);
    endRow();
}

void TableWriter::part(std::initializer_list<Cell> cells)
{
    for (const Cell &cell : cells)
        std::visit([this](const auto &value) { put(value); }, cell);
    m_written += cells.size();
}

void TableWriter::endRow()
{
    Q_ASSERT(m_written == m_columns.size());
    m_written = 0;
    if (m_block.rowCount() == rowsInBlock)
        flush();
}

void TableWriter::flush()
{
    if (m_block.rowCount() != 0)
        m_connection.insertRows(m_table, std::exchange(m_block, RowBlock(m_columns)));
}

} // namespace ebtq::host
