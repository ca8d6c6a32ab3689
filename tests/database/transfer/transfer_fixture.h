#pragma once

#include "database/connection.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace ebtq::db {

/// A folder with "a.db": the sample agency and rows that are hard to carry over.
class TransferTest : public ::testing::Test
{
protected:
    TransferTest();
    [[nodiscard]] QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    [[nodiscard]] static std::unique_ptr<Connection> make(const QString &location)
    {
        return Connection::open(location, Connection::Missing::IsCreated);
    }
    [[nodiscard]] QStringList names() const;

private:
    QTemporaryDir m_folder;
};

/// All that the embedded engine holds, in its own literals: independent of how a copy reads values.
[[nodiscard]] std::string literals(Connection &connection);
[[nodiscard]] int countOf(Connection &connection, const char *table);
/// The message of the DatabaseError that `run` throws, which must be Chinese; empty when it throws none.
[[nodiscard]] std::string refusal(const std::function<void()> &run);

} // namespace ebtq::db
