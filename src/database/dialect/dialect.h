#pragma once

#include <QByteArray>

namespace ebtq::db {

/// How an engine's language differs from the common ground that the renderer writes. A new engine is a new
/// value of this structure.
struct Dialect
{
    /// Shown to nobody; for logs and tests.
    const char *name;

    /// Stands before the name of each function that the dialect brings with it: registered by the driver in
    /// SQLite, in a schema of their own in PostgreSQL.
    const char *functionPrefix;

    /// What makes a text expression compare without regard to case where no column says so, as columns do by
    /// their own type and collation: a type behind (PostgreSQL), then a collation, which gives the order as
    /// well.
    const char *caselessType;
    const char *caselessCollation;

    /// Behind a sorted term, so that Null comes first upwards and last downwards. Empty where the engine does
    /// so by itself, as SQLite does.
    const char *ascendingSuffix;
    const char *descendingSuffix;

    /// Whether a text beside a case-insensitive one makes the comparison case-sensitive, so that both sides
    /// need a collation, and a grouped expression has to stand alike wherever it is written:
    /// PostgreSQL.
    bool bothSidesNeedCollation;

    /// Before the quoted form of a date. Empty where dates are stored as text: SQLite.
    const char *datePrefix;

    /// The type name for a cast to a number with a fraction.
    const char *realType;

    /// Behind a number that has a fraction or 16 digits, where it would otherwise be counted in decimals
    /// without end. Empty where it is a floating-point number anyway: SQLite.
    const char *realSuffix;

    /// Whether integer overflow is an error. Then sums, products and averages are computed in floating point,
    /// which holds integers of 15 digits exactly. SQLite promotes on overflow.
    bool wholeNumbersOverflow;

    /// Behind a condition in brackets, to count it as 1 or 0. Empty where it is a number anyway: SQLite.
    const char *conditionSuffix;

    /// The function that gives the place of one text in another, characters counted from 1, case regarded.
    const char *position;

    /// Whether everything has a type before the statement is run: what is always Null is then written as
    /// NULL, which takes any type, and not as what it is made of: PostgreSQL.
    bool typesNull;

    /// Whether division by 0 is an error that has to be kept from happening. SQLite gives Null by itself.
    bool zeroDivisionFails;

    /// The function that joins its arguments as `&` does: Null as empty, numbers as texts of at most 15
    /// digits. In SQLite one call for all of them costs less than joining them two by two. Empty where there
    /// is none: then each operand is turned into a text and they are joined by ||.
    const char *joinFunction;

    /// Whether a sub-select of several rows in place of a value is an error; the dialect takes the first row.
    bool refusesSeveralRows;

    /// The function that says of a condition that few rows meet it and is the condition otherwise. SQLite,
    /// which knows nothing of how values are spread, takes one of four rows to meet any bound and then rather
    /// reads all of them in the wanted order. Empty where the engine knows better.
    const char *rareCondition;

    /// Whether the counts of a filtered list are read for all of its rows at once, as those of a whole list
    /// are on every engine. Where looking for one count costs little, a short list waits less as it is
    /// written: SQLite.
    bool isFilteredListLong;
};

[[nodiscard]] const Dialect &sqliteDialect();
[[nodiscard]] const Dialect &postgresDialect();

} // namespace ebtq::db
