#include "host/host_parameters.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

SqlText whereKey(const QString &owner, int group, const QString &key)
{
    return SqlText(u" where (userID='"_s) + typed(owner) +
           u"' or userID='') and groupID=%1 and keyText='"_s.arg(group) + typed(key) + u"'"_s;
}

} // namespace

QString parameterText(db::Connection &connection, const QString &owner, int group, const QVariant &key)
{
    // The empty owner sorts behind every other, so the user's own value comes first.
    const RowBlock rows =
        connection.query(SqlText(u"select valueText from host_parameters"_s) +
                         whereKey(owner, group, key.toString()) + u" order by userID desc"_s);
    return rows.rowCount() == 0 ? QString() : rows.value(0, 0).toString();
}

void setParameter(db::Connection &connection, const QString &owner, int group, const QString &key,
                  const QString &value)
{
    db::Transaction transaction(connection);
    connection.execute(SqlText(u"delete from host_parameters"_s) + whereKey(owner, group, key) +
                       u" and userID='"_s + typed(owner) + u"'"_s);
    connection.execute(SqlText(u"insert into host_parameters(userID,groupID,keyText,valueText) values('"_s) +
                       typed(owner) + u"',%1,'"_s.arg(group) + typed(key) + u"','"_s + typed(value) +
                       u"')"_s);
    transaction.commit();
}

} // namespace ebtq::host
