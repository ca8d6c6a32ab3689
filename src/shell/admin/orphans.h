#pragma once

#include "database/connection.h"

#include <QStringList>

namespace ebtq::admin {

/// How many rows name another row that is not there, a line for each relation that has any. Rows are copies
/// of names and outlive what they name, so this is worth knowing and no damage. Throws db::DatabaseError.
[[nodiscard]] QStringList countOrphans(db::Connection &connection);

} // namespace ebtq::admin
