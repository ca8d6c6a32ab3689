#include "database/values/sql_text.h"

namespace ebtq {

SqlText &SqlText::operator+=(QStringView fixed)
{
    m_text += fixed;
    return *this;
}

SqlText &SqlText::operator+=(const TypedText &value)
{
    if (!value.text.isEmpty())
        m_typed.append({m_text.size(), value.text.size()});
    m_text += value.text;
    return *this;
}

SqlText &SqlText::operator+=(const SqlText &part)
{
    for (const Span &span : part.m_typed)
        m_typed.append({m_text.size() + span.begin, span.length});
    m_text += part.m_text;
    return *this;
}

SqlText SqlText::withoutFirst(qsizetype count) const
{
    SqlText rest(m_text.mid(count));
    for (const Span &span : m_typed) {
        const qsizetype begin = qMax(span.begin - count, qsizetype(0));
        const qsizetype end = span.end() - count;
        if (end > begin)
            rest.m_typed.append({begin, end - begin});
    }
    return rest;
}

SqlText SqlText::filledIn(const QString &pattern, QChar mark, const QString &value)
{
    SqlText result;
    qsizetype from = 0;
    for (qsizetype at = pattern.indexOf(mark); at >= 0; at = pattern.indexOf(mark, from)) {
        result += QStringView(pattern).mid(from, at - from);
        result += typed(value);
        from = at + 1;
    }
    result += QStringView(pattern).mid(from);
    return result;
}

} // namespace ebtq
