#pragma once

#include "database/dialect/translator.h"

namespace ebtq::db {

/// Throws the DialectError "第 n 个字符处：…". Positions count from 0 inside and from 1 for people.
[[noreturn]] void fail(qsizetype position, const QString &why);

/// A part of the statement as messages show it: in quotation marks, at most a line long.
[[nodiscard]] QString quoted(QStringView text);

} // namespace ebtq::db
