#pragma once

#include "contracts/host_contracts.h"
#include "database/connection.h"

#include <QSet>

namespace ebtq::host {

/// A user's rights on one module, as they were when they were read.
class ModuleRights : public HostRights
{
public:
    /// A right is granted by a row that says so and by nothing else: without a row it is refused. In a
    /// database that cannot be written all are. Throws db::DatabaseError.
    ModuleRights(db::Connection &connection, const QString &userId, int moduleId);
    [[nodiscard]] bool Allowed(int right) const override { return m_allowed.contains(right); }

private:
    QSet<int> m_allowed;
};

/// Grants or refuses one right.
void setRight(db::Connection &connection, const QString &userId, int moduleId, int right, bool allowed);
/// Grants every right on every module. The first user of a new database has them all; whoever comes later has
/// what was granted.
void grantAll(db::Connection &connection, const QString &userId);

} // namespace ebtq::host
