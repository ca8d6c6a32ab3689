#include "library/controls/grid_search.h"

#include <algorithm>
#include <cstring>

namespace ebtq {

namespace {

std::string_view longestPart(std::string_view text)
{
    std::string_view longest;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('%', begin), text.size());
        if (end - begin > longest.size())
            longest = text.substr(begin, end - begin);
        begin = end + 1;
    }
    return longest;
}

} // namespace

GridSearch::GridSearch(const GridRows &rows, const QString &text, int currentCol, const QList<int> &columns,
                       Qt::CaseSensitivity sensitivity)
    : m_rows(rows)
    , m_text(text)
    , m_needle(text.toStdString())
    , m_columns(QList<int>{currentCol} + columns)
    , m_caseCounts(sensitivity == Qt::CaseSensitive || text.toUpper() == text.toLower())
    , m_scanned(m_caseCounts ? longestPart(m_needle) : std::string_view())
    , m_scanDecides(m_scanned.size() == m_needle.size())
    , m_searched(static_cast<size_t>(rows.block().columnCount()))
    , m_nextSearched(m_searched.size())
{
    for (const int col : std::as_const(m_columns)) {
        const int blockCol = col - rows.firstColumn();
        if (blockCol >= 0 && blockCol < rows.block().columnCount())
            m_searched[static_cast<size_t>(blockCol)] = true;
    }
    int next = rows.block().columnCount();
    for (size_t col = m_searched.size(); col-- > 0;) {
        m_nextSearched[col] = next;
        if (m_searched[col])
            next = static_cast<int>(col);
    }
}

void GridSearch::run(int from, const std::function<bool(int)> &found)
{
    for (int position = from; position < m_rows.count();) {
        const int end = m_scanned.empty() ? position : m_rows.endOfRun(position);
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
    if (m_caseCounts)
        return m_rowText.find(m_needle) != std::string::npos;
    return QString::fromStdString(m_rowText).contains(m_text, Qt::CaseInsensitive);
}

/// The scanned part stands in a cell of that column, `inCell` bytes from its begin.
bool GridSearch::textStandsAround(int position, int blockCol, size_t inCell) const
{
    const std::string_view needle = m_needle;
    const auto scannedAt = static_cast<size_t>(m_scanned.data() - needle.data());
    const std::string_view cell = m_rows.cell(position, blockCol + m_rows.firstColumn());
    for (qsizetype at = 0; at < m_columns.size(); ++at) {
        if (m_columns[at] - m_rows.firstColumn() == blockCol &&
            textFollows(position, at, cell.substr(inCell), needle.substr(scannedAt)) &&
            textPrecedes(position, at, cell.substr(0, inCell), needle.substr(0, scannedAt)))
            return true;
    }
    return false;
}

bool GridSearch::textFollows(int position, qsizetype at, std::string_view cell, std::string_view text) const
{
    while (text.size() > cell.size()) {
        if (!text.starts_with(cell) || text[cell.size()] != '%' || ++at == m_columns.size())
            return false;
        text.remove_prefix(cell.size() + 1);
        cell = m_rows.cell(position, m_columns[at]);
    }
    return cell.starts_with(text);
}

bool GridSearch::textPrecedes(int position, qsizetype at, std::string_view cell, std::string_view text) const
{
    while (text.size() > cell.size()) {
        if (!text.ends_with(cell) || text[text.size() - cell.size() - 1] != '%' || at-- == 0)
            return false;
        text.remove_suffix(cell.size() + 1);
        cell = m_rows.cell(position, m_columns[at]);
    }
    return cell.ends_with(text);
}

/// The rows from `begin` to `end` stand in the block one behind the other.
bool GridSearch::scanRun(int begin, int end, const std::function<bool(int)> &found)
{
    const std::string_view arena = m_rows.block().arena();
    const size_t first = m_rows.identity(begin);
    const size_t last = first + static_cast<size_t>(end - begin) - 1;
    const size_t stop = rowEnd(last);
    size_t row = first;
    for (size_t at = rowBegin(first); at < stop;) {
        const void *hit = memmem(arena.data() + at, stop - at, m_scanned.data(), m_scanned.size());
        if (!hit)
            return true;
        const auto offset = static_cast<size_t>(static_cast<const char *>(hit) - arena.data());
        row = rowHolding(offset, row, last);
        const int col = columnHolding(offset, row);
        const int position = begin + static_cast<int>(row - first);
        if (!liesInSearchedCell(offset, row, col)) {
            at = beginOfNextSearched(row, col);
            continue;
        }
        if (!m_scanDecides && !textStandsAround(position, col, offset - cellBegin(row, col))) {
            at = offset + 1;
            continue;
        }
        if (!found(position))
            return false;
        at = rowEnd(row);
    }
    return true;
}

/// When it does not, neither the column's other bytes nor the rest of a cell too short for the text hold a
/// match.
bool GridSearch::liesInSearchedCell(size_t offset, size_t row, int col) const
{
    const size_t cellEnd = m_rows.block().end(row * m_searched.size() + static_cast<size_t>(col));
    return m_searched[static_cast<size_t>(col)] && offset + m_scanned.size() <= cellEnd;
}

size_t GridSearch::cellBegin(size_t row, int col) const
{
    return col == 0 ? rowBegin(row)
                    : m_rows.block().end(row * m_searched.size() + static_cast<size_t>(col) - 1);
}

size_t GridSearch::rowBegin(size_t row) const
{
    return row == 0 ? 0 : rowEnd(row - 1);
}

size_t GridSearch::rowEnd(size_t row) const
{
    return m_rows.block().end((row + 1) * m_searched.size() - 1);
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

int GridSearch::columnHolding(size_t offset, size_t row) const
{
    const size_t first = row * m_searched.size();
    size_t col = 0;
    while (m_rows.block().end(first + col) <= offset)
        ++col;
    return static_cast<int>(col);
}

size_t GridSearch::beginOfNextSearched(size_t row, int col) const
{
    const int next = m_nextSearched[static_cast<size_t>(col)];
    if (next == m_rows.block().columnCount())
        return rowEnd(row);
    return m_rows.block().end(row * m_searched.size() + static_cast<size_t>(next) - 1);
}

} // namespace ebtq
