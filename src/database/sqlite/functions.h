#pragma once

struct sqlite3;

namespace ebtq::db {

/// Gives a connection the functions and the collation that the statements rendered for it call by name.
/// Throws DatabaseError when the engine refuses one.
void registerFunctions(sqlite3 *database);

} // namespace ebtq::db
