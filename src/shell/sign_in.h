#pragma once

#include "database/connection.h"
#include "host/users.h"
#include "shell/options.h"

#include <QSettings>
#include <QString>

#include <memory>
#include <optional>

namespace ebtq::shell {

/// The folder of the user's own data, with the database that is used when none is named.
[[nodiscard]] QString dataFolder();
/// What the program remembers for the user, in that folder.
[[nodiscard]] QSettings userSettings();

/// The file that is used when none is named.
[[nodiscard]] QString defaultDatabase();
/// True for a URL too: whether a server is there shows when it is connected to.
[[nodiscard]] bool isThere(const QString &location);
/// The name that the next sign-in proposes.
void rememberUser(const QString &name);

/// Opens the database `named` by the user, or the one in the data folder. Throws an exception with a text for
/// the user that says what to do when there is none yet.
[[nodiscard]] std::unique_ptr<db::Connection> openDatabase(const QString &named);
/// The database's kind and location, as the window shows them.
[[nodiscard]] QString databasePlace(const db::Connection &connection);

/// A script gives the password: nobody can be asked.
[[nodiscard]] bool hasPassword();
struct SignInAnswer
{
    std::optional<host::User> user; ///< nobody when it was cancelled
    bool wantsOtherDatabase = false;
};

/// Signs in without asking when the environment has a password, as scripts do, and removes it there; else
/// with the dialog. Throws an exception with a text for the user when the password of the environment is
/// wrong or missing for a tour, where nobody can be asked.
[[nodiscard]] SignInAnswer signInUser(db::Connection &connection, const Options &options);

} // namespace ebtq::shell
