#include "database/dialect/dialect.h"

namespace ebtq::db {

const Dialect &sqliteDialect()
{
    static constexpr Dialect dialect{
        .name = "SQLite",
        .functionPrefix = "ebtq_",
        .caselessSuffix = " COLLATE ebtq_nocase",
        .ascendingSuffix = "",
        .descendingSuffix = " DESC",
        .datePrefix = "",
        .realType = "REAL",
        .textType = "TEXT",
        .conditionSuffix = "",
        .position = "instr",
        .zeroDivisionFails = false,
        .joinFunction = "join",
        .refusesSeveralRows = false,
        .openPieces = 95,
    };
    return dialect;
}

const Dialect &postgresDialect()
{
    static constexpr Dialect dialect{
        .name = "PostgreSQL",
        .functionPrefix = "ebtq.",
        .caselessSuffix = "::citext",
        .ascendingSuffix = " NULLS FIRST",
        .descendingSuffix = " DESC NULLS LAST",
        .datePrefix = "timestamp ",
        .realType = "double precision",
        .textType = "text",
        .conditionSuffix = "::integer",
        .position = "strpos",
        .zeroDivisionFails = true,
        .joinFunction = "",
        .refusesSeveralRows = true,
        .openPieces = 95,
    };
    return dialect;
}

} // namespace ebtq::db
