#include "host/rights.h"

#include "host/module_ids.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

SqlText ofUser(const QString &userId, int moduleId)
{
    return SqlText(u" where userID='"_s) + typed(userId) + u"' and moduleID=%1"_s.arg(moduleId);
}

} // namespace

ModuleRights::ModuleRights(db::Connection &connection, const QString &userId, int moduleId)
{
    // Every right is one to write.
    if (connection.isReadOnly())
        return;
    const RowBlock rows = connection.query(SqlText(u"select rightID from host_rights"_s) +
                                           ofUser(userId, moduleId) + u" and allowed=1"_s);
    for (qsizetype row = 0; row < rows.rowCount(); ++row)
        m_allowed.insert(rows.value(row, 0).toInt());
}

void setRight(db::Connection &connection, const QString &userId, int moduleId, int right, bool allowed)
{
    db::Transaction transaction(connection);
    connection.execute(SqlText(u"delete from host_rights"_s) + ofUser(userId, moduleId) +
                       u" and rightID=%1"_s.arg(right));
    connection.execute(SqlText(u"insert into host_rights(userID,moduleID,rightID,allowed) values('"_s) +
                       typed(userId) + u"',%1,%2,%3)"_s.arg(moduleId).arg(right).arg(allowed ? 1 : 0));
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
