#include "library/controls/grid_search.h"

#include <algorithm>

namespace ebtq {

GridSearch::GridSearch(const GridRows &rows, const QString &text, int currentCol, const QList<int> &columns,
                       Qt::CaseSensitivity sensitivity)
    : m_rows(rows)
    , m_typed(text)
    , m_sensitivity(sensitivity)
    , m_text(text, sensitivity)
    , m_scanned(m_text.rarestPart(rows.block().arena()))
    , m_scanDecides(m_scanned.size == m_text.bytes().size())
    , m_columns(QList<int>{currentCol} + columns)
    , m_columnCount(static_cast<size_t>(rows.block().columnCount()))
    , m_places(m_columnCount)
    , m_nextSearched(m_columnCount)
    , m_formOffsets(m_text.otherForms().size())
{
    for (qsizetype at = 0; at < m_columns.size(); ++at) {
        const int blockCol = m_columns[at] - rows.firstColumn();
        if (blockCol >= 0 && blockCol < rows.block().columnCount())
            m_places[static_cast<size_t>(blockCol)].push_back(at);
    }
    size_t next = m_columnCount;
    for (size_t col = m_columnCount; col-- > 0;) {
        m_nextSearched[col] = next;
        if (!m_places[col].empty())
            next = col;
    }
}

void GridSearch::run(int from, const std::function<bool(int)> &found)
{
    m_runEnd = from;
    for (int position = from; position < m_rows.count();) {
        const int end = m_scanned.size == 0 ? position : endOfScan(position);
        if (end > position) {
            if (!scanRun(position, end, found))
                return;
            position = end;
        } else {
            if (rowHolds(position) && !found(position))
                return;
            ++position;
        }
    }
}

bool GridSearch::rowHolds(int position)
{
    m_rowText.clear();
    for (qsizetype at = 0; at < m_columns.size(); ++at) {
        if (at > 0)
            m_rowText += '%';
        m_rowText += m_rows.cell(position, m_columns[at]);
    }
    if (m_sensitivity == Qt::CaseSensitive)
        return m_rowText.find(m_text.bytes()) != std::string::npos;
    return cellText(m_rowText).contains(m_typed, m_sensitivity);
}

/// The end of the consecutive rows of the block without a letter in a form that the scan does not know. A
/// form is searched again only after its last occurrence, or the search would be quadratic.
int GridSearch::endOfScan(int begin)
{
    const bool isNewRun = begin >= m_runEnd;
    if (isNewRun)
        m_runEnd = m_rows.endOfRun(begin);
    if (m_runEnd <= begin)
        return begin;
    const size_t first = m_rows.identity(begin);
    const size_t last = first + static_cast<size_t>(m_runEnd - begin) - 1;
    const std::string_view bytes = m_rows.block().arena().substr(0, rowEnd(last));
    size_t nearest = std::string_view::npos;
    for (size_t at = 0; at < m_formOffsets.size(); ++at) {
        if (isNewRun || m_formOffsets[at] < rowBegin(first))
            m_formOffsets[at] = bytes.find(m_text.otherForms()[at], rowBegin(first));
        nearest = std::min(nearest, m_formOffsets[at]);
    }
    return nearest == std::string_view::npos
               ? m_runEnd
               : begin + static_cast<int>(rowHolding(nearest, first, last) - first);
}

/// The scanned part was found in a cell of that column, `inCell` bytes from its begin.
bool GridSearch::textStandsAround(size_t row, size_t blockCol, size_t inCell) const
{
    const std::string_view cell = m_rows.block().cellAt(row * m_columnCount + blockCol);
    const size_t end = m_scanned.begin + m_scanned.size;
    return std::ranges::any_of(m_places[blockCol], [&](qsizetype at) {
        return textFollows(row, at, cell.substr(inCell + m_scanned.size), end) &&
               textPrecedes(row, at, cell.substr(0, inCell), m_scanned.begin);
    });
}

bool GridSearch::textFollows(size_t row, qsizetype at, std::string_view cell, size_t begin) const
{
    const std::string_view text = m_text.bytes();
    while (text.size() - begin > cell.size()) {
        if (!m_text.standsIn(cell, begin) || text[begin + cell.size()] != '%' || ++at == m_columns.size())
            return false;
        begin += cell.size() + 1;
        cell = cellOf(row, at);
    }
    return m_text.standsIn(cell.substr(0, text.size() - begin), begin);
}

bool GridSearch::textPrecedes(size_t row, qsizetype at, std::string_view cell, size_t end) const
{
    while (end > cell.size()) {
        const size_t begin = end - cell.size();
        if (!m_text.standsIn(cell, begin) || m_text.bytes()[begin - 1] != '%' || at-- == 0)
            return false;
        end = begin - 1;
        cell = cellOf(row, at);
    }
    return m_text.standsIn(cell.substr(cell.size() - end), 0);
}

std::string_view GridSearch::cellOf(size_t row, qsizetype at) const
{
    const int col = m_columns[at] - m_rows.firstColumn();
    return col < 0 || col >= m_rows.block().columnCount()
               ? std::string_view()
               : m_rows.block().cell(static_cast<qsizetype>(row), col);
}

/// The rows from `begin` to `end` are consecutive in the block.
bool GridSearch::scanRun(int begin, int end, const std::function<bool(int)> &found)
{
    const size_t first = m_rows.identity(begin);
    const size_t last = first + static_cast<size_t>(end - begin) - 1;
    const std::string_view bytes = m_rows.block().arena().substr(0, rowEnd(last));
    TextScan scan(m_text, m_scanned, bytes);
    size_t row = first;
    for (size_t at = rowBegin(first); at < bytes.size();) {
        const size_t offset = scan.next(at);
        if (offset == std::string_view::npos)
            return true;
        row = rowHolding(offset, row, last);
        const size_t col = columnHolding(offset, row);
        const int position = begin + static_cast<int>(row - first);
        if (!liesInSearchedCell(offset, row, col)) {
            at = beginOfNextSearched(row, col);
            continue;
        }
        if (!m_scanDecides && !textStandsAround(row, col, offset - cellBegin(row, col))) {
            at = offset + 1;
            continue;
        }
        if (!found(position))
            return false;
        at = rowEnd(row);
        row = std::min(row + 1, last);
    }
    return true;
}

/// When it does not, neither the column's other bytes nor the rest of a cell too short for the text hold a
/// match.
bool GridSearch::liesInSearchedCell(size_t offset, size_t row, size_t col) const
{
    return !m_places[col].empty() && offset + m_scanned.size <= cellEnd(row, col);
}

size_t GridSearch::cellBegin(size_t row, size_t col) const
{
    const size_t index = row * m_columnCount + col;
    return index == 0 ? 0 : m_rows.block().end(index - 1);
}

size_t GridSearch::cellEnd(size_t row, size_t col) const
{
    return m_rows.block().end(row * m_columnCount + col);
}

size_t GridSearch::rowBegin(size_t row) const
{
    return cellBegin(row, 0);
}

size_t GridSearch::rowEnd(size_t row) const
{
    return cellEnd(row, m_columnCount - 1);
}

/// Hits come in order: doubling steps from the last row find a near row at once and a far one without reading
/// the ends of all rows between.
size_t GridSearch::rowHolding(size_t offset, size_t from, size_t last) const
{
    size_t low = from;
    size_t step = 1;
    while (low + step <= last && rowEnd(low + step - 1) <= offset) {
        low += step;
        step *= 2;
    }
    size_t high = std::min(low + step - 1, last);
    while (low < high) {
        const size_t middle = low + (high - low) / 2;
        if (rowEnd(middle) > offset)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

size_t GridSearch::columnHolding(size_t offset, size_t row) const
{
    size_t col = 0;
    while (cellEnd(row, col) <= offset)
        ++col;
    return col;
}

size_t GridSearch::beginOfNextSearched(size_t row, size_t col) const
{
    const size_t next = m_nextSearched[col];
    return next == m_columnCount ? rowEnd(row) : cellBegin(row, next);
}

} // namespace ebtq
