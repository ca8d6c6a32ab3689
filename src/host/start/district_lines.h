#pragma once

#include "database/connection.h"

#include <QString>

#include <vector>

namespace ebtq::host {

struct District
{
    QString name;
    int level; ///< from 1, the city
};
/// Each behind the district that it belongs to.
using Districts = std::vector<District>;

/// Reads districts as people type or paste them: one a line, those that belong to it indented below it, by
/// blanks or tabs. Throws Failure that names the line for what cannot be used.
[[nodiscard]] Districts readDistrictLines(const QString &text);

/// Writes the districts into a database that has none, with their level codes. Throws db::DatabaseError.
void writeDistricts(db::Connection &connection, const Districts &districts);

} // namespace ebtq::host
