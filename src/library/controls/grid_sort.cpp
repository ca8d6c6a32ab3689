#include "library/controls/grid_sort.h"

#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace ebtq {

namespace {

using Entry = GridRows::Entry;

double dateNumber(std::string_view cell)
{
    const auto date = parseDate(QString::fromUtf8(cell.data(), static_cast<qsizetype>(cell.size())));
    return date ? static_cast<double>(date->toMSecsSinceEpoch()) : -std::numeric_limits<double>::infinity();
}

std::string withoutCase(std::string_view cell)
{
    return QString::fromUtf8(cell.data(), static_cast<qsizetype>(cell.size())).toCaseFolded().toStdString();
}

/// `key` is taken of each cell once.
template<class Key> void sortBy(GridRows &rows, int col, bool descending, Key key)
{
    const std::vector<Entry> &entries = rows.entries();
    std::vector<decltype(key(std::string_view()))> keys;
    keys.reserve(entries.size());
    for (const Entry entry : entries)
        keys.push_back(key(rows.cellOf(entry, col)));
    std::vector<size_t> order(entries.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::ranges::stable_sort(order, [&](size_t left, size_t right) {
        return descending ? keys[right] < keys[left] : keys[left] < keys[right];
    });
    std::vector<Entry> sorted;
    sorted.reserve(entries.size());
    for (const size_t at : order)
        sorted.push_back(entries[at]);
    rows.place(std::move(sorted));
}

void sortGenerically(GridRows &rows, int col, ColumnType type, bool descending)
{
    if (type == ColumnType::Integer || type == ColumnType::Number)
        sortBy(rows, col, descending, [](std::string_view cell) { return leadingNumber(cell); });
    else if (type == ColumnType::Date)
        sortBy(rows, col, descending, dateNumber);
    else
        sortBy(rows, col, descending, withoutCase);
}

} // namespace

void sortRows(GridRows &rows, int col, ColumnType type, GridSort sort)
{
    switch (sort) {
    case GridSort::GenericAscending:
    case GridSort::GenericDescending:
        return sortGenerically(rows, col, type, sort == GridSort::GenericDescending);
    case GridSort::NumericAscending:
    case GridSort::NumericDescending:
        return sortBy(rows, col, sort == GridSort::NumericDescending,
                      [](std::string_view cell) { return leadingNumber(cell); });
    case GridSort::StringNoCaseAscending:
    case GridSort::StringNoCaseDescending:
        return sortBy(rows, col, sort == GridSort::StringNoCaseDescending, withoutCase);
    case GridSort::StringAscending:
    case GridSort::StringDescending:
        return sortBy(rows, col, sort == GridSort::StringDescending,
                      [](std::string_view cell) { return cell; });
    case GridSort::None:
        break;
    }
}

} // namespace ebtq
