#include "library/controls/grid_helper.h"

#include "library/controls/flex_grid.h"

namespace ebtq {

void GridHelper::style(VSFlexGrid &grid, int fixedCols, const QString &format) const
{
    grid.setFixedRows(1);
    grid.setFixedCols(fixedCols);
    grid.setFormatString(format);
    for (int col = 0; col < grid.Cols(); ++col)
        grid.setFixedAlignment(col, VSFlexGrid::AlignCentre);
}

int GridHelper::find(const VSFlexGrid &grid, int col, const QString &text, Match match, int fromRow) const
{
    for (int row = qMax(fromRow, grid.FixedRows()); row < grid.Rows(); ++row) {
        if (grid.RowHidden(row))
            continue;
        const QString cell = grid.TextMatrix(row, col);
        if (match == Match::Equals ? cell.compare(text, Qt::CaseInsensitive) == 0
                                   : cell.contains(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

bool GridHelper::select(VSFlexGrid &grid, int row) const
{
    if (row < grid.FixedRows() || row >= grid.Rows())
        return false;
    grid.setRow(row);
    grid.setTopRow(row);
    return true;
}

} // namespace ebtq
