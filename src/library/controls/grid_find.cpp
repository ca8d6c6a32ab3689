#include "library/controls/grid_find.h"

#include "library/controls/flex_grid.h"

#include <algorithm>

namespace ebtq {

/// Never a hidden column: the user would not see why a row was found.
QList<int> GridFind::searchedColumns() const
{
    if (m_grid.isColumnInSight(m_grid.Col()))
        return {m_grid.Col()};
    QList<int> columns;
    for (const int column : m_grid.columnOrder()) {
        if (m_grid.isColumnInSight(column))
            columns.append(column);
    }
    return columns;
}

GridFind::Hit GridFind::find(const QString &text, Direction direction)
{
    m_text = text;
    m_columns = searchedColumns();
    m_direction = direction;
    return select(m_grid.Row());
}

GridFind::Hit GridFind::findNext()
{
    return select(m_grid.Row() + m_direction);
}

GridFind::Hit GridFind::select(int from)
{
    if (m_text.isEmpty())
        return {};
    const std::vector<int> rows = m_grid.rowsHolding(m_text, m_columns, VSFlexGrid::RowsInSight);
    if (rows.empty())
        return {};
    if (m_direction == Forward) {
        const auto next = std::ranges::lower_bound(rows, from);
        const bool isBeyond = next == rows.end();
        return choose(rows, isBeyond ? 0 : static_cast<size_t>(next - rows.begin()), isBeyond);
    }
    const auto behind = std::ranges::upper_bound(rows, from);
    const bool isBeyond = behind == rows.begin();
    return choose(rows, isBeyond ? rows.size() - 1 : static_cast<size_t>(behind - rows.begin()) - 1,
                  isBeyond);
}

GridFind::Hit GridFind::choose(const std::vector<int> &rows, size_t index, bool isWrapped)
{
    m_grid.setRow(rows[index]);
    return {static_cast<int>(index) + 1, static_cast<int>(rows.size()), isWrapped};
}

int GridFind::filter(const QString &text)
{
    if (text.isEmpty())
        m_grid.showAllRows();
    else
        m_grid.showOnly(m_grid.rowsHolding(text, searchedColumns(), VSFlexGrid::AllRows));
    return m_grid.visibleCount();
}

} // namespace ebtq
