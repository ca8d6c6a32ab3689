#pragma once

#include <QStringView>

#include <span>

namespace ebtq {

class VSFlexGrid;

inline constexpr int softYellow = 0xC0FFFF;

/// How a grid of records is built.
struct ListGrid
{
    /// Captions of the columns, divided by "|"; the blanks give the columns their widths.
    QStringView format;
    int fixedColumns = 1;
    std::span<const int> hiddenColumns;
    QStringView toolTip = {};
    int alternateColor = 0; ///< of every second row; 0 for none
    int selectionColor = 0; ///< of the current row; 0 for the usual one
};

/// The standard look and what the table says.
void setUpListGrid(VSFlexGrid &grid, const ListGrid &shape);

} // namespace ebtq
