#include "database/dialect/dialect.h"

namespace ebtq::db {

const Dialect &sqliteDialect()
{
    static constexpr Dialect dialect{
        .name = "SQLite",
        .functionPrefix = "ebtq_",
        .caselessType = "",
        .caselessCollation = " COLLATE ebtq_nocase",
        .exactType = "",
        .ascendingSuffix = "",
        .descendingSuffix = " DESC",
        .bothSidesNeedCollation = false,
        .datePrefix = "",
        .realType = "REAL",
        .realSuffix = "",
        .wholeNumbersOverflow = false,
        .conditionSuffix = "",
        .position = "instr",
        .estimatesPatterns = false,
        .typesNull = false,
        .zeroDivisionFails = false,
        .joinFunction = "join",
        .refusesSeveralRows = false,
        .rareCondition = "unlikely",
        .fewRowsOf = "(SELECT 1+ifnull(max(rowid),0)/20 FROM ",
        .testedByRow = "+",
        .isFilteredListLong = false,
    };
    return dialect;
}

const Dialect &postgresDialect()
{
    static constexpr Dialect dialect{
        .name = "PostgreSQL",
        .functionPrefix = "ebtq.",
        .caselessType = "::citext",
        .caselessCollation = " COLLATE \"C\"",
        .exactType = "::text",
        .ascendingSuffix = " NULLS FIRST",
        .descendingSuffix = " DESC NULLS LAST",
        .bothSidesNeedCollation = true,
        .datePrefix = "timestamp ",
        .realType = "double precision",
        .realSuffix = "::double precision",
        .wholeNumbersOverflow = true,
        .conditionSuffix = "::integer",
        .position = "pg_catalog.strpos",
        .estimatesPatterns = true,
        .typesNull = true,
        .zeroDivisionFails = true,
        .joinFunction = "",
        .refusesSeveralRows = true,
        .rareCondition = "",
        .fewRowsOf = "",
        .testedByRow = "",
        .isFilteredListLong = true,
    };
    return dialect;
}

} // namespace ebtq::db
