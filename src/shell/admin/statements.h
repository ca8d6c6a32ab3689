#pragma once

#include "database/connection.h"

#include <cstdio>
#include <istream>

namespace ebtq::admin {

/// Runs one statement and prints its rows; the number of rows read or changed. Throws db::DatabaseError.
qint64 runStatement(db::Connection &connection, const QString &statement, std::FILE *output);

/// Runs a statement a line. Behind the rows of each stands "-- ok" with the number of rows read or changed
/// or "-- error:" with the reason; an error does not end the run. What was printed is out before the next
/// line is read. Throws Failure when it cannot be written: nobody would learn what the further lines did.
void runBatch(db::Connection &connection, std::istream &input, std::FILE *output);

} // namespace ebtq::admin
