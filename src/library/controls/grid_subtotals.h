#pragma once

#include "library/controls/grid_rows.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace ebtq {

enum class SubtotalPosition { Below = 0, Above = 1 };

/// One sum to be shown for each group of neighbouring rows with equal texts in a column, or for all rows.
struct Subtotal
{
    int groupColumn = -1; ///< -1 for all rows
    int totalColumn = 0;
    QString format = {}; ///< of the sum; empty for the plain number
    int backColor = 0;   ///< colour numbers of the row; 0 for the usual ones
    int foreColor = 0;
    bool isBold = false;
    /// Stands in the group column; "%s" is the group's text.
    QString caption = {};
    /// A group ends where one of the columns from this one to the group column changes. Without it the group
    /// column alone decides, within the groups of the columns further left that have sums already.
    std::optional<int> matchFrom = {};
    /// The row holds nothing but its caption, in the first column, and its sums. Without it the texts of the
    /// outer groups are repeated in it.
    bool totalOnly = false;
};

/// How the cells of a row differ from others; colour numbers, red in the lowest byte, 0 for the usual one.
struct GridCellLook
{
    int backColor = 0;
    int foreColor = 0;
    bool isBold = false;
};

/// The subtotals of a grid: added rows among its data rows, which stay where they are. The time grows with
/// the rows, and a column is read once however many groups it is summed for.
class GridSubtotals
{
public:
    /// Sums with one group column share that column's rows, also with those of an earlier call. `firstCol` is
    /// the grid's first column that is not fixed. Without data rows there are no sums.
    void add(GridRows &rows, std::span<const Subtotal> wanted, SubtotalPosition position, int firstCol);
    void clear(GridRows &rows);
    [[nodiscard]] bool isEmpty() const { return m_levels.empty(); }
    /// When the rows were removed already.
    void forget() { m_levels.clear(); }
    /// For any row and column.
    [[nodiscard]] GridCellLook look(const GridRows &rows, int position, int col) const;

    /// The rows of one group column.
    struct Level
    {
        int groupColumn = -1;
        int lookFrom = 0; ///< the columns from this one on have the look
        GridCellLook look = {};
    };

private:
    [[nodiscard]] int levelOf(const Subtotal &wanted, int firstCol);

    std::vector<Level> m_levels;
};

} // namespace ebtq
