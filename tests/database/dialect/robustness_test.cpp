#include "corpus.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace ebtq::db::test {

namespace {

using ::testing::HasSubstr;

/// Fixed, so that a failure can be looked at again.
constexpr unsigned seed = 20261122;

class RobustnessTest : public ::testing::Test
{
protected:
    RobustnessTest()
        : m_connection(filledDatabase())
    {}

    /// The refusal; empty for a statement that is accepted, which the engine must then be able to prepare.
    QString refusalOf(const QString &statement)
    {
        try {
            const QByteArray sql = translate(statement, m_connection->dialect(), m_connection->catalog()).sql;
            static_cast<void>(translate(statement, postgresDialect(), m_connection->catalog()));
            prepare(sql, statement);
        } catch (const DialectError &error) {
            return error.message();
        }
        return {};
    }

    void prepare(const QByteArray &sql, const QString &statement)
    {
        try {
            static_cast<void>(m_connection->queryNative("explain " + sql));
        } catch (const DatabaseError &error) {
            ADD_FAILURE() << error.what() << '\n'
                          << statement.left(300).toStdString() << '\n'
                          << sql.left(300).toStdString();
        }
    }

    size_t below(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(m_random); }
    qsizetype below(qsizetype count) { return static_cast<qsizetype>(below(static_cast<size_t>(count))); }

    QString mutated(QString text, const QString &other)
    {
        const qsizetype at = below(text.size() + 1);
        const qsizetype length = below(qMin(text.size() - at, qsizetype(12)) + 1);
        switch (below(size_t(4))) {
        case 0:
            return text.remove(at, length);
        case 1:
            return text.insert(at, QStringView(other).mid(below(other.size()), 12));
        case 2:
            return text.replace(at, length, QStringView(u"'#[](),&=*.")[below(qsizetype(11))]);
        default:
            return text.insert(at, text.mid(below(text.size()), 12));
        }
    }

    std::unique_ptr<Connection> m_connection;
    std::mt19937 m_random{seed};
};

struct Nesting
{
    const char *name;
    const char16_t *opening;
    const char16_t *inside;
    const char16_t *closing;
    int mustReach; ///< levels that statements may use
};

constexpr Nesting nestings[] = {
    {"brackets", u"(", u"1", u")", 90},
    {"brackets with operands", u"(1+", u"1", u")", 20},
    {"minus", u"- ", u"房型_房", u"", 20},
    {"not", u"not ", u"1=1", u"", 20},
    {"iif in the last place", u"iif(楼层='1','a',", u"'x'", u")", 90},
    {"iif in the second place", u"iif(楼层='1',", u"'x'", u",'a')", 8},
    {"iif in the condition", u"iif(", u"1=1", u",1,0)", 8},
    {"functions", u"trim(", u"'x'", u")", 10},
    {"functions at the end", u"left('abc',", u"1", u")", 8},
    {"joining", u"('a' & ", u"'x'", u" & 'b')", 8},
    {"joining numbers", u"(总面积 & ", u"1", u" & 'b')", 8},
    {"powers", u"2^(", u"1", u")", 8},
    {"comparisons", u"(1=", u"1", u")", 8},
    {"lists", u"1 in (1,", u"1", u")", 8},
    {"ranges", u"1 between 0 and (", u"1", u")", 8},
    {"conditions", u"(1=1 and (1=2 or ", u"1=1", u"))", 5},
    {"sub-selects", u"(select ", u"1", u")", 5},
    {"lists of sub-selects", u"1 in (select ", u"1", u")", 4},
    {"exists", u"exists(select 1 from fyxx where ", u"1=1", u")", 5},
    {"division", u"1/(", u"2", u")", 10},
    {"sums of dates", u"(#2026-9-8#-", u"#2026-9-1#", u")", 1},
};

QString nested(const Nesting &nesting, int levels)
{
    const QString opening = QString::fromUtf16(nesting.opening);
    const QString closing = QString::fromUtf16(nesting.closing);
    return u"select "_qs + opening.repeated(levels) + QString::fromUtf16(nesting.inside) +
           closing.repeated(levels) + u" from fyxx"_qs;
}

} // namespace

TEST_F(RobustnessTest, NestingIsRefusedBeforeAnEngineOrTheStackSuffers)
{
    for (const Nesting &nesting : nestings) {
        for (int levels = 1; levels <= 105; ++levels) {
            const QString refusal = refusalOf(nested(nesting, levels));
            EXPECT_TRUE(refusal.isEmpty() || levels > nesting.mustReach) << nesting.name << ' ' << levels;
            EXPECT_FALSE(refusal.isEmpty() && levels > 100) << nesting.name << ' ' << levels;
        }
        EXPECT_FALSE(refusalOf(nested(nesting, 15000)).isEmpty()) << nesting.name;
    }
}

