#include "library/matching/match_bounds.h"

#include "contracts/conversions.h"

using namespace Qt::StringLiterals;

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

/// Floors last: they are texts, and their numbers are worked out row by row.
SqlText matchCount(QStringView table, std::span<const MatchBound> bounds)
{
    constexpr qsizetype conjunction = 5; // " and "
    QString conditions = u"1=1"_s;
    for (const bool isOfFloors : {false, true}) {
        for (const MatchBound &bound : bounds) {
            if (bound.column.startsWith(u"楼层") != isOfFloors)
                continue;
            const QString measure = (bound.column == u"楼层" ? u"val(A.%1)"_s : u"A.%1"_s).arg(bound.column);
            conditions +=
                u" and (%1 is null or %1<=0 or %2%1)"_s.arg(measure, bound.clause.sliced(conjunction));
        }
    }
    return SqlText(u"(select count(*) from %1 where %2)"_s.arg(table, conditions));
}

} // namespace ebtq
