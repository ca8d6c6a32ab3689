#pragma once

#include "database/dialect/lexer.h"
#include "database/values/sql_text.h"

namespace ebtq::db {

/// Throws DialectError unless each typed span lies inside the content of one text, date or number of the
/// statement and holds no delimiter of it, a doubled one included. What passes can change a value and nothing
/// else.
void checkTypedSpans(const SqlText &statement, const std::vector<Token> &tokens);

} // namespace ebtq::db
