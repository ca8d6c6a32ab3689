#pragma once

#include "library/controls/flex_grid.h"

#include <QList>
#include <QStringList>

namespace ebtq::test {

/// A finished block of text columns.
[[nodiscard]] inline RowBlock blockOf(int columns, const QList<QStringList> &rows)
{
    RowBlock block(std::vector<Column>(static_cast<size_t>(columns)));
    for (const QStringList &row : rows) {
        for (const QString &cell : row)
            block.append(cell.toStdString());
    }
    block.finish();
    return block;
}

/// The row's cells from the first column that is not fixed, "|" between them.
[[nodiscard]] inline QString rowText(const VSFlexGrid &grid, int row)
{
    QStringList cells;
    for (int column = grid.FixedCols(); column < grid.Cols(); ++column)
        cells.append(grid.TextMatrix(row, column));
    return cells.join(u'|');
}

/// All rows below the captions, in sight or not.
[[nodiscard]] inline QStringList rowTexts(const VSFlexGrid &grid)
{
    QStringList rows;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
        rows.append(rowText(grid, row));
    return rows;
}

/// The column's cells of the rows in sight, from the top, blanks between them.
[[nodiscard]] inline QString columnText(const VSFlexGrid &grid, int column)
{
    QStringList cells;
    for (int position = 0; position < grid.visibleCount(); ++position)
        cells.append(grid.TextMatrix(grid.rowInSight(position), column));
    return cells.join(u' ');
}

} // namespace ebtq::test
