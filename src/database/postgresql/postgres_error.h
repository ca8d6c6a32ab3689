#pragma once

#include "database/connection.h"

#include <QByteArray>

struct pg_conn;
struct pg_result;

namespace ebtq::db {

/// The server refused a statement, which changed nothing.
class ServerError : public DatabaseError
{
public:
    /// `state` is the server's five-character code.
    ServerError(const QByteArray &state, const QString &engineText);
    /// Whether the tables differ from the catalog.
    [[nodiscard]] bool isAboutTables() const;

private:
    QByteArray m_state;
};

/// The connection was lost during a statement: its outcome is unknown.
class ConnectionLost : public DatabaseError
{
public:
    using DatabaseError::DatabaseError;
};

[[nodiscard]] ServerError serverError(const pg_result *result);

/// Why connecting failed, as a text for the user.
[[nodiscard]] QString connectFailureText(const pg_conn *connection, const QString &shownUrl);

} // namespace ebtq::db
