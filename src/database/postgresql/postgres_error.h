#pragma once

#include "database/connection.h"

#include <QByteArray>

struct pg_conn;
struct pg_result;

namespace ebtq::db {

/// The server refused a statement and has changed nothing.
class ServerError : public DatabaseError
{
public:
    /// `state` is the server's five-character code.
    ServerError(const QByteArray &state, const QString &engineText);
    /// Whether tables are not as they were read.
    [[nodiscard]] bool isAboutTables() const;

private:
    QByteArray m_state;
};

/// The server went away while it was at work: what it was doing may be done or not.
class ConnectionLost : public DatabaseError
{
public:
    using DatabaseError::DatabaseError;
};

[[nodiscard]] ServerError serverError(const pg_result *result);

/// Why no connection came about, as a text for the user.
[[nodiscard]] QString connectFailureText(const pg_conn *connection, const QString &shownUrl);

} // namespace ebtq::db
