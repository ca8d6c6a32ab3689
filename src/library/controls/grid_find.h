#pragma once

#include <QList>
#include <QString>

#include <vector>

namespace ebtq {

class VSFlexGrid;

/// Find, find next and filter by a text in a list: in the current column or, when that one is hidden, in all
/// visible columns, without regard to case. Rows that are hidden are not found.
class GridFind
{
public:
    enum Direction : int { Forward = 1, Backward = -1 };
    struct Hit
    {
        int number = 0; ///< from 1, in the order of the rows; 0 when there is none
        int count = 0;
        bool isWrapped = false; ///< found beyond the list's end
    };

    /// `grid` outlives the search.
    explicit GridFind(VSFlexGrid &grid)
        : m_grid(grid)
    {}

    [[nodiscard]] const QString &text() const { return m_text; }
    /// Makes the nearest row with the text current; it may be current already. Remembers text, column and
    /// direction.
    Hit find(const QString &text, Direction direction);
    /// Goes on from the current row as the last search did.
    Hit findNext();
    /// Hides the rows without the text; none for an empty text. Returns the number of visible rows.
    int filter(const QString &text);

private:
    [[nodiscard]] QList<int> searchedColumns() const;
    Hit select(int from);
    Hit choose(const std::vector<int> &rows, size_t index, bool isWrapped);

    VSFlexGrid &m_grid;
    QString m_text;
    QList<int> m_columns;
    Direction m_direction = Forward;
};

} // namespace ebtq
