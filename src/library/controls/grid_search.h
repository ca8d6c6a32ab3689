#pragma once

#include "library/controls/grid_rows.h"
#include "library/controls/searched_text.h"

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
/// mapped back to its cell. Of a text with "%" one of the parts between them is searched so, and the columns
/// around each hit are compared. Edited rows, and those with a letter in a rare form, are searched one by
/// one.
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
    [[nodiscard]] int endOfScan(int begin);
    [[nodiscard]] bool textStandsAround(size_t row, size_t blockCol, size_t inCell) const;
    /// Whether the row continues with the text from `begin`, or ends with the text up to `end`, in the
    /// columns from `at`, forwards or backwards; `cell` is the rest of the first one.
    [[nodiscard]] bool textFollows(size_t row, qsizetype at, std::string_view cell, size_t begin) const;
    [[nodiscard]] bool textPrecedes(size_t row, qsizetype at, std::string_view cell, size_t end) const;
    /// A row's cell of the block in the column m_columns[at].
    [[nodiscard]] std::string_view cellOf(size_t row, qsizetype at) const;
    bool scanRun(int begin, int end, const std::function<bool(int)> &found);
    [[nodiscard]] size_t cellBegin(size_t row, size_t col) const;
    [[nodiscard]] size_t cellEnd(size_t row, size_t col) const;
    [[nodiscard]] size_t rowBegin(size_t row) const;
    [[nodiscard]] size_t rowEnd(size_t row) const;
    [[nodiscard]] size_t rowHolding(size_t offset, size_t from, size_t last) const;
    [[nodiscard]] bool liesInSearchedCell(size_t offset, size_t row, size_t col) const;
    [[nodiscard]] size_t columnHolding(size_t offset, size_t row) const;
    [[nodiscard]] size_t beginOfNextSearched(size_t row, size_t col) const;

    const GridRows &m_rows;
    const QString m_typed;
    const Qt::CaseSensitivity m_sensitivity;
    const SearchedText m_text;
    const SearchedText::Part m_scanned; ///< lies within one cell of every row that matches; empty when rows
                                        ///< are not scanned
    const bool m_scanDecides;           ///< the scanned part is the whole text
    const QList<int> m_columns;         ///< the current one first
    const size_t m_columnCount;         ///< of the block
    std::vector<std::vector<qsizetype>> m_places; ///< by column of the block, its positions in m_columns
    std::vector<size_t> m_nextSearched;           ///< by column of the block; its count for none
    int m_runEnd = 0;                  ///< of the consecutive rows of the block that are being searched
    std::vector<size_t> m_formOffsets; ///< of each of the text's other forms the next one in them
    std::string m_rowText;
};

} // namespace ebtq
