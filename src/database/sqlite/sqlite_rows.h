#pragma once

#include "database/dialect/statement_shape.h"
#include "database/list_counts.h"

#include <functional>

struct sqlite3;
struct sqlite3_stmt;

namespace ebtq::db {

/// Steps a statement to its end into one block, with counts replacing their keys; throws DatabaseError when
/// a step fails.
[[nodiscard]] RowBlock readRows(sqlite3 *handle, sqlite3_stmt *statement, std::vector<Column> columns,
                                const ListCounts &counts = {});

/// Steps a statement to its end into blocks of a few megabytes, with the stored values, for
/// Connection::readTable; throws DatabaseError when a step fails.
void readStoredRows(sqlite3 *handle, sqlite3_stmt *statement, const std::vector<Column> &columns,
                    const std::function<void(const RowBlock &block)> &take);

/// Binds the cells of one row to the statement's parameters, by the columns' types. The texts must outlive
/// the next step.
void bindRow(sqlite3_stmt *statement, const RowBlock &rows, qsizetype row);

/// Binds the values that were cut out of a statement.
void bindValues(sqlite3_stmt *statement, const std::vector<StatementShape::Value> &values);

} // namespace ebtq::db
