#pragma once

#include "database/connection.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace ebtq::host {

/// One list that an agency begins with: a kind of the data dictionary, the house types or the property
/// rights.
struct StandardList
{
    QString name;                  ///< the kind, 房型 or 产权
    std::vector<QStringList> rows; ///< code, name and what else the list's table holds
};
using StandardLists = std::vector<StandardList>;

/// The file of the installation, which its administrator may change, or else the built-in one.
[[nodiscard]] QString standardListsFile();
[[nodiscard]] QString builtInStandardLists();
/// Throws Failure that names the line when the file cannot be read or a row cannot be used.
[[nodiscard]] StandardLists readStandardLists(const QString &fileName);

/// Writes those lists of which the database has no row yet; gives their names. Throws db::DatabaseError.
QStringList writeStandardLists(db::Connection &connection, const StandardLists &lists);

} // namespace ebtq::host
