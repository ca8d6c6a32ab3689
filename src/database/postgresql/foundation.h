#pragma once

#include <QByteArray>

namespace ebtq::db {

class PostgresConnection;

/// What the tables rest upon in the server: our schema, the extension for texts without case, and the
/// dialect's functions. The statements that make it or bring it up; empty when it is as this build wants it.
/// Throws DatabaseError, saying what to do, for a base that can never serve.
[[nodiscard]] QByteArray missingFoundation(PostgresConnection &connection);

/// The dialect's functions as definitions.
[[nodiscard]] const char *textFunctionsScript();
[[nodiscard]] const char *numberFunctionsScript();
[[nodiscard]] const char *dateFunctionsScript();

} // namespace ebtq::db
