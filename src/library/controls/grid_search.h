#pragma once

#include "library/controls/grid_rows.h"

#include <QList>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace ebtq {

/// The search for a text in the rows of a grid. The search text of a row is its cell in `currentCol` and
/// then, for each of `columns`, "%" and the cell there; so a text with "%" can span neighbouring columns.
///
/// A text without "%" lies within one cell, so the block's bytes are searched in one pass and each hit is
/// mapped back to its cell. Of a text with "%" the longest part between two of them is searched so, and the
/// columns around each hit are looked at. Edited rows, and letters whose case does not count, are searched
/// row by row.
class GridSearch
{
public:
    GridSearch(const GridRows &rows, const QString &text, int currentCol, const QList<int> &columns,
               Qt::CaseSensitivity sensitivity);

    GridSearch(const GridSearch &) = delete;
    GridSearch &operator=(const GridSearch &) = delete;

    /// Calls `found` with the position of each row, from `from` on, that holds the text, until it returns
    /// false. `found` may hide and show rows, nothing else.
    void run(int from, const std::function<bool(int)> &found);

private:
    [[nodiscard]] bool rowHolds(int position);
    [[nodiscard]] bool textStandsAround(int position, int blockCol, size_t inCell) const;
    /// Whether the row goes on with the text, or ends with it, in the columns from `at` on, forwards or
    /// backwards; `cell` is what is left of the first one.
    [[nodiscard]] bool textFollows(int position, qsizetype at, std::string_view cell,
                                   std::string_view text) const;
    [[nodiscard]] bool textPrecedes(int position, qsizetype at, std::string_view cell,
                                    std::string_view text) const;
    bool scanRun(int begin, int end, const std::function<bool(int)> &found);
    [[nodiscard]] size_t cellBegin(size_t row, int col) const;
    [[nodiscard]] size_t rowBegin(size_t row) const;
    [[nodiscard]] size_t rowEnd(size_t row) const;
    [[nodiscard]] size_t rowHolding(size_t offset, size_t from, size_t last) const;
    [[nodiscard]] bool liesInSearchedCell(size_t offset, size_t row, int col) const;
    [[nodiscard]] int columnHolding(size_t offset, size_t row) const;
    [[nodiscard]] size_t beginOfNextSearched(size_t row, int col) const;

    const GridRows &m_rows;
    QString m_text;
    const std::string m_needle;
    QList<int> m_columns; ///< the current one first
    bool m_caseCounts;
    std::string_view m_scanned;   ///< of m_needle; lies within one cell of every row that matches; empty when
                                  ///< rows are not scanned
    bool m_scanDecides;           ///< the scanned text is the whole one
    std::vector<bool> m_searched; ///< by column of the block
    std::vector<int> m_nextSearched; ///< by column of the block; its count for none
    std::string m_rowText;
};

} // namespace ebtq
