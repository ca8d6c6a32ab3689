#include "database/values/date_text.h"

namespace ebtq {

namespace {

/// Reads a text from the left, piece by piece; a piece that is not there makes the whole reading fail.
class DateReader
{
public:
    explicit DateReader(QStringView text)
        : m_text(text)
    {}
    /// A number of at most `longest` digits.
    int number(int longest)
    {
        int value = 0;
        const qsizetype begin = m_at;
        while (m_at < m_text.size() && m_at - begin < longest && m_text[m_at] >= u'0' && m_text[m_at] <= u'9')
            value = value * 10 + (m_text[m_at++].unicode() - u'0');
        m_good = m_good && m_at > begin;
        return value;
    }
    bool takes(QChar c)
    {
        if (m_at >= m_text.size() || m_text[m_at] != c)
            return false;
        ++m_at;
        return true;
    }
    void expect(QChar c) { m_good = takes(c) && m_good; }
    [[nodiscard]] QStringView rest() const { return m_text.sliced(m_at); }
    [[nodiscard]] bool atEnd() const { return m_at == m_text.size(); }
    [[nodiscard]] bool isGood() const { return m_good; }

private:
    QStringView m_text;
    qsizetype m_at = 0;
    bool m_good = true;
};

QDate readDay(DateReader &reader)
{
    const int first = reader.number(4);
    const QChar separator = reader.takes(u'-') ? u'-' : u'/';
    if (separator == u'/' && !reader.takes(u'/'))
        return {};
    const int second = reader.number(2);
    reader.expect(separator);
    const int third = reader.number(4);
    if (!reader.isGood())
        return {};
    if (first >= 100)
        return third <= 31 ? QDate(first, second, third) : QDate();
    return separator == u'/' && third >= 100 ? QDate(third, first, second) : QDate();
}

QTime readTime(DateReader &reader)
{
    if (reader.atEnd())
        return {0, 0};
    reader.expect(u' ');
    while (reader.takes(u' '))
        continue;
    const int hour = reader.number(2);
    reader.expect(u':');
    const int minute = reader.number(2);
    const int second = reader.takes(u':') ? reader.number(2) : 0;
    const QStringView half = reader.rest().trimmed();
    if (!reader.isGood())
        return {};
    if (half.isEmpty())
        return {hour, minute, second};
    const bool afternoon = half.compare(u"PM", Qt::CaseInsensitive) == 0;
    if ((!afternoon && half.compare(u"AM", Qt::CaseInsensitive) != 0) || hour < 1 || hour > 12)
        return {};
    return {hour % 12 + (afternoon ? 12 : 0), minute, second};
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool hasPattern(std::string_view text, std::string_view pattern)
{
    if (text.size() != pattern.size())
        return false;
    for (size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] == '0' ? !isDigit(text[at]) : text[at] != pattern[at])
            return false;
    }
    return true;
}

bool hasTime(std::string_view text)
{
    return hasPattern(text, "0000-00-00 00:00:00");
}

} // namespace

bool isStoredDate(std::string_view text)
{
    return hasPattern(text, "0000-00-00") || hasTime(text);
}

std::optional<QDateTime> parseDate(QStringView text)
{
    DateReader reader(text.trimmed());
    const QDate day = readDay(reader);
    if (!day.isValid() || day.year() < 100 || day.year() > 9999)
        return std::nullopt;
    const QTime time = readTime(reader);
    return time.isValid() ? std::optional(QDateTime(day, time)) : std::nullopt;
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
    if (!isStoredDate(stored)) {
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
    if (!hasTime(stored) || stored.substr(11) == "00:00:00")
        return;
    out += ' ';
    part(11);
    out += stored.substr(13);
}

} // namespace ebtq
