#pragma once

#include "database/dialect/tree.h"

#include <optional>

namespace ebtq::db {

/// A count that a list takes for each of its rows from another table:
/// (select count(x) from other where … and other.key=list.key).
struct KeyedCount
{
    const Select *select;
    const Expression *key;                      ///< of the other table
    const Expression *listKey;                  ///< what it is compared with
    std::vector<const Expression *> conditions; ///< the others, on the other table alone
};

/// What `item` counts for the rows of `list`. Empty for any other expression, and for a list that is expected
/// to be short: one of a single key, with a top, or with any filter unless `isFilteredLong`. There
/// the engine finds the few rows to count by their index.
[[nodiscard]] std::optional<KeyedCount> keyedCount(const Expression &item, const Select &list,
                                                   bool isFilteredLong);

} // namespace ebtq::db
