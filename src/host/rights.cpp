#include "host/rights.h"

#include "host/module_ids.h"

namespace ebtq::host {

namespace {

SqlText ofUser(const QString &userId, int moduleId)
{
    return SqlText(QStringLiteral(" where userID='")) + typed(userId) +
           QStringLiteral("' and moduleID=%1").arg(moduleId);
}

} // namespace

ModuleRights::ModuleRights(db::Connection &connection, const QString &userId, int moduleId)
{
    // Every right is one to write.
    if (connection.isReadOnly())
        return;
    const RowBlock rows = connection.query(SqlText(QStringLiteral("select rightID from host_rights")) +
                                           ofUser(userId, moduleId) + QStringLiteral(" and allowed=1"));
    for (qsizetype row = 0; row < rows.rowCount(); ++row)
        m_allowed.insert(rows.value(row, 0).toInt());
}

void setRight(db::Connection &connection, const QString &userId, int moduleId, int right, bool allowed)
{
    db::Transaction transaction(connection);
    connection.execute(SqlText(QStringLiteral("delete from host_rights")) + ofUser(userId, moduleId) +
                       QStringLiteral(" and rightID=%1").arg(right));
    connection.execute(
        SqlText(QStringLiteral("insert into host_rights(userID,moduleID,rightID,allowed) values('")) +
        typed(userId) + QStringLiteral("',%1,%2,%3)").arg(moduleId).arg(right).arg(allowed ? 1 : 0));
    transaction.commit();
}

void grantAll(db::Connection &connection, const QString &userId)
{
    db::Transaction transaction(connection);
    for (const ModuleEntry &module : modules) {
        for (const int right : {RightNew, RightDelete, RightEdit})
            setRight(connection, userId, module.id, right, true);
    }
    transaction.commit();
}

} // namespace ebtq::host
