#include "library/controls/grid_subtotals.h"

#include "contracts/conversions.h"
#include "database/values/number_text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace ebtq {

namespace {

using Entry = GridRows::Entry;
/// The numbers of the data rows, in their order.
using Numbers = std::vector<double>;

/// A sum that keeps the digits which a plain one loses: money of a hundred thousand rows adds up to the cent.
class Sum
{
public:
    void add(double value)
    {
        const double sum = m_sum + value;
        m_lost += std::abs(m_sum) >= std::abs(value) ? (m_sum - sum) + value : (value - sum) + m_sum;
        m_sum = sum;
        m_largest = std::max(m_largest, std::abs(value));
    }
    /// Digits that the largest number did not have itself are only noise of how numbers are held.
    [[nodiscard]] double value() const
    {
        constexpr double digitsHeld = 12;
        const double sum = m_sum + m_lost;
        const double scale = std::pow(10, digitsHeld - std::floor(std::log10(m_largest)));
        return m_largest > 0 && std::isfinite(sum * scale) ? std::round(sum * scale) / scale : sum;
    }

private:
    double m_sum = 0;
    double m_lost = 0;
    double m_largest = 0;
};

Numbers readNumbers(const GridRows &rows, const std::vector<Entry> &entries, int col)
{
    Numbers numbers;
    numbers.reserve(entries.size());
    for (const Entry entry : entries) {
        if (rows.subtotalLevel(entry) < 0)
            numbers.push_back(leadingNumber(rows.cellOf(entry, col)));
    }
    return numbers;
}

/// The sums that share one level's rows, in one walk over the rows.
class LevelPass
{
public:
    LevelPass(GridRows &rows, const std::vector<GridSubtotals::Level> &levels, int level,
              std::span<const Subtotal> wanted, int firstCol)
        : m_rows(rows)
        , m_levels(levels)
        , m_level(level)
        , m_wanted(wanted)
        , m_group(wanted.front().groupColumn)
        , m_matchFrom(wanted.front().matchFrom.value_or(m_group))
        , m_captionCol(m_group < 0 || wanted.front().totalOnly ? firstCol : m_group)
        , m_sums(wanted.size())
    {}

    [[nodiscard]] std::vector<Entry> run(const std::vector<Entry> &entries,
                                         const std::map<int, Numbers> &numbers)
    {
        for (const Subtotal &sum : m_wanted)
            m_numbers.push_back(numbers.at(sum.totalColumn).data());
        m_result.reserve(entries.size() + 1);
        for (const Entry entry : entries) {
            const int level = m_rows.subtotalLevel(entry);
            if (level < 0)
                addData(entry);
            else if (level == m_level)
                fill(entry);
            else if (m_levels[static_cast<size_t>(level)].groupColumn < m_group)
                endGroup();
            m_result.push_back(entry);
        }
        endGroup();
        return std::move(m_result);
    }

private:
    void addData(Entry entry)
    {
        if (m_isInGroup && !isSameGroup(entry))
            endGroup();
        m_isInGroup = true;
        m_last = entry;
        for (size_t at = 0; at < m_sums.size(); ++at)
            m_sums[at].add(m_numbers[at][m_dataRow]);
        ++m_dataRow;
    }
    [[nodiscard]] bool isSameGroup(Entry entry) const
    {
        if (m_group < 0)
            return true;
        for (int col = m_matchFrom; col <= m_group; ++col) {
            if (m_rows.cellOf(entry, col) != m_rows.cellOf(m_last, col))
                return false;
        }
        return true;
    }
    void endGroup()
    {
        if (!m_isInGroup)
            return;
        const Entry entry = m_rows.addSubtotal(m_level, m_wanted.size() + 1 + m_levels.size());
        label(entry);
        fill(entry);
        m_result.push_back(entry);
    }
    void label(Entry entry)
    {
        if (m_group >= 0 && !m_wanted.front().totalOnly) {
            for (const GridSubtotals::Level &outer : m_levels) {
                if (outer.groupColumn >= 0 && outer.groupColumn < m_group)
                    m_rows.setCellOf(entry, outer.groupColumn,
                                     std::string(m_rows.cellOf(m_last, outer.groupColumn)));
            }
        }
        std::string caption = m_wanted.front().caption.toStdString();
        if (const size_t mark = caption.find("%s"); mark != std::string::npos)
            caption.replace(mark, 2, m_group < 0 ? std::string_view() : m_rows.cellOf(m_last, m_group));
        m_rows.setCellOf(entry, m_captionCol, std::move(caption));
    }
    void fill(Entry entry)
    {
        for (size_t at = 0; at < m_sums.size(); ++at) {
            const double sum = m_sums[at].value();
            const QString &format = m_wanted[at].format;
            m_rows.setCellOf(entry, m_wanted[at].totalColumn,
                             format.isEmpty() ? numberText(sum) : Format(sum, format).toStdString());
            m_sums[at] = {};
        }
        m_isInGroup = false;
    }

