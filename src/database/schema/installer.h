#pragma once

#include "database/schema/identity.h"

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace ebtq::db {

class Connection;

/// What `install` did.
struct InstallReport
{
    int versionBefore = 0; ///< 0: the database was empty
    QStringList added;     ///< tables, columns and indexes that were made
};

/// Makes the schema, or upgrades one of an older version: every table, column and index of this build that is
/// missing is added in one transaction, nothing is ever dropped or changed but indexes that no statement uses
/// any more, and the version is written. Doing it again does nothing. Throws DatabaseError, also for a
/// database of a newer version, and for one that holds tables of others unless that was asked for.
InstallReport install(Connection &connection, Foreign foreign = Foreign::IsRefused);

/// Lets the engine count what our tables and indexes hold, by which it plans statements: for after a bulk
/// load. Without it a list is sorted on disk. Joins an open transaction.
void updateStatistics(Connection &connection);

/// Triggers and views that are not ours: whoever made them sees or changes what is saved.
[[nodiscard]] QStringList foreignRoutines(Connection &connection);

/// What is wrong with the schema and the file, one finding a line, in Chinese; empty when all is well. Throws
/// DatabaseError when the database cannot be read at all.
[[nodiscard]] QStringList checkSchema(Connection &connection);

} // namespace ebtq::db
