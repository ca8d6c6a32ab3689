#pragma once

#include "database/connection.h"
#include "database/schema/identity.h"
#include "host/start/district_lines.h"
#include "host/start/standard_lists.h"
#include "host/users.h"

namespace ebtq::host {

/// What an agency begins with.
struct NewAgency
{
    QString name;       ///< may be empty
    QString department; ///< the first one, of which the administrator is a member
    QString administrator;
    QString password;
    Districts districts;
    StandardLists lists;
};

/// Throws Failure for a name or a password that cannot be used.
void requireAgency(const NewAgency &agency);
/// Makes the schema if it is missing and writes the agency into it: the administrator, who is an employee and
/// has every right, the department, districts and lists. All or nothing. Throws Failure when the database has
/// users already, and db::DatabaseError.
void createAgency(db::Connection &connection, const NewAgency &agency,
                  db::Foreign foreign = db::Foreign::IsRefused,
                  PasswordCost cost = PasswordCost::interactive());

/// Empty when none was given.
[[nodiscard]] QString agencyName(db::Connection &connection);

/// How hard a password is to guess, to be shown while it is typed.
enum class Strength : quint8 { TooShort, Weak, Fair, Strong };
[[nodiscard]] Strength strengthOf(const QString &password);

} // namespace ebtq::host
