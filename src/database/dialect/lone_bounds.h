#pragma once

#include "database/dialect/tree.h"

namespace ebtq::db {

/// The conditions that compare an indexed number of the first table with a number, in a select that has no
/// other condition by which an index could be searched: no equality, and no column with a bound on either
/// side. Whether few rows meet them cannot be told from the statement.
[[nodiscard]] std::vector<const Expression *> loneBounds(const Select &select);

} // namespace ebtq::db
