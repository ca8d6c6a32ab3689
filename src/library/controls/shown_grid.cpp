#include "library/controls/shown_grid.h"

#include "contracts/color_parts.h"
#include "library/controls/flex_grid.h"

#include <algorithm>

namespace ebtq {

namespace {

PrintedGrid::Alignment across(int alignment)
{
    switch (alignment) {
    case VSFlexGrid::AlignCentre:
        return PrintedGrid::Alignment::Centre;
    case VSFlexGrid::AlignRight:
        return PrintedGrid::Alignment::Right;
    default:
        return PrintedGrid::Alignment::Left;
    }
}

} // namespace

ShownGrid::ShownGrid(const VSFlexGrid &grid)
    : m_grid(grid)
{
    readColumns();
    readRows();
}

void ShownGrid::readColumns()
{
    for (const int number : m_grid.columnOrder()) {
        if (!m_grid.isColumnInSight(number))
            continue;
        m_gridColumns.push_back(number);
        m_columns.push_back(column(number));
    }
}

PrintedGrid::Column ShownGrid::column(int gridColumn) const
{
    return {m_grid.FixedRows() > 0 ? m_grid.TextMatrix(0, gridColumn).trimmed() : QString(),
            m_grid.ColWidth(gridColumn), !m_grid.isWidthGiven(gridColumn),
            across(m_grid.shownAlignment(gridColumn)), across(m_grid.FixedAlignment(gridColumn))};
}

void ShownGrid::readRows()
{
    const int count = m_grid.visibleCount();
    m_rows.reserve(static_cast<size_t>(count));
    for (int position = 0; position < count; ++position)
        m_rows.push_back(m_grid.rowInSight(position));
}

QString ShownGrid::text(int row, int column) const
{
    return m_grid.displayText(m_rows[static_cast<size_t>(row)], m_gridColumns[static_cast<size_t>(column)]);
}

QString ShownGrid::picture(int row, int column) const
{
    return m_grid.CellPicture(m_rows[static_cast<size_t>(row)], m_gridColumns[static_cast<size_t>(column)]);
}

PrintedGrid::CellLook ShownGrid::look(int row, int column) const
{
    const GridCellLook look =
        m_grid.cellLook(m_rows[static_cast<size_t>(row)], m_gridColumns[static_cast<size_t>(column)]);
    return {plainColor(look.backColor), plainColor(look.foreColor), look.isBold};
}

bool ShownGrid::isSum(int row) const
{
    return m_grid.isSubtotal(m_rows[static_cast<size_t>(row)]);
}

bool ShownGrid::isSumLabel(int row, int column) const
{
    return m_grid.isSumLabel(m_rows[static_cast<size_t>(row)], m_gridColumns[static_cast<size_t>(column)]);
}

std::string_view ShownGrid::shown(int row, int column) const
{
    if (m_grid.ColFormat(m_gridColumns[static_cast<size_t>(column)]).isEmpty())
        return stored(row, column);
    m_formatted = text(row, column).toStdString();
    return m_formatted;
}

ColumnType ShownGrid::type(int column) const
{
    return m_grid.columnType(m_gridColumns[static_cast<size_t>(column)]);
}

std::string_view ShownGrid::stored(int row, int column) const
{
    return m_grid.cell(m_rows[static_cast<size_t>(row)], m_gridColumns[static_cast<size_t>(column)]);
}

bool ShownGrid::labelsSums(int column) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (isSumLabel(row, column))
            return true;
    }
    return false;
}

void ShownGrid::keepCaptioned()
{
    for (size_t at = m_columns.size(); at-- > 0;) {
        if (!m_columns[at].caption.isEmpty() || labelsSums(static_cast<int>(at)))
            continue;
        m_columns.erase(m_columns.begin() + static_cast<std::ptrdiff_t>(at));
        m_gridColumns.erase(m_gridColumns.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

void ShownGrid::keepRows(int first, int last)
{
    const int end = std::clamp(last + 1, 0, rowCount());
    const int begin = std::clamp(first, 0, end);
    m_rows = {m_rows.begin() + begin, m_rows.begin() + end};
}

} // namespace ebtq
