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

    /// Behind an indexed column, so that an index gives the dialect's order, Null first; and for one
    /// downwards.
    const char *ascending;
    const char *descending;

    /// Before the columns of a hashed index; empty where there are none.
    const char *hashed;

    /// Behind a table with a binary column, %1 and %2 as below: contents are compressed before they come, and
    /// a server reads a piece of what it has not compressed without the rest. Empty: nothing.
    const char *binaryStorage;

    /// What guards a column that numbers itself; %1 is the table, %2 the column. Empty: nothing.
    const char *autoKeyGuard;

    /// A row when there is an index of the name %1; a row for each damage, in words, or "ok".
    const char *findIndex;
    const char *findDamage;
    /// The number in a file's header, and what writes %1 there. Empty: a server's schema has a name.
    const char *readMark;
    const char *writeMark;
    /// Names of all tables and indexes, and what reads the first row of table %1 or of its index %2. Empty: a
    /// server looks after its files.
    const char *listTrees;
    const char *lookAtTable;
    const char *lookAtIndex;
    /// Kind and name of all triggers and views.
    const char *findRoutines;
};

[[nodiscard]] const DdlWords &sqliteWords();
[[nodiscard]] const DdlWords &postgresWords();

[[nodiscard]] QByteArray createTable(const TableDefinition &table, const DdlWords &words);
[[nodiscard]] QByteArray addColumn(const TableDefinition &table, const ColumnDefinition &column,
                                   const DdlWords &words);
/// Empty for an index that the engine does without.
[[nodiscard]] QByteArray createIndex(const TableDefinition &table, const IndexDefinition &index,
                                     const DdlWords &words);

} // namespace ebtq::db
