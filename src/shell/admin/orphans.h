#pragma once

#include "database/connection.h"

#include <QStringList>

namespace ebtq::admin {

/// Counts the rows that refer to a missing row, one line per relation that has any. Rows keep copies of names
/// and outlive what they name, so this is information and no damage. Throws db::DatabaseError.
[[nodiscard]] QStringList countOrphans(db::Connection &connection);

} // namespace ebtq::admin
