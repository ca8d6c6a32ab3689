#pragma once

#include "database/list_counts.h"

#include <QByteArray>

struct pg_result;

namespace ebtq::db {

/// Appends the rows of a result in text format to a block that has its columns, with counts replacing their
/// keys.
void appendRows(RowBlock &block, const pg_result *rows, const ListCounts &counts = {});

/// The same with the stored values, for Connection::readTable.
void appendStoredRows(RowBlock &block, const pg_result *rows);

/// A block in the server's copy format. Dates that parse are written in stored form.
[[nodiscard]] QByteArray copyText(const RowBlock &rows);

} // namespace ebtq::db
