#pragma once

struct sqlite3;

namespace ebtq::db {

/// Registers the functions and the collation that rendered statements use. Throws DatabaseError when the
/// engine refuses one.
void registerFunctions(sqlite3 *database);

} // namespace ebtq::db
