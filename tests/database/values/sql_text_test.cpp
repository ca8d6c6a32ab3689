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
    filter += typed(QStringLiteral("天河区"));
    filter += u"' and 交易状态='";
    filter += typed({});
    filter += u"'";
    EXPECT_EQ(marked(filter), QStringLiteral(" and A.地区='{天河区}' and 交易状态=''"));
    const SqlText whole =
        SqlText(QStringLiteral("select 1 where ")) + filter.withoutFirst(5) + u" order by 1";
    EXPECT_EQ(marked(whole), QStringLiteral("select 1 where A.地区='{天河区}' and 交易状态='' order by 1"));
}

TEST(SqlText, CuttingIntoATypedSpanKeepsItsRest)
{
    SqlText sql;
    sql += typed(QStringLiteral("abcdef"));
    sql += u"x";
    sql += typed(QStringLiteral("gh"));
    EXPECT_EQ(marked(sql.withoutFirst(2)), QStringLiteral("{cdef}x{gh}"));
    EXPECT_EQ(marked(sql.withoutFirst(6)), QStringLiteral("x{gh}"));
    EXPECT_EQ(marked(sql.withoutFirst(99)), QString());
}

TEST(SqlText, FillsACheckStatement)
{
    const QString base = QStringLiteral("select * from t where (a='@' or b='@')");
    EXPECT_EQ(marked(SqlText::filledIn(base, u'@', QStringLiteral("x@y"))),
              QStringLiteral("select * from t where (a='{x@y}' or b='{x@y}')"));
    EXPECT_EQ(SqlText::filledIn(base, u'@', {}).text(),
              QStringLiteral("select * from t where (a='' or b='')"));
}

} // namespace ebtq
