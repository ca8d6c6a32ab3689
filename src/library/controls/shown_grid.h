#pragma once

#include "contracts/print_contract.h"
#include "database/values/row_block.h"

#include <string>
#include <string_view>

namespace ebtq {

class VSFlexGrid;

/// The visible part of a grid, for printing, copying and exporting: the columns that are neither hidden nor
/// without a width, in their visible order, and the rows that were visible when this was made. Keys in hidden
/// columns are never exported. The grid outlives it.
class ShownGrid : public PrintedGrid
{
public:
    explicit ShownGrid(const VSFlexGrid &grid);

    [[nodiscard]] const std::vector<Column> &columns() const override { return m_columns; }
    [[nodiscard]] int rowCount() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QString text(int row, int column) const override;
    [[nodiscard]] QString picture(int row, int column) const override;
    [[nodiscard]] CellLook look(int row, int column) const override;
    [[nodiscard]] bool isSumLabel(int row, int column) const override;

    [[nodiscard]] bool isSum(int row) const;
    /// What the column's cells hold.
    [[nodiscard]] ColumnType type(int column) const;
    /// The text of a cell in UTF-8; valid until the next call and until the grid changes.
    [[nodiscard]] std::string_view shown(int row, int column) const;
    /// The cell as it was loaded, before any format; valid until the grid changes.
    [[nodiscard]] std::string_view stored(int row, int column) const;
    /// Takes the columns without a caption away: they hold icons, which have no text. A column with the
    /// labels of sums is kept.
    void keepCaptioned();
    /// Removes the rows before `first` and after `last`.
    void keepRows(int first, int last);

private:
    [[nodiscard]] Column column(int gridColumn) const;
    void readColumns();
    void readRows();
    [[nodiscard]] bool labelsSums(int column) const;

    const VSFlexGrid &m_grid;
    std::vector<Column> m_columns;
    std::vector<int> m_gridColumns;  ///< the number in the grid of each column
    std::vector<int> m_rows;         ///< the same of each row
    mutable std::string m_formatted; ///< the last cell that was not shown as it is stored
};

} // namespace ebtq
