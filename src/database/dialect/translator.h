#pragma once

#include "database/dialect/catalog.h"
#include "database/values/sql_text.h"

#include <QByteArray>

#include <functional>
#include <stdexcept>
#include <vector>

namespace ebtq::db {

struct Dialect;

/// A statement that is refused: where in its text (UTF-16 units from 0) and why, in Chinese, to be shown.
class DialectError : public std::runtime_error
{
public:
    DialectError(qsizetype position, const QString &message)
        : std::runtime_error(message.toStdString())
        , m_position(position)
    {}
    [[nodiscard]] qsizetype position() const { return m_position; }
    [[nodiscard]] QString message() const { return QString::fromUtf8(what()); }

private:
    qsizetype m_position;
};

enum class StatementKind : quint8 { Select, Insert, Update, Delete };

/// A count that is read for all rows of a list at once; as a sub-select the engine would run it for each row.
struct CountStatement
{
    size_t column;  ///< of the list, which holds the key instead of the count
    QByteArray sql; ///< returns keys with their counts; a missing key counts 0
};

/// Another plan of a select, better if few rows meet one of its bounds. The engine knows the number of rows,
/// not how values are spread.
struct PlanByBound
{
    QByteArray count; ///< returns how many rows meet the bound, at most a few, and how many are a few
    QByteArray sql;   ///< the same select
};

/// What the count of a plan returned.
struct CountWithin
{
    qint64 rows;
    qint64 fewRows;
};

/// A statement in the engine's own language.
struct Translation
{
    QByteArray sql; ///< UTF-8
    StatementKind kind = StatementKind::Select;
    std::vector<Column> columns; ///< of the result, in order; empty but for a select
    std::vector<CountStatement> counts;
    std::vector<PlanByBound> plansByBound;

    /// The plan by the bound that the fewest rows meet, if these are few, else `sql`. `run` runs the count of
    /// a plan.
    [[nodiscard]] const QByteArray &
    bestSql(const std::function<CountWithin(const QByteArray &count)> &run) const;
};

/// Reads one statement of the dialect and writes it for an engine. Throws DialectError for what the dialect
/// does not have, for an unknown table or column, and for a typed span that does not lie inside one literal.
[[nodiscard]] Translation translate(const SqlText &statement, const Dialect &dialect, const Catalog &catalog);

} // namespace ebtq::db
