#pragma once

#include "database/connection.h"

#include <cstdio>
#include <istream>

namespace ebtq::admin {

/// Runs one statement and prints its rows; the number of rows read or changed. Throws db::DatabaseError.
qint64 runStatement(db::Connection &connection, const QString &statement, std::FILE *output);

/// Runs one statement per line. The rows of each are followed by "-- ok" with the number of rows read or
/// changed or "-- error:" with the reason; an error does not end the run. Output is flushed before the next
/// line is read. Throws Failure when it cannot be written: nobody would learn what the remaining lines did.
void runBatch(db::Connection &connection, std::istream &input, std::FILE *output);

} // namespace ebtq::admin
