#include "library/lists/filter_clauses.h"

#include "contracts/conversions.h"
#include "contracts/host_contracts.h"
#include "database/values/date_text.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

struct Period
{
    QStringView text;
    int days;
    int months;
};
constexpr Period periods[] = {{u"三天内", 3, 0},    {u"七天内", 7, 0},   {u" 十天内", 10, 0},
                              {u"十五天内", 15, 0}, {u"一个月内", 0, 1}, {u"三个月内", 0, 3},
                              {u"半年内", 0, 6},    {u"一年内", 0, 12}};

std::optional<QDateTime> beginOf(const QString &text, const QDateTime &now)
{
    const auto *found = std::ranges::find(periods, text, &Period::text);
    if (found == std::end(periods))
        return std::nullopt;
    return now.addMonths(-found->months).addDays(-found->days);
}

/// Nothing when the dialect cannot write a following day: then no row is later.
std::optional<SqlText> dayAfter(const QString &text)
{
    constexpr int lastYear = 9999;
    const auto day = parseDate(text);
    if (!day)
        throw Failure(u"“%1”不是日期！"_s.arg(text));
    const QDateTime next = day->addDays(1);
    if (next.date().year() > lastYear)
        return std::nullopt;
    return SqlText(regionalDate(next));
}

/// The value between the two texts of a clause; nothing when the clause is left out.
std::optional<SqlText> filling(const FilterClause &clause, const FilterValues &values, const QDateTime &now)
{
    if (clause.kind == FilterClause::Period || clause.kind == FilterClause::PeriodTime) {
        const auto begin = beginOf(values.period, now);
        if (!begin)
            return std::nullopt;
        return SqlText(clause.kind == FilterClause::Period ? regionalDate(begin->date())
                                                           : regionalDate(*begin));
    }
    const auto field = values.fields.find(clause.field);
    if (field == values.fields.end())
        return std::nullopt;
    const QString trimmed = Trim(field->second.text);
    if (clause.kind == FilterClause::Key ? field->second.text.isEmpty() : trimmed.isEmpty())
        return std::nullopt;
    if (clause.kind == FilterClause::Text)
        return SqlText() + typed(trimmed);
    if (clause.kind == FilterClause::NextDay)
        return dayAfter(trimmed);
    return SqlText(PlainDecimal(field->second.key));
}

void add(SqlText &where, const FilterClause &clause, const FilterValues &values, const QDateTime &now)
{
    if (clause.kind == FilterClause::Ticks) {
        if (values.first != values.second)
            where += values.first ? clause.before : clause.behind;
        return;
    }
    if (const auto text = filling(clause, values, now)) {
        where += clause.before;
        where += *text;
        where += clause.behind;
    }
}

} // namespace

SqlText filterWhere(std::span<const FilterClause> clauses, const FilterValues &values, const QDateTime &now)
{
    SqlText where;
    for (const FilterClause &clause : clauses)
        add(where, clause, values, now);
    if (where.isEmpty())
        return where;
    constexpr qsizetype leadingAnd = 5;
    return SqlText(u" where "_s) + where.withoutFirst(leadingAnd);
}

QStringList periodCaptions()
{
    return {u"三天内"_s,   u"七天内"_s, u"十天内"_s, u"十五月内"_s, u"一个月内"_s,
            u"三个月内"_s, u"半年内"_s, u"一年内"_s, u"全部"_s};
}

} // namespace ebtq
