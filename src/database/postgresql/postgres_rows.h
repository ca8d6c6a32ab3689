#pragma once

#include "database/list_counts.h"

#include <QByteArray>

struct pg_result;

namespace ebtq::db {

/// Appends the rows of a result, which came as text, to a block that has its columns, with counts in place of
/// their keys.
void appendRows(RowBlock &block, const pg_result *rows, const ListCounts &counts = {});

/// Likewise, with the values as they are stored, for Connection::readTable.
void appendStoredRows(RowBlock &block, const pg_result *rows);

/// A block in the form in which the server copies rows in. Dates that read as such are written as stored
/// ones.
[[nodiscard]] QByteArray copyText(const RowBlock &rows);

} // namespace ebtq::db
