#pragma once

#include "database/values/row_block.h"

#include <QString>
#include <QStringList>

#include <array>

namespace ebtq::db {

class Connection;

/// What a table holds, as a number of rows and a checksum that is the same on every engine.
///
/// The rule. Each row is hashed (BLAKE2b, 256 bits) over its cells in the order of the columns: the number of
/// bytes as 8 bytes, lowest first, then the bytes; all ones in place of the number for Null. A number counts
/// as its shortest exact text, a date as "YYYY-MM-DD[ HH:MM:SS]" without a time at midnight, a text as UTF-8,
/// a binary content as it is. The rows' hashes are added up as four numbers of 64 bits each. So the order of
/// the rows has no say, which the engines would make differently for texts, and no table need be sorted;
/// still any changed value, lost or doubled row, or values swapped between two rows changes the sum.
class TableDigest
{
public:
    /// Adds the rows of a block as readTable gives it.
    void add(const RowBlock &block);

    [[nodiscard]] qint64 rowCount() const { return m_rows; }
    /// The sum as 64 hexadecimal digits.
    [[nodiscard]] QString checksum() const;
    [[nodiscard]] bool operator==(const TableDigest &other) const = default;

private:
    qint64 m_rows = 0;
    std::array<quint64, 4> m_sum{};
};

/// Throws DatabaseError.
[[nodiscard]] TableDigest digestOf(Connection &connection, const QString &table, const QStringList &columns);

} // namespace ebtq::db
