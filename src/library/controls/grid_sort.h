#pragma once

#include "library/controls/grid_rows.h"

namespace ebtq {

/// How rows are put in order by one column. Equal rows keep their order, so that several columns can be
/// sorted by one after the other.
enum class GridSort : int {
    None = 0,
    GenericAscending = 1, ///< by what the column holds: numbers, dates, or texts without regard to case
    GenericDescending = 2,
    NumericAscending = 3, ///< by the leading number
    NumericDescending = 4,
    StringNoCaseAscending = 5,
    StringNoCaseDescending = 6,
    StringAscending = 7,
    StringDescending = 8
};

/// Sorts the rows; nothing for None and for an unknown number.
void sortRows(GridRows &rows, int col, ColumnType type, GridSort sort);

} // namespace ebtq
