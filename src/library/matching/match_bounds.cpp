#include "library/matching/match_bounds.h"

#include "contracts/conversions.h"

namespace ebtq {

void addBounds(SqlText &sql, const DetailRecord &record, std::span<const MatchBound> bounds)
{
    for (const MatchBound &bound : bounds) {
        if (const double value = record.number(bound.column); value > 0) {
            sql += bound.clause;
            sql += typed(PlainDecimal(value));
        }
    }
}

} // namespace ebtq
