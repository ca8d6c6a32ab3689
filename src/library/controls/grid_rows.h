#pragma once

#include "database/values/row_block.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ebtq {

/// The data rows of a grid, by position from 0. A loaded block stays as it is: edited cells and added rows
/// are kept separately by the row's identity, and the order and the hidden rows are an index over both. An
/// entry of that index is 4 bytes; what is hidden or edited is marked in the entry, so that it moves with its
/// row.
class GridRows
{
public:
    using Identity = quint32;
    /// One row in the index: its identity and what is marked about it.
    using Entry = quint32;

    /// The block's first column becomes column `firstCol`. Replaces all rows.
    void load(RowBlock block, int firstCol);
    /// Adds empty rows at the end or cuts rows there.
    void resize(int count);

    [[nodiscard]] int count() const { return static_cast<int>(m_order.size()); }
    [[nodiscard]] const RowBlock &block() const { return m_block; }
    [[nodiscard]] int firstColumn() const { return m_firstCol; }
    [[nodiscard]] Identity identity(int position) const { return entry(position) & identityMask; }

    /// Empty for a column that the row has not.
    [[nodiscard]] std::string_view cell(int position, int col) const;
    void setCell(int position, int col, std::string text);
    void insert(int position);
    void remove(int position);

    [[nodiscard]] bool isHidden(int position) const { return entry(position) & hiddenMark; }
    void setHidden(int position, bool hidden);
    void hideAll();
    void showAll();
    [[nodiscard]] int countInSight() const { return count() - m_hiddenCount; }
    [[nodiscard]] int positionInSight(int nth) const;
    /// How many rows before that position are visible.
    [[nodiscard]] int sightBefore(int position) const;

    /// Without subtotals.
    [[nodiscard]] int recordCount() const { return count() - subtotalCount(false); }
    [[nodiscard]] int recordCountInSight() const { return countInSight() - subtotalCount(true); }

    // Subtotals: added rows of a level, which number their maker gives.
    [[nodiscard]] const std::vector<Entry> &entries() const { return m_order; }
    [[nodiscard]] std::string_view cellOf(Entry entry, int col) const;
    void setCellOf(Entry entry, int col, std::string text);
    /// -1 for a row that is no subtotal.
    [[nodiscard]] int subtotalLevel(Entry entry) const
    {
        const auto added = static_cast<qsizetype>(entry & identityMask) - m_block.rowCount();
        return added < 0 ? -1 : m_levelOfAdded[static_cast<size_t>(added)];
    }
    [[nodiscard]] bool isSubtotal(int position) const { return subtotalLevel(entry(position)) >= 0; }
    /// A new row, still without a place, with room for that many cells.
    [[nodiscard]] Entry addSubtotal(int level, size_t cells);
    /// A new order: all rows that are there now, and new ones.
    void place(std::vector<Entry> entries);
    void removeSubtotals();

    /// Where the run of rows ends that begins here and lies in the block without a gap and without an edited
    /// cell; `position` itself when that row is edited or added.
    [[nodiscard]] int endOfRun(int position) const;

    [[nodiscard]] size_t byteSize() const;

private:
    static constexpr quint32 hiddenMark = 0x80000000U;
    static constexpr quint32 editedMark = 0x40000000U;
    static constexpr quint32 identityMask = editedMark - 1;

    struct EditedCell
    {
        int col;
        std::string text;
    };
    using EditedRow = std::vector<EditedCell>;

    [[nodiscard]] Entry entry(int position) const { return m_order[static_cast<size_t>(position)]; }
    [[nodiscard]] const EditedCell *editedCell(Identity row, int col) const;
    [[nodiscard]] int subtotalCount(bool inSight) const;
    [[nodiscard]] Entry newEntry(int subtotalLevel = -1);
    [[nodiscard]] const std::vector<quint32> &inSight() const;

    RowBlock m_block;
    int m_firstCol = 0;
    std::vector<Entry> m_order;
    std::unordered_map<Identity, EditedRow> m_edited;
    Identity m_nextIdentity = 0; ///< of the next added row; those below the block's row count are the block's
    std::vector<qint16> m_levelOfAdded;
    int m_hiddenCount = 0;
    mutable std::vector<quint32>
        m_inSight; ///< positions, only while something is hidden; empty when outdated
};

} // namespace ebtq
