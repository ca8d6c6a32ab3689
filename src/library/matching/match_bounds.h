#pragma once

#include "database/values/sql_text.h"
#include "library/lists/record_detail.h"

#include <span>

namespace ebtq {

/// A condition of a search from one record to those that match.
struct MatchBound
{
    QStringView column; ///< of the record, with the number
    QStringView clause; ///< up to the number
};

/// Adds a condition for each number that the record has: 0 and less limit nothing.
void addBounds(SqlText &sql, const DetailRecord &record, std::span<const MatchBound> bounds);

/// The number of `table`'s rows that match the row A of the statement around it, as a sub-select.
[[nodiscard]] SqlText matchCount(QStringView table, std::span<const MatchBound> bounds);

} // namespace ebtq
