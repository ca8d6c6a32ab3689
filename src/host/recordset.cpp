#include "host/recordset.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ebtq::host {

BlockRecordset::BlockRecordset(RowBlock rows)
    : m_rows(std::move(rows))
    , m_count(static_cast<int>(m_rows.rowCount()))
{}

void BlockRecordset::replaceRows(RowBlock rows)
{
    m_rows = std::move(rows);
    m_count = static_cast<int>(m_rows.rowCount());
    m_row = 0;
}

void BlockRecordset::MoveNext()
{
    if (!Eof())
        ++m_row;
}

Field BlockRecordset::Fields(const QString &name) const
{
    if (Eof())
        throw Failure(u"没有当前记录，无法读取列 %1"_s.arg(name));
    const int column = m_rows.columnNamed(name);
    if (column < 0)
        throw Failure(u"列 %1 不存在"_s.arg(name));
    return {m_rows.value(m_row, column)};
}

RowBlock BlockRecordset::GetRows()
{
    m_row = m_count;
    return std::exchange(m_rows, RowBlock());
}

void BlockRecordset::Close()
{
    m_rows = RowBlock();
    m_count = 0;
    m_row = 0;
}

} // namespace ebtq::host
