#pragma once

#include "database/connection.h"

#include <QString>
#include <QVariant>

namespace ebtq::host {

/// Stored values by owner, group and key. The owner is a user's id, or empty for the system's own.

/// A value; the empty string when there is none. A user without a value of their own has the system's. Keys
/// that are numbers and keys that are texts stand side by side: 7 and "7" are the same key. Throws
/// db::DatabaseError.
[[nodiscard]] QString parameterText(db::Connection &connection, const QString &owner, int group,
                                    const QVariant &key);
void setParameter(db::Connection &connection, const QString &owner, int group, const QString &key,
                  const QString &value);

} // namespace ebtq::host
