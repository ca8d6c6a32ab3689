#include "database/sqlite/function_call.h"
#include "database/values/date_text.h"

#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

constexpr double secondsOfDay = 86400;

enum class Interval { Year, Quarter, Month, Week, CalendarWeek, Day, Hour, Minute, Second };

struct IntervalName
{
    QLatin1String name;
    Interval interval;
};

constexpr std::array intervals{
    IntervalName{QLatin1String("yyyy"), Interval::Year},
    IntervalName{QLatin1String("q"), Interval::Quarter},
    IntervalName{QLatin1String("m"), Interval::Month},
    IntervalName{QLatin1String("w"), Interval::Week},
    IntervalName{QLatin1String("ww"), Interval::CalendarWeek},
    IntervalName{QLatin1String("d"), Interval::Day},
    IntervalName{QLatin1String("y"), Interval::Day},
    IntervalName{QLatin1String("h"), Interval::Hour},
    IntervalName{QLatin1String("n"), Interval::Minute},
    IntervalName{QLatin1String("s"), Interval::Second},
};

std::optional<Interval> intervalAt(FunctionCall &call)
{
    const QString written = call.string(0).trimmed();
    for (const IntervalName &each : intervals) {
        if (written.compare(each.name, Qt::CaseInsensitive) == 0)
            return each.interval;
    }
    call.fail(u"日期间隔“%1”有误，应为 yyyy、q、m、w、ww、d、h、n 或 s"_s.arg(written.left(24)));
    return std::nullopt;
}

/// Invalid for what is no date. Without a zone, so that no hour is missing or doubled in the year.
QDateTime dateAt(const FunctionCall &call, int at)
{
    const auto date = parseDate(call.string(at));
    return date ? QDateTime(date->date(), date->time(), Qt::UTC) : QDateTime();
}

void giveDate(FunctionCall &call, const QDateTime &date)
{
    const bool isInRange = date.isValid() && date.date().year() >= 100 && date.date().year() <= 9999;
    if (isInRange)
        call.give(storedDate(date));
    else
        call.fail(u"日期超出范围"_s);
}

template<class Part> void givePart(FunctionCall &call, Part part)
{
    const QDateTime date = dateAt(call, 0);
    if (date.isValid())
        call.giveInteger(part(date));
    else
        call.giveNull();
}

void year(FunctionCall &call)
{
    givePart(call, [](const QDateTime &date) { return date.date().year(); });
}

void month(FunctionCall &call)
{
    givePart(call, [](const QDateTime &date) { return date.date().month(); });
}

void day(FunctionCall &call)
{
    givePart(call, [](const QDateTime &date) { return date.date().day(); });
}

void hour(FunctionCall &call)
{
    givePart(call, [](const QDateTime &date) { return date.time().hour(); });
}

void minute(FunctionCall &call)
{
    givePart(call, [](const QDateTime &date) { return date.time().minute(); });
}

void second(FunctionCall &call)
{
    givePart(call, [](const QDateTime &date) { return date.time().second(); });
}

void today(FunctionCall &call)
{
    call.give(storedDate(QDateTime(QDate::currentDate(), QTime(0, 0))));
}

void now(FunctionCall &call)
{
    call.give(storedDate(QDateTime::currentDateTime()));
}

void datetext(FunctionCall &call)
{
    std::string regional;
    appendRegionalDate(call.text(0), regional);
    call.give(std::string_view(regional));
}

void cdate(FunctionCall &call)
{
    if (const auto date = parseDate(call.string(0)))
        call.give(storedDate(*date));
    else
        call.fail(u"“%1”不是日期，不能转换"_s.arg(call.string(0).left(24)));
}

void datevalue(FunctionCall &call)
{
    const QDateTime date = dateAt(call, 0);
    if (date.isValid())
        call.give(storedDate(QDateTime(date.date(), QTime(0, 0))));
    else
        call.giveNull();
}

