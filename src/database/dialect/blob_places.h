#pragma once

#include "database/dialect/tree.h"

namespace ebtq::db {

/// Where the bytes of an item of a list lie.
struct BlobPlace
{
    const Source *source;
    const ColumnReference *column;
};

/// Empty for anything but a binary column of a table whose rows the database numbers, taken as it is by a
/// list whose rows are rows of tables.
[[nodiscard]] std::optional<BlobPlace> blobPlace(const Expression &item, const Select &list);

} // namespace ebtq::db
