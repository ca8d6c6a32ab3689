#pragma once

#include "database/dialect/translator.h"
#include "database/values/row_block.h"

#include <functional>
#include <optional>
#include <string>

namespace ebtq::db {

/// The counts of one column by key, compared without regard to case. A hash table with 8 bytes a slot rejects
/// most missing keys at once: in a long list each further access would be a cache miss.
class CountsByKey
{
public:
    /// Takes the rows of a CountStatement.
    explicit CountsByKey(const RowBlock &rows);
    [[nodiscard]] qint64 of(std::string_view key) const;

private:
    struct Slot
    {
        quint32 tag = 0;
        quint32 entry = 0; ///< number of the entry from 1; 0 for an empty slot
    };
    struct Entry
    {
        size_t begin; ///< of the folded key in m_keys
        size_t size;
        qint64 count;
    };
    void fold(std::string_view key) const;
    void insert(qint64 count);
    [[nodiscard]] std::string_view keyOf(const Entry &entry) const;
    /// The slot of the folded key, or the empty one where it would stand.
    [[nodiscard]] size_t find(size_t hash) const;

    std::vector<Slot> m_slots; ///< a power of two, at most half of them taken
    std::vector<Entry> m_entries;
    std::string m_keys;
    mutable std::string m_folded; ///< the current key
};

/// The counts of a list that were read for all of its rows at once.
class ListCounts
{
public:
    /// Reads a statement in the engine's own language.
    using Read = std::function<RowBlock(const QByteArray &sql, std::vector<Column> columns)>;

    ListCounts() = default;
    ListCounts(const std::vector<CountStatement> &statements, const Read &read);

    /// Whether this column of the list holds a key.
    [[nodiscard]] bool has(int column) const { return find(column) != nullptr; }
    /// Appends the count for a key; 0 for Null.
    void append(RowBlock &block, int column, std::optional<std::string_view> key) const;

private:
    struct OfColumn
    {
        int column;
        CountsByKey counts;
    };
    [[nodiscard]] const OfColumn *find(int column) const;

    std::vector<OfColumn> m_columns;
};

} // namespace ebtq::db
