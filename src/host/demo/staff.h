#pragma once

#include "database/connection.h"
#include "host/demo/random.h"
#include "host/users.h"

#include <vector>

namespace ebtq::host {

/// An employee with a user account; both have the same name.
struct Agent
{
    int employeeId;
    QString userId;
    QString name;
};

/// Writes departments, employees, users with their departments and rights; gives the agents. The first one is
/// the manager "演示".
[[nodiscard]] std::vector<Agent> writeStaff(db::Connection &connection, Random &random, PasswordCost cost);

/// An invented person's name.
[[nodiscard]] QString personName(Random &random);
/// A family name with 先生 or 女士.
[[nodiscard]] QString politeName(Random &random);
/// A number with its middle left out, as agents show them.
[[nodiscard]] QString maskedPhone(Random &random);

} // namespace ebtq::host
