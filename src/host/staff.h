#pragma once

#include "database/connection.h"
#include "host/users.h"

#include <vector>

namespace ebtq::host {

/// The people who work in a database, for who administers it. Operations throw Failure for a name that is not
/// there or cannot be used, and db::DatabaseError.

/// Writes a user who is an employee too, in a department that is made when it is not there yet; empty for
/// none. Gives the user's id.
QString hire(db::Connection &connection, const QString &name, const QString &password,
             const QString &department, PasswordCost cost = PasswordCost::interactive());

struct Account
{
    QString id;
    QString name;
    QString department; ///< empty for none
    bool isActive = false;
    bool isAdministrator = false; ///< active, with every right on every module
};
/// In the order of their names.
[[nodiscard]] std::vector<Account> accounts(db::Connection &connection);
[[nodiscard]] Account accountNamed(db::Connection &connection, const QString &name);

/// Who has left keeps the records and cannot sign in any more. As the two below, refused when no
/// administrator would be left.
void setActive(db::Connection &connection, const QString &name, bool active);
/// A right of `rights` on a module; 0 for all modules.
void changeRights(db::Connection &connection, const QString &name, int moduleId,
                  const std::vector<int> &rights, bool allowed);
/// Makes the rights of a user those of another.
void copyRights(db::Connection &connection, const QString &from, const QString &to);

} // namespace ebtq::host