QDateTime moved(const QDateTime &date, Interval interval, double count)
{
    // Beyond this there is no valid date, whatever the interval.
    const double steps = std::trunc(qBound(-4e11, count, 4e11));
    const int small = static_cast<int>(qBound(-1e6, steps, 1e6));
    const auto seconds = static_cast<qint64>(steps);
    switch (interval) {
    case Interval::Year:
        return date.addYears(small);
    case Interval::Quarter:
        return date.addMonths(3 * small);
    case Interval::Month:
        return date.addMonths(small);
    case Interval::Week:
    case Interval::Day:
        return date.addDays(small * (small == steps ? 1 : 4));
    case Interval::CalendarWeek:
        return date.addDays(7 * small);
    case Interval::Hour:
        return date.addSecs(3600 * static_cast<qint64>(small));
    case Interval::Minute:
        return date.addSecs(60 * static_cast<qint64>(small));
    case Interval::Second:
        return date.addSecs(seconds);
    }
    return {};
}

void dateadd(FunctionCall &call)
{
    const auto interval = intervalAt(call);
    const QDateTime date = dateAt(call, 2);
    if (interval && date.isValid())
        giveDate(call, moved(date, *interval, call.number(1)));
}

qint64 monthsOf(const QDate &date)
{
    return date.year() * 12LL + date.month() - 1;
}

qint64 secondsOf(const QDateTime &date)
{
    return date.date().toJulianDay() * 86400LL + date.time().msecsSinceStartOfDay() / 1000;
}

/// How many boundaries of the interval lie between the two; only weeks count in full.
qint64 distance(const QDateTime &from, const QDateTime &to, Interval interval)
{
    const qint64 days = from.date().daysTo(to.date());
    switch (interval) {
    case Interval::Year:
        return to.date().year() - from.date().year();
    case Interval::Quarter:
        return monthsOf(to.date()) / 3 - monthsOf(from.date()) / 3;
    case Interval::Month:
        return monthsOf(to.date()) - monthsOf(from.date());
    case Interval::Week:
        return days / 7;
    case Interval::CalendarWeek: // the Julian day 6 was a Sunday, with which weeks begin
        return (to.date().toJulianDay() + 1) / 7 - (from.date().toJulianDay() + 1) / 7;
    case Interval::Day:
        return days;
    case Interval::Hour:
        return secondsOf(to) / 3600 - secondsOf(from) / 3600;
    case Interval::Minute:
        return secondsOf(to) / 60 - secondsOf(from) / 60;
    case Interval::Second:
        return secondsOf(to) - secondsOf(from);
    }
    return 0;
}

void datediff(FunctionCall &call)
{
    const auto interval = intervalAt(call);
    const QDateTime from = dateAt(call, 1);
    const QDateTime to = dateAt(call, 2);
    if (interval && from.isValid() && to.isValid())
        call.giveInteger(distance(from, to, *interval));
}

void adddays(FunctionCall &call)
{
    const QDateTime date = dateAt(call, 0);
    const double seconds = call.number(1) * secondsOfDay;
    if (!date.isValid())
        call.giveNull();
    else if (std::abs(seconds) > 4e11)
        call.fail(u"日期超出范围"_s);
    else
        giveDate(call, date.addSecs(std::llround(seconds)));
}

void daysbetween(FunctionCall &call)
{
    const QDateTime to = dateAt(call, 0);
    const QDateTime from = dateAt(call, 1);
    if (from.isValid() && to.isValid())
        call.giveNumber(static_cast<double>(secondsOf(to) - secondsOf(from)) / secondsOfDay);
}

} // namespace

std::span<const FunctionEntry> dateFunctions()
{
    static constexpr std::array entries{
        FunctionEntry{"year", 1, year},
        FunctionEntry{"month", 1, month},
        FunctionEntry{"day", 1, day},
        FunctionEntry{"hour", 1, hour},
        FunctionEntry{"minute", 1, minute},
        FunctionEntry{"second", 1, second},
        FunctionEntry{"date", 0, today, false, false},
        FunctionEntry{"now", 0, now, false, false},
        FunctionEntry{"datetext", 1, datetext},
        FunctionEntry{"cdate", 1, cdate},
        FunctionEntry{"datevalue", 1, datevalue},
        FunctionEntry{"dateadd", 3, dateadd},
        FunctionEntry{"datediff", 3, datediff},
        FunctionEntry{"adddays", 2, adddays},
        FunctionEntry{"daysbetween", 2, daysbetween},
    };
    return entries;
}

} // namespace ebtq::db
