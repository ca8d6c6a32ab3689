#pragma once

#include <QString>

struct sqlite3;

namespace ebtq::db {

/// The last failure of a connection as a text for the user: what happened and what can be done, followed
/// by the engine's own text.
[[nodiscard]] QString sqliteErrorText(sqlite3 *handle);

} // namespace ebtq::db
