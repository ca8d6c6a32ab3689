#include "host/host_parameters.h"

namespace ebtq::host {

namespace {

SqlText whereKey(const QString &owner, int group, const QString &key)
{
    return SqlText(QStringLiteral(" where (userID='")) + typed(owner) +
           QStringLiteral("' or userID='') and groupID=%1 and keyText='").arg(group) + typed(key) +
           QStringLiteral("'");
}

} // namespace

QString parameterText(db::Connection &connection, const QString &owner, int group, const QVariant &key)
{
    // The empty owner sorts behind every other, so the user's own value comes first.
    const RowBlock rows =
        connection.query(SqlText(QStringLiteral("select valueText from host_parameters")) +
                         whereKey(owner, group, key.toString()) + QStringLiteral(" order by userID desc"));
    return rows.rowCount() == 0 ? QString() : rows.value(0, 0).toString();
}

void setParameter(db::Connection &connection, const QString &owner, int group, const QString &key,
                  const QString &value)
{
    db::Transaction transaction(connection);
    connection.execute(SqlText(QStringLiteral("delete from host_parameters")) + whereKey(owner, group, key) +
                       QStringLiteral(" and userID='") + typed(owner) + QStringLiteral("'"));
    connection.execute(
        SqlText(QStringLiteral("insert into host_parameters(userID,groupID,keyText,valueText) values('")) +
        typed(owner) + QStringLiteral("',%1,'").arg(group) + typed(key) + QStringLiteral("','") +
        typed(value) + QStringLiteral("')"));
    transaction.commit();
}

} // namespace ebtq::host
