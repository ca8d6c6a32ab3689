#pragma once

#include "database/connection.h"

#include <memory>

namespace ebtq::shell {

/// A copy of the database in that folder: a tour writes as a person would, and nobody's listings may change
/// by being shown. Throws Failure for a database that is no local file.
[[nodiscard]] std::unique_ptr<db::Connection> openTourDatabase(db::Connection &database,
                                                               const QString &folder);

} // namespace ebtq::shell
