#pragma once

#include "database/connection.h"
#include "shell/options.h"

#include <memory>

namespace ebtq::shell {

/// Opens the database that was named or used last; without one, or when it cannot be opened, the person is
/// asked. nullptr when that is cancelled. Throws an exception with a text for the user when nobody can be
/// asked, and for a database that was named on the command line and cannot be upgraded.
[[nodiscard]] std::unique_ptr<db::Connection> chooseDatabase(const Options &options);
/// Asks for another one; nullptr when that is cancelled.
[[nodiscard]] std::unique_ptr<db::Connection> askForDatabase();

} // namespace ebtq::shell
