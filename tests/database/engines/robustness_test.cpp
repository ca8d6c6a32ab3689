#include "corpus.h"
#include "database/database_test.h"
#include "database/dialect/translator.h"
#include "database/schema/installer.h"
#include "support/engine_database.h"

#include <random>

namespace ebtq::db::test {

namespace {

using namespace ebtq::test;

/// Fixed, so that a failure can be looked at again.
constexpr unsigned seed = 20261122;

class RobustnessTest : public ::testing::Test
{
protected:
    RobustnessTest()
        : m_connection(filledDatabase())
    {}

    static void SetUpTestSuite()
    {
        s_base = std::make_unique<EngineDatabase>(Engine::Postgres);
        s_server = s_base->connect();
        install(*s_server);
    }
    static void TearDownTestSuite()
    {
        s_server.reset();
        s_base.reset();
    }

    /// The refusal; empty for a statement that is accepted, which every engine must then be able to prepare.
    QString refusalOf(const QString &statement)
    {
        QString refusal;
        for (Connection *engine : {m_connection.get(), s_server.get()}) {
            try {
                const Translation translation = translate(statement, engine->dialect(), engine->catalog());
                prepare(*engine, translation.sql, statement);
                for (const CountStatement &count : translation.counts)
                    prepare(*engine, count.sql, statement);
            } catch (const DialectError &error) {
                refusal = error.message();
            }
        }
        return refusal;
    }

    static void prepare(Connection &engine, const QByteArray &sql, const QString &statement)
    {
        try {
            // A server's "explain" computes constants as well, which may fail for their values.
            if (&engine == s_server.get())
                engine.executeNative("prepare ebtq_test as " + sql + "; deallocate ebtq_test");
            else
                static_cast<void>(engine.queryNative("explain " + sql));
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

    /// An expression of any kind, of literals, columns, nothing and what the dialect makes of them.
    QString expression(int depth)
    {
        static const QStringList leaves = u"null|1|2.5|'x'|'3'|#2026-9-8#|房号|总面积|业务员ID|委托日期|"
                                          u"房源ID|(select null)|(select 1 from pdmgy)|"
                                          "count(*)|max(null)"_qs.split(u'|');
        static const QStringList forms =
            u"- @|@ & @|@ + @|@ - @|@ * @|@ / @|@ = @|@ < @|@ in(@,@)|@ in(select @ from pdmdq)|@ between @ "
            u"and @|"
            "iif(@ is null,@,@)|max(@)|min(@)|sum(@)|avg(@)|count(@)|count(distinct "
            "@)|clng(@)|cstr(@)|cdate(@)|nz(@,@)|"
            "abs(@)|(select @)|(select max(@) from pdmgy)|not @|@ and @|@ like @|choose(@,@,@)|len(@)|val(@)|"
            "exists(select @ from pdmdq)|left(@,2)|instr(@,@)|round(@)|dateadd('d',@,@)|isnull(@)"_qs.split(
                u'|');
        if (depth == 0 || below(size_t(4)) == 0)
            return leaves[below(leaves.size())];
        QString text = forms[below(forms.size())];
        for (qsizetype at = text.indexOf(u'@'); at >= 0; at = text.indexOf(u'@', at)) {
            const QString part = u'(' + expression(depth - 1) + u')';
            text.replace(at, 1, part);
            at += part.size();
        }
        return text;
    }

    static inline std::unique_ptr<EngineDatabase> s_base;
    static inline std::unique_ptr<Connection> s_server;
    std::unique_ptr<Connection> m_connection;
    std::mt19937 m_random{seed};
};

/// One level with @ for the next one, what the last one holds, and the levels that statements may use.
using Nesting = std::tuple<const char16_t *, const char16_t *, int>;
constexpr Nesting nestings[] = {
    {u"(@)", u"1", 90},
    {u"(1+@)", u"1", 20},
    {u"- @", u"房型_房", 20},
    {u"not @", u"1=1", 20},
    {u"iif(楼层='1','a',@)", u"'x'", 90},
    {u"iif(楼层='1',@,'a')", u"'x'", 8},
    {u"iif(@,1,0)", u"1=1", 8},
    {u"trim(@)", u"'x'", 10},
    {u"left('abc',@)", u"1", 8},
    {u"('a' & @ & 'b')", u"'x'", 8},
    {u"(总面积 & @ & 'b')", u"1", 8},
    {u"2^(@)", u"1", 8},
    {u"(1=@)", u"1", 8},
    {u"1 in (1,@)", u"1", 8},
    {u"1 between 0 and (@)", u"1", 8},
    {u"(1=1 and (1=2 or @))", u"1=1", 5},
    {u"(select @)", u"1", 5},
    {u"1 in (select @)", u"1", 4},
    {u"exists(select 1 from fyxx where @)", u"1=1", 5},
    {u"1/(@)", u"2", 10},
    {u"(#2026-9-8#-@)", u"#2026-9-1#", 1},
};

QString nested(const QString &level, const char16_t *inside, int levels)
{
    return u"select "_qs + level.section(u'@', 0, 0).repeated(levels) + QString::fromUtf16(inside) +
           level.section(u'@', 1).repeated(levels) + u" from fyxx"_qs;
}

} // namespace

TEST_F(RobustnessTest, NestingIsRefusedBeforeAnEngineOrTheStackSuffers)
{
    for (const auto &[pattern, inside, mustReach] : nestings) {
        const QString level = QString::fromUtf16(pattern);
        for (int levels = 1; levels <= 105; ++levels) {
            const QString refusal = refusalOf(nested(level, inside, levels));
            EXPECT_TRUE(refusal.isEmpty() || levels > mustReach) << level.toStdString() << ' ' << levels;
            EXPECT_FALSE(refusal.isEmpty() && levels > 100) << level.toStdString() << ' ' << levels;
        }
        EXPECT_FALSE(refusalOf(nested(level, inside, 15000)).isEmpty()) << level.toStdString();
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

TEST_F(RobustnessTest, GeneratedStatementsArePreparedOrRefused)
{
    const QStringList clauses =
        u"select @ from fyxx|select @,@ from fyxx where @|select count(*) from fyxx group by @|select @ from "
        u"fyxx"
        " group by @ order by @|select @ from fyxx order by @|select distinct @ from fyxx|select @ from fyxx "
        "order by"
        " count(*)|select A from(select @ as A from fyxx) X where A=@|select 1 from fyxx group by 房号 having @"_qs
            .split(u'|');
    int accepted = 0;
    for (int round = 0; round < 6000; ++round) {
        QString statement = clauses[below(clauses.size())];
        while (statement.contains(u'@'))
            statement.replace(statement.indexOf(u'@'), 1, expression(static_cast<int>(below(size_t(3)))));
        accepted += refusalOf(statement).isEmpty() ? 1 : 0;
    }
    EXPECT_GT(accepted, 500);
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
