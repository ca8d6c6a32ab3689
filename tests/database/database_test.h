#pragma once

#include "database/connection.h"
#include "support/messages.h"

#include <gmock/gmock.h>

/// What the tests of databases say most often.
namespace ebtq::db {

using ebtq::test::joined;
using ebtq::test::messageOf;
using ::testing::HasSubstr;
using ::testing::Not;

/// The engine's plan for a statement in its own language, after its word for it.
inline std::string planOf(Connection &connection, const QByteArray &explain, const QByteArray &statement)
{
    const RowBlock rows = connection.queryNative(explain + ' ' + statement);
    std::string text;
    for (qsizetype row = 0; row < rows.rowCount(); ++row)
        text += std::string(rows.cell(row, rows.columnCount() - 1)) + '\n';
    return text;
}

} // namespace ebtq::db
