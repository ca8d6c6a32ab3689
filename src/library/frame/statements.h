#pragma once

#include "contracts/host_contracts.h"

#include <QVariant>

#include <memory>

namespace ebtq {

/// A statement that the database refused or could not finish, with the database's own words.
class StatementFailure : public Failure
{
    using Failure::Failure;
};

/// All statements of the library run through these three, which throw StatementFailure when the database
/// reports an error.
[[nodiscard]] std::unique_ptr<Recordset> openRows(HostDb &db, const SqlText &sql);
/// The query that was run, which knows how many rows it changed.
std::unique_ptr<HostQuery> executeStatement(HostDb &db, const SqlText &sql);
/// The first column of the first row; invalid without a row.
[[nodiscard]] QVariant singleValue(HostDb &db, const SqlText &sql);

/// A value as a text literal of a statement.
[[nodiscard]] inline SqlText quoted(const QString &value)
{
    return SqlText(QStringLiteral("'")) + typed(value) + QStringLiteral("'");
}

[[nodiscard]] inline bool isEmpty(const Recordset &rows)
{
    return rows.Bof() && rows.Eof();
}

} // namespace ebtq
