#pragma once

#include <QByteArray>

namespace ebtq::db {

class PostgresConnection;

/// What the tables depend on in the server: our schema, the extension for case-insensitive text and the
/// dialect's functions. The statements that create or upgrade it; empty when it matches this build. Throws
/// DatabaseError with what to do for a database that is unsuitable.
[[nodiscard]] QByteArray missingFoundation(PostgresConnection &connection);

/// The definitions of the dialect's functions.
[[nodiscard]] const char *textFunctionsScript();
[[nodiscard]] const char *numberFunctionsScript();
[[nodiscard]] const char *dateFunctionsScript();

} // namespace ebtq::db
