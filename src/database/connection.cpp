#include "database/connection.h"

#include "database/postgresql/postgres_connection.h"
#include "database/sqlite/sqlite_connection.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

std::unique_ptr<Connection> Connection::open(const QString &location, Missing missing)
{
    if (PostgresAddress::isUrl(location))
        return std::make_unique<PostgresConnection>(location);
    return std::make_unique<SqliteConnection>(location, missing);
}

QString Connection::shownLocation(const QString &location)
{
    if (!PostgresAddress::isUrl(location))
        return location;
    try {
        return PostgresAddress(location).shown();
    } catch (const DatabaseError &) {
        return u"postgresql://…"_s;
    }
}

} // namespace ebtq::db
