#pragma once

#include <QByteArray>

namespace ebtq::db {

/// How an engine's language differs from the common SQL that the renderer writes. A new engine is a new value
/// of this structure.
struct Dialect
{
    /// For logs and tests, never shown to users.
    const char *name;

    /// Precedes the name of each function that the dialect defines: registered by the driver in SQLite, in a
    /// separate schema in PostgreSQL.
    const char *functionPrefix;

    /// Suffixes that make a text expression compare without regard to case; columns do so by their declared
    /// type and collation. A cast (PostgreSQL), then a collation, which also decides the order.
    const char *caselessType;
    const char *caselessCollation;

    /// Suffix of a column that compares it exactly, for an equality with a text that has no case: folding
    /// each row's text costs more than reading it. Empty where it does not: SQLite.
    const char *exactType;

    /// Suffix of a sorted term, so that Null sorts first ascending and last descending. Empty where that is
    /// the engine's default: SQLite.
    const char *ascendingSuffix;
    const char *descendingSuffix;

    /// Whether a text beside a case-insensitive one makes the comparison case-sensitive, so that both sides
    /// need a collation, and a grouped expression must be written identically wherever it appears:
    /// PostgreSQL.
    bool bothSidesNeedCollation;

    /// Before the quoted form of a date. Empty where dates are stored as text: SQLite.
    const char *datePrefix;

    /// The type name for a cast to floating point.
    const char *realType;

    /// Suffix of a literal with a fraction or 16 digits, which would otherwise be an arbitrary-precision
    /// decimal. Empty where it is floating point anyway: SQLite.
    const char *realSuffix;

    /// Whether integer overflow is an error. Then sums, products and averages are computed in floating point,
    /// which holds integers of 15 digits exactly. SQLite promotes on overflow.
    bool wholeNumbersOverflow;

    /// Suffix of a condition in brackets, to use it as 1 or 0. Empty where it is a number anyway: SQLite.
    const char *conditionSuffix;

    /// The function that gives the position of one text in another, counted in characters from 1,
    /// case-sensitive.
    const char *position;

    /// Whether the engine estimates from a like pattern how many rows contain a text, which it cannot from a
    /// function's result: it assumes a third of them, and reads all rows in sort order to find none.
    /// PostgreSQL; SQLite has no estimate for either.
    bool estimatesPatterns;

    /// Whether every expression needs a type before the statement runs: what is always Null is then written
    /// as NULL, which takes any type, instead of its operands: PostgreSQL.
    bool typesNull;

    /// Whether division by 0 is an error and must be guarded. SQLite gives Null.
    bool zeroDivisionFails;

    /// The function that joins its arguments as `&` does: Null as empty, numbers as texts of at most 15
    /// digits. In SQLite one call for all of them costs less than joining them two by two. Empty where there
    /// is none: then each operand is converted to text and joined by ||.
    const char *joinFunction;

    /// Whether a sub-select of several rows in place of a value is an error; the dialect takes the first row.
    bool refusesSeveralRows;

    /// The function that marks a condition as met by few rows. SQLite has no value distribution, assumes that
    /// a quarter of the rows meets any bound and then prefers to read all of them in sort order. Empty where
    /// the engine estimates better.
    const char *rareCondition;
    /// How many rows of a table are so few that searching an index for them and sorting them costs less than
    /// reading the table in its order: in front of the table's name, a bracket follows. Empty without a
    /// rareCondition.
    const char *fewRowsOf;

    /// In front of a column that is to be tested row by row and not searched for. SQLite takes the rows of
    /// any sub-select to be 25 and searches for each of them, also when it gives a whole table. Empty where
    /// the engine knows better.
    const char *testedByRow;

    /// Whether the counts of a filtered list are read by one statement, as those of a whole list are on every
    /// engine. Where one count is a cheap look-up, a short list is faster as written: SQLite.
    bool isFilteredListLong;
};

[[nodiscard]] const Dialect &sqliteDialect();
[[nodiscard]] const Dialect &postgresDialect();

} // namespace ebtq::db
