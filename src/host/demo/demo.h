#pragma once

#include "database/connection.h"
#include "host/users.h"

#include <QDate>

#include <functional>

namespace ebtq::host {

struct DemoOptions
{
    int listings = 2400;
    int customers = 600;
    int followUps = 3000;
    quint64 seed = 1;
    QDate today = QDate::currentDate(); ///< nothing was made later; listings go back 18 months from here
    PasswordCost passwordCost = PasswordCost::interactive();
};

/// What is being written, how many of how many rows.
using DemoProgress = std::function<void(const QString &what, int done, int total)>;

/// Fills a database with an invented agency: districts, buildings, dictionaries, staff, listings, customers,
/// follow-ups and a few attachments. The same options give the same rows, but for the salt of the passwords'
/// one hash. The user "演示" has every right; all users have the password "demo". One transaction: all or
/// nothing. Throws Failure when the database holds data already, and db::DatabaseError.
void writeDemo(db::Connection &connection, const DemoOptions &options, const DemoProgress &progress = {});

} // namespace ebtq::host
