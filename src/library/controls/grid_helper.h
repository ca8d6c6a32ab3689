#pragma once

#include <QString>

namespace ebtq {

class VSFlexGrid;

/// What lists and pickers share about their grids.
class GridHelper
{
public:
    /// The standard look: one fixed row with the captions of the format string, centred.
    void style(VSFlexGrid &grid, int fixedCols, const QString &format) const;

    enum class Match { Contains, Equals };
    /// The first data row from `fromRow` on that is visible and whose cell in `col` contains or equals the
    /// text, without regard to case; -1 when there is none.
    [[nodiscard]] int find(const VSFlexGrid &grid, int col, const QString &text, Match match,
                           int fromRow) const;
    /// Makes a data row current and scrolls to it; false when there is no such row.
    bool select(VSFlexGrid &grid, int row) const;
};

} // namespace ebtq
