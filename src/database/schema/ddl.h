#pragma once

#include "database/schema/tables.h"

#include <QByteArray>

namespace ebtq::db {

/// Definitions in an engine's own language, from the tables' data.
struct DdlWords
{
    const char *text;    ///< a text column that compares without regard to case
    const char *integer; ///< 64 bits
    const char *number;  ///< floating point
    const char *date;    ///< date with time
    const char *binary;  ///< bytes
    const char *autoKey; ///< type and key of a column that numbers itself
    bool checkTypes;     ///< SQLite takes any value in any column unless it is told to look
};

[[nodiscard]] const DdlWords &sqliteWords();

[[nodiscard]] QByteArray createTable(const TableDefinition &table, const DdlWords &words);
[[nodiscard]] QByteArray addColumn(const TableDefinition &table, const ColumnDefinition &column,
                                   const DdlWords &words);
[[nodiscard]] QByteArray createIndex(const TableDefinition &table, const IndexDefinition &index);

} // namespace ebtq::db
