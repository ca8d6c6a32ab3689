#include "shell/start/recent_databases.h"

#include "database/connection.h"
#include "shell/sign_in.h"

namespace ebtq::shell {

namespace {

constexpr qsizetype mostDatabases = 8;
const QString recentKey = QStringLiteral("start/databases");

} // namespace

QStringList recentDatabases()
{
    return userSettings().value(recentKey).toStringList();
}

void rememberDatabase(const QString &location)
{
    const QString shown = db::Connection::shownLocation(location);
    QStringList databases = recentDatabases();
    databases.removeAll(shown);
    databases.prepend(shown);
    userSettings().setValue(recentKey, databases.mid(0, mostDatabases));
}

} // namespace ebtq::shell
