#include "database/list_counts.h"

#include "database/utf8.h"

#include <algorithm>
#include <bit>
#include <charconv>

namespace ebtq::db {

CountsByKey::CountsByKey(const RowBlock &rows)
{
    const auto count = static_cast<size_t>(rows.rowCount());
    m_slots.resize(std::bit_ceil(2 * count + 2));
    m_entries.reserve(count);
    m_keys.reserve(rows.arena().size());
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        const std::string_view text = rows.cell(row, 1);
        qint64 number = 0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        if (rows.isNull(row, 0))
            continue;
        fold(rows.cell(row, 0));
        insert(number);
    }
}

qint64 CountsByKey::of(std::string_view key) const
{
    fold(key);
    const Slot slot = m_slots[find(std::hash<std::string_view>{}(m_folded))];
    return slot.entry == 0 ? 0 : m_entries[slot.entry - 1].count;
}

/// As the engines fold: one character for one.
void CountsByKey::fold(std::string_view key) const
{
    constexpr char mark = '\xFF'; // begins no character of UTF-8
    m_folded.clear();
    for (size_t at = 0; at < key.size();) {
        const char32_t c = foldedCharacter(takeCharacter(key, at));
        if (c < 0x80)
            m_folded += static_cast<char>(c);
        else
            m_folded.append(
                {mark, static_cast<char>(c), static_cast<char>(c >> 8), static_cast<char>(c >> 16)});
    }
}

void CountsByKey::insert(qint64 count)
{
    const size_t hash = std::hash<std::string_view>{}(m_folded);
    Slot &slot = m_slots[find(hash)];
    if (slot.entry != 0)
        return;
    m_entries.push_back({m_keys.size(), m_folded.size(), count});
    m_keys += m_folded;
    slot = {static_cast<quint32>(hash >> 32), static_cast<quint32>(m_entries.size())};
}

std::string_view CountsByKey::keyOf(const Entry &entry) const
{
    return std::string_view(m_keys).substr(entry.begin, entry.size);
}

size_t CountsByKey::find(size_t hash) const
{
    const size_t mask = m_slots.size() - 1;
    const auto tag = static_cast<quint32>(hash >> 32);
    size_t at = hash & mask;
    for (; m_slots[at].entry != 0; at = (at + 1) & mask) {
        if (m_slots[at].tag == tag && keyOf(m_entries[m_slots[at].entry - 1]) == m_folded)
            break;
    }
    return at;
}

ListCounts::ListCounts(const std::vector<CountStatement> &statements, const Read &read)
{
    for (const CountStatement &statement : statements) {
        const RowBlock rows = read(statement.sql, {{{}, ColumnType::Text}, {{}, ColumnType::Integer}});
        m_columns.push_back({static_cast<int>(statement.column), CountsByKey(rows)});
    }
}

const ListCounts::OfColumn *ListCounts::find(int column) const
{
    const auto found = std::ranges::find(m_columns, column, &OfColumn::column);
    return found == m_columns.end() ? nullptr : &*found;
}

void ListCounts::append(RowBlock &block, int column, std::optional<std::string_view> key) const
{
    block.appendInteger(key ? find(column)->counts.of(*key) : 0);
}

} // namespace ebtq::db