    GridRows &m_rows;
    const std::vector<GridSubtotals::Level> &m_levels;
    const int m_level;
    const std::span<const Subtotal> m_wanted;
    const int m_group;
    const int m_matchFrom;
    const int m_captionCol;
    std::vector<Sum> m_sums;
    std::vector<const double *> m_numbers;
    std::vector<Entry> m_result;
    size_t m_dataRow = 0;
    bool m_isInGroup = false;
    Entry m_last = 0; ///< of the group's data rows
};

} // namespace

int GridSubtotals::levelOf(const Subtotal &wanted, int firstCol)
{
    const GridCellLook look{wanted.backColor, wanted.foreColor, wanted.isBold};
    const int lookFrom = wanted.groupColumn < 0 || wanted.totalOnly ? firstCol : wanted.groupColumn;
    auto found = std::ranges::find(m_levels, wanted.groupColumn, &Level::groupColumn);
    if (found == m_levels.end())
        found = m_levels.insert(found, Level());
    *found = {wanted.groupColumn, lookFrom, look};
    return static_cast<int>(found - m_levels.begin());
}

/// Rows above their group are rows below it in the order from the end.
void GridSubtotals::add(GridRows &rows, std::span<const Subtotal> wanted, SubtotalPosition position,
                        int firstCol)
{
    std::vector<Entry> entries = rows.entries();
    const bool above = position == SubtotalPosition::Above;
    if (above)
        std::ranges::reverse(entries);
    std::map<int, Numbers> numbers;
    for (const Subtotal &sum : wanted) {
        if (!numbers.contains(sum.totalColumn))
            numbers.emplace(sum.totalColumn, readNumbers(rows, entries, sum.totalColumn));
    }
    while (!wanted.empty()) {
        const int group = wanted.front().groupColumn;
        const auto other =
            std::ranges::find_if(wanted, [group](const Subtotal &sum) { return sum.groupColumn != group; });
        const auto level = wanted.first(static_cast<size_t>(other - wanted.begin()));
        const int number = levelOf(level.front(), firstCol);
        entries = LevelPass(rows, m_levels, number, level, firstCol).run(entries, numbers);
        wanted = wanted.subspan(level.size());
    }
    if (above)
        std::ranges::reverse(entries);
    rows.place(std::move(entries));
}

void GridSubtotals::clear(GridRows &rows)
{
    rows.removeSubtotals();
    m_levels.clear();
}

GridCellLook GridSubtotals::look(const GridRows &rows, int position, int col) const
{
    const int level = rows.subtotalLevel(rows.entries()[static_cast<size_t>(position)]);
    if (level < 0 || m_levels[static_cast<size_t>(level)].lookFrom > col)
        return {};
    return m_levels[static_cast<size_t>(level)].look;
}

} // namespace ebtq
