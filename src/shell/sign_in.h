#pragma once

#include "database/connection.h"
#include "host/users.h"
#include "shell/options.h"

#include <QString>

#include <memory>
#include <optional>

namespace ebtq::shell {

/// The folder of the user's own data, with the database that is used when none is named.
[[nodiscard]] QString dataFolder();

/// Opens the database `named` by the user, or the one in the data folder. Throws an exception with a text for
/// the user that says what to do when there is none yet.
[[nodiscard]] std::unique_ptr<db::Connection> openDatabase(const QString &named);
/// The database's kind and location, as the window shows them.
[[nodiscard]] QString databasePlace(const db::Connection &connection);

/// Signs in without asking when the environment has a password, as scripts do, and removes it there; else
/// with the dialog; std::nullopt when that is cancelled. Throws an exception with a text for the user when
/// the password of the environment is wrong or missing for a tour, where nobody can be asked.
[[nodiscard]] std::optional<host::User> signInUser(db::Connection &connection, const Options &options);

} // namespace ebtq::shell