TEST_F(RobustnessTest, NestedJoinsAreBounded)
{
    const auto joins = [](int count) {
        QString from = u"pdmgy t0"_qs;
        for (int at = 1; at <= count; ++at)
            from = (at == 1 ? u"%1 left join pdmgy t%2 on 1=1"_qs : u"(%1) left join pdmgy t%2 on 1=1"_qs)
                       .arg(from)
                       .arg(at);
        return u"select 1 from "_qs + from;
    };
    EXPECT_EQ(refusalOf(joins(50)).toStdString(), "");
    for (int count = 51; count < 130; ++count)
        static_cast<void>(refusalOf(joins(count)));
    EXPECT_FALSE(refusalOf(joins(100)).isEmpty());
}

TEST_F(RobustnessTest, LongChainsAreAcceptedOrRefusedWithoutRecursion)
{
    const char16_t *links[] = {
        u"+1",      u"&1",       u"*2", u"/2",   u"\\2",         u" mod 2",          u"^2",
        u" or 1=1", u" and 1=1", u"=1", u"+'1'", u"+#2026-9-8#", u" & 总面积 & 'a'", u" like 'a'",
        u" is null"};
    for (const char16_t *link : links) {
        for (const int count : {1, 5, 30, 100, 390, 5000, 19000}) {
            const QString refusal =
                refusalOf(u"select 1"_qs + QString::fromUtf16(link).repeated(count) + u" from fyxx"_qs);
            EXPECT_FALSE(refusal.isEmpty() && count == 19000) << QString::fromUtf16(link).toStdString();
        }
    }
    EXPECT_EQ(refusalOf(u"select 1"_qs + u"+1"_qs.repeated(390)).toStdString(), "");
    EXPECT_THAT(refusalOf(u"select 1"_qs + u",1"_qs.repeated(11000)).toStdString(), HasSubstr("超过"));
    EXPECT_THAT(refusalOf(u"select 1"_qs + u",1"_qs.repeated(3000)).toStdString(), HasSubstr("列太多"));
    EXPECT_EQ(refusalOf(u"delete from pdmdz where 栋座ID in(1"_qs + u",1"_qs.repeated(9000) + u")"_qs)
                  .toStdString(),
              "");
}

TEST_F(RobustnessTest, ChainsInsideOfChainsAreBoundedTogether)
{
    int refused = 0;
    for (const int length : {10, 100, 200, 300, 390}) {
        QString chain = u"总面积"_qs;
        for (int depth = 0; depth < 12; ++depth) {
            chain = u'(' + chain + u')' + (depth % 2 == 0 ? u"+1"_qs : u"*2"_qs).repeated(length);
            refused += refusalOf(u"select "_qs + chain + u" from fyxx"_qs).isEmpty() ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 20);
}

TEST_F(RobustnessTest, ATextOfTenMillionCharactersPasses)
{
    const QString value(10'000'000, u'文');
    EXPECT_EQ(m_connection->execute(u"update fyxx set 备注='%1' where 房源ID='G-1'"_qs.arg(value)), 1);
    const RowBlock block = m_connection->query(u"select len(备注) from fyxx where 房源ID='G-1'"_qs);
    EXPECT_EQ(block.cell(0, 0), "10000000");
}

TEST_F(RobustnessTest, RandomWordsAreReadOrRefused)
{
    const QStringList words =
        u"select|select|from|where|fyxx|fyxx A|fykh B|房源ID|A.楼层|总面积|操作日期|'x'|'3'|#2026-9-8#|"
        "1|2.5|null|(|)|(|)|,|,|&|+|-|*|/|=|<>|>|and|or|not|in|like '%a%'|between|is null|iif(|"
        "instr(|val(|count(|count(*)|sum(|left join|on|order by|group by|having|top 3|distinct|as "
        "x|desc|exists|[|]|;|--|update fyxx set|insert into pdmgy values(|delete from|mod|^|\\|"
        "left(|date()|true"_qs.split(u'|');
    int accepted = 0;
    for (int round = 0; round < 6000; ++round) {
        QString statement = round % 3 == 0   ? QString()
                            : round % 3 == 1 ? u"select "_qs
                                             : u"select 1 from fyxx where "_qs;
        for (size_t count = below(size_t(12)) + 1; count > 0; --count)
            statement += words[below(words.size())] + u' ';
        accepted += refusalOf(statement).isEmpty() ? 1 : 0;
    }
    EXPECT_GT(accepted, 20);
}

TEST_F(RobustnessTest, DamagedStatementsAreReadOrRefused)
{
    int accepted = 0;
    for (int round = 0; round < 6000; ++round) {
        QString statement = corpus()[below(corpus().size())].statement;
        const QString other = corpus()[below(corpus().size())].statement;
        for (size_t count = below(size_t(3)) + 1; count > 0 && !statement.isEmpty(); --count)
            statement = mutated(statement, other);
        accepted += refusalOf(statement).isEmpty() ? 1 : 0;
    }
    EXPECT_GT(accepted, 100);
}

} // namespace ebtq::db::test
