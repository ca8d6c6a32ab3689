#pragma once

#include <QString>
#include <QStringList>

namespace ebtq::shell {

/// The databases that this user has worked in, the last one first; URLs without passwords.
[[nodiscard]] QStringList recentDatabases();
/// Puts a database first. Only the newest ones are kept.
void rememberDatabase(const QString &location);

} // namespace ebtq::shell
