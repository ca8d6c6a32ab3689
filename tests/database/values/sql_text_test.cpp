#include "database/values/sql_text.h"

#include <gtest/gtest.h>

namespace ebtq {

namespace {

/// The statement with its typed spans in braces.
QString marked(const SqlText &sql)
{
    QString result;
    qsizetype from = 0;
    for (const SqlText::Span &span : sql.typedSpans()) {
        result +=
            sql.text().mid(from, span.begin - from) + u'{' + sql.text().mid(span.begin, span.length) + u'}';
        from = span.end();
    }
    return result + sql.text().mid(from);
}

} // namespace

TEST(SqlText, RemembersWhatWasTypedThroughEveryWayOfJoining)
{
    SqlText filter;
    filter += u" and A.地区='";
    filter += typed(u"天河区"_qs);
    filter += u"' and 交易状态='";
    filter += typed({});
    filter += u"'";
    EXPECT_EQ(marked(filter), u" and A.地区='{天河区}' and 交易状态=''"_qs);
    const SqlText whole = SqlText(u"select 1 where "_qs) + filter.withoutFirst(5) + u" order by 1";
    EXPECT_EQ(marked(whole), u"select 1 where A.地区='{天河区}' and 交易状态='' order by 1"_qs);
    const std::pair<qsizetype, QString> cuts[] = {
        {12, u"{河区}' and 交易状态=''"_qs}, {14, u"' and 交易状态=''"_qs}, {99, {}}};
    for (const auto &[length, rest] : cuts)
        EXPECT_EQ(marked(filter.withoutFirst(length)), rest) << length;
    const QString base = u"select * from t where (a='@' or b='@')"_qs;
    EXPECT_EQ(marked(SqlText::filledIn(base, u'@', u"x@y"_qs)),
              u"select * from t where (a='{x@y}' or b='{x@y}')"_qs);
    EXPECT_EQ(SqlText::filledIn(base, u'@', {}).text(), u"select * from t where (a='' or b='')"_qs);
}

} // namespace ebtq
