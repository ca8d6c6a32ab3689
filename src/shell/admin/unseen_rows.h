#pragma once

#include "database/connection.h"

#include <QStringList>

namespace ebtq::admin {

/// Names the rows of the dictionaries that their trees cannot show: districts without the one above them,
/// buildings whose district is unknown, and all but one of those with the same number or code. A line for
/// each, of many the first ones. Throws db::DatabaseError.
[[nodiscard]] QStringList namesOfUnseenRows(db::Connection &connection);

} // namespace ebtq::admin
