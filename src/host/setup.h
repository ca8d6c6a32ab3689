#pragma once

#include "database/connection.h"
#include "database/schema/installer.h"

namespace ebtq::host {

/// Makes or upgrades the schema and writes what every database begins with: the modules and those system
/// parameters that have no value yet. Doing it again does nothing. Throws db::DatabaseError.
db::InstallReport prepareDatabase(db::Connection &connection, db::Foreign foreign = db::Foreign::IsRefused);

/// False too for a database without a schema.
[[nodiscard]] bool hasUsers(db::Connection &connection);

} // namespace ebtq::host
