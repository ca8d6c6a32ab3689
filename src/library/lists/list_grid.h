#pragma once

#include <QStringView>

#include <span>

namespace ebtq {

class VSFlexGrid;

/// How a grid of records is built.
struct ListGrid
{
    /// Captions of the columns, divided by "|"; the blanks give the columns their widths.
    QStringView format;
    int fixedColumns = 1;
    std::span<const int> hiddenColumns;
    QStringView toolTip = {};
};

/// The standard look, striped rows, and what the table says. Rows are lost.
void setUpListGrid(VSFlexGrid &grid, const ListGrid &shape);

} // namespace ebtq
