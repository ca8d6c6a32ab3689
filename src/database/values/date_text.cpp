#include "database/values/date_text.h"

#include <QRegularExpression>

namespace ebtq {

namespace {

std::optional<QDateTime> makeDate(int year, int month, int day, QStringView time)
{
    const QDate date(year, month, day);
    if (!date.isValid() || year < 100 || year > 9999)
        return std::nullopt;
    if (time.isEmpty())
        return QDateTime(date, QTime(0, 0));
    const auto parts = time.split(u':');
    const QTime clock(parts[0].toInt(), parts[1].toInt(), parts.size() > 2 ? parts[2].toInt() : 0);
    return clock.isValid() ? std::optional(QDateTime(date, clock)) : std::nullopt;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool hasPattern(std::string_view text, std::string_view pattern)
{
    for (size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] == '0' ? !isDigit(text[at]) : text[at] != pattern[at])
            return false;
    }
    return true;
}

} // namespace

std::optional<QDateTime> parseDate(QStringView text)
{
    static const QRegularExpression yearFirst(QStringLiteral(
        "^(\\d{3,4})([-/])(\\d{1,2})\\2(\\d{1,2})(?:\\s+(\\d{1,2}:\\d{1,2}(?::\\d{1,2})?))?$"));
    static const QRegularExpression monthFirst(
        QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{3,4})(?:\\s+(\\d{1,2}:\\d{1,2}(?::\\d{1,2})?))?$"));
    const QString trimmed = text.trimmed().toString();
    if (const auto match = yearFirst.match(trimmed); match.hasMatch()) {
        return makeDate(match.capturedView(1).toInt(), match.capturedView(3).toInt(),
                        match.capturedView(4).toInt(), match.capturedView(5));
    }
    if (const auto match = monthFirst.match(trimmed); match.hasMatch()) {
        return makeDate(match.capturedView(3).toInt(), match.capturedView(1).toInt(),
                        match.capturedView(2).toInt(), match.capturedView(4));
    }
    return std::nullopt;
}

QString regionalDate(const QDate &date)
{
    return date.isValid() ? date.toString(u"yyyy-M-d") : QString();
}

QString regionalDate(const QDateTime &date)
{
    if (!date.isValid())
        return {};
    const bool midnight = date.time() == QTime(0, 0);
    return date.toString(midnight ? u"yyyy-M-d" : u"yyyy-M-d H:mm:ss");
}

QString storedDate(const QDateTime &date)
{
    const bool midnight = date.time() == QTime(0, 0);
    return date.toString(midnight ? u"yyyy-MM-dd" : u"yyyy-MM-dd HH:mm:ss");
}

void appendRegionalDate(std::string_view stored, std::string &out)
{
    const bool timed = stored.size() == 19 && hasPattern(stored, "0000-00-00 00:00:00");
    if (!timed && !(stored.size() == 10 && hasPattern(stored, "0000-00-00"))) {
        out += stored;
        return;
    }
    const auto part = [&](size_t at) {
        if (stored[at] != '0')
            out += stored[at];
        out += stored[at + 1];
    };
    out += stored.substr(0, 5);
    part(5);
    out += '-';
    part(8);
    if (!timed || stored.substr(11) == "00:00:00")
        return;
    out += ' ';
    part(11);
    out += stored.substr(13);
}

} // namespace ebtq
