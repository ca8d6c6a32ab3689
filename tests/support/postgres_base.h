#pragma once

#include "database/connection.h"

#include <QString>

namespace ebtq::test {

/// The URL, password and all, of the server that the tests' fixture has started.
[[nodiscard]] QString postgresServer();

/// An empty base of its own on that server, dropped at the end.
class PostgresBase
{
public:
    PostgresBase();
    PostgresBase(const PostgresBase &) = delete;
    PostgresBase &operator=(const PostgresBase &) = delete;
    ~PostgresBase();
    [[nodiscard]] QString url() const;

private:
    QString m_name;
};

/// The URL of another base on the same server.
[[nodiscard]] QString withBase(const QString &url, const QString &base);

} // namespace ebtq::test
