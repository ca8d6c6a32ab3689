#include "corpus.h"
#include "database/database_test.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "database/schema/tables.h"
#include "database/values/date_text.h"

namespace ebtq::db::test {

namespace {

constexpr char16_t lone[] = {0xD800, 0};
const QString apostropheMessage = u"输入的内容中含有单引号（'），无法执行，请去掉后重试！"_qs;

/// What somebody might type to break out of a literal, alone and in pairs.
QStringList attacks()
{
    const QStringList fragments =
        u"'|''|' or '1'='1|\\'|\\|\"|#|]|[|--|;|/*|*/|\n|😀|%_[a]|@ ? :x $1|) or (1=1| union select 1|"
        "2026-9-8|5|-5|1e3| |张三|null|0x1F|\u2019|\uFF07|\u02BC"_qs.split(u'|') +
        QStringList{QString(QChar(u'\0')), QString::fromUtf16(lone)};
    QStringList all = fragments;
    for (const QString &first : fragments) {
        for (const QString &second : fragments)
            all += first + second;
    }
    return all;
}

const Catalog &catalog()
{
    static const Catalog schema = schemaCatalog();
    return schema;
}

/// The rendered text, or nothing and the refusal.
struct Outcome
{
    QByteArray sql;
    QString refusal;
};

Outcome outcomeOf(const SqlText &statement, const Dialect &dialect = sqliteDialect())
{
    Outcome outcome;
    outcome.refusal = QString::fromStdString(
        messageOf([&] { outcome.sql = translate(statement, dialect, catalog()).sql; }));
    return outcome;
}

/// The pattern with a typed value for each @.
SqlText filled(const char16_t *pattern, const QString &value)
{
    return SqlText::filledIn(QString::fromUtf16(pattern), u'@', value);
}

std::string shown(const QString &value)
{
    return QString::fromUtf8(value.toUtf8().toPercentEncoding()).toStdString();
}

} // namespace

/// A value in a text leaves every byte around it as it is for a harmless one, or is refused.
TEST(Guard, NoTextChangesTheStatementAroundIt)
{
    const char16_t *patterns[] = {u"select 房源ID from fyxx where 备注='@'",
                                  u"select 代码 from pdmsjzd where 类型='a' and (代码='@' or 名称='@')",
                                  u"insert into pdmgy(雇员ID,姓名)values(1,'@')",
                                  u"update fyxx set 备注='@',手机='x' where 房源ID='@'",
                                  u"select 备注 & 'a@b' as [x] from fyxx where 备注 in ('@','y')",
                                  u"delete from fyxx where 房源ID=\"@\" and 备注=''"};
    int accepted = 0;
    for (const Dialect *dialect : {&sqliteDialect(), &postgresDialect()}) {
        for (const char16_t *pattern : patterns) {
            const QByteArray harmless = outcomeOf(filled(pattern, u"Zq"_qs), *dialect).sql;
            const bool isDoubleQuoted = QString::fromUtf16(pattern).contains(u'"');
            ASSERT_FALSE(harmless.isEmpty());
            for (const QString &value : attacks()) {
                const bool mustBeRefused = value.contains(isDoubleQuoted ? u'"' : u'\'') ||
                                           value.contains(QChar(u'\0')) || !value.isValidUtf16();
                const Outcome outcome = outcomeOf(filled(pattern, value), *dialect);
                EXPECT_EQ(outcome.refusal.isEmpty(), !mustBeRefused) << shown(value);
                const QByteArray expected =
                    QByteArray(harmless).replace("Zq", QString(value).replace(u'\'', u"''"_qs).toUtf8());
                EXPECT_EQ(outcome.sql, mustBeRefused ? QByteArray() : expected) << shown(value);
                accepted += mustBeRefused ? 0 : 1;
                const bool tellsOfIt = outcome.refusal == apostropheMessage;
                EXPECT_TRUE(tellsOfIt || isDoubleQuoted || !value.contains(u'\'')) << shown(value);
            }
        }
    }
    EXPECT_GT(accepted, 1000);
}

TEST(Guard, NoDateChangesTheStatementAroundIt)
{
    for (const QString &value : attacks()) {
        const auto date = parseDate(value);
        const Outcome outcome =
            outcomeOf(filled(u"select 1 from fyxx where 操作日期>#@# and 备注='x'", value));
        EXPECT_EQ(outcome.refusal.isEmpty(), date.has_value()) << shown(value);
        if (date) {
            EXPECT_EQ(outcome.sql, "SELECT 1 FROM \"fyxx\" AS t0 WHERE t0.\"操作日期\">'" +
                                       storedDate(*date).toUtf8() + "' AND t0.\"备注\"='x'");
        }
    }
}

TEST(Guard, OnlyOneNumberStandsInPlaceOfANumber)
{
    QStringList accepted;
    for (const QString &value : attacks()) {
        const Outcome outcome = outcomeOf(filled(u"select 1 from fyxx where 房型_房=@ and 1=1", value));
        if (outcome.refusal.isEmpty())
            accepted += value;
    }
    EXPECT_EQ(accepted.join(u'|').toStdString(), "5|1e3|55|51e3|1e35");
}

TEST(Guard, PatternsOfLikeStayOneText)
{
    for (const QString &value : attacks()) {
        const Outcome outcome = outcomeOf(filled(u"select 1 from fyxx where 备注 like '%@%'", value));
        if (!outcome.refusal.isEmpty())
            continue;
        const QByteArray before = "SELECT 1 FROM \"fyxx\" AS t0 WHERE ";
        const QByteArray typed = value.toUtf8();
        EXPECT_THAT(outcome.sql, ::testing::AnyOf(before + "instr(t0.\"备注\",'" + typed + "')>0",
                                                  before + "ebtq_like(t0.\"备注\",'%" + typed + "%')"))
            << shown(value);
    }
}

TEST(Guard, AcceptedTextsComeBackAsTheyWereTyped)
{
    const auto connection = filledDatabase();
    int key = 1000;
    for (const QString &value : attacks()) {
        SqlText insertion = u"insert into pdmgy(雇员ID,姓名)values(%1,'"_qs.arg(++key);
        insertion += typed(value);
        insertion += u"')";
        if (!outcomeOf(insertion).refusal.isEmpty())
            continue;
        connection->execute(insertion);
        const RowBlock block = connection->query(u"select 姓名 from pdmgy where 雇员ID=%1"_qs.arg(key));
        ASSERT_EQ(block.rowCount(), 1);
        EXPECT_EQ(std::string(block.cell(0, 0)), value.toStdString()) << shown(value);
    }
}

TEST(Guard, LooksAtEachSpanByItself)
{
    const auto text = [](const char16_t *fixed) { return SqlText(QString::fromUtf16(fixed)); };
    const auto value = [](const char16_t *typedText) { return typed(QString::fromUtf16(typedText)); };
    enum Refusal { None, Some, Apostrophe };
    const std::tuple<const char *, SqlText, Refusal> mixtures[] = {
        {"several values in one text", text(u"select '") + value(u"a") + u"-" + value(u"b") + u"'", None},
        {"a doubled quote between two values", text(u"select '") + value(u"a") + u"''" + value(u"b") + u"'",
         None},
        {"a value that closes and one that opens",
         text(u"select '") + value(u"x'") + u"," + value(u"'y") + u"'", Apostrophe},
        {"a value that is a whole literal", text(u"select ") + value(u"'x'"), Apostrophe},
        {"a value with half of a doubled quote", text(u"select '") + value(u"x'") + u"'", Apostrophe},
        {"a value that begins with the closing quote", text(u"select 'x") + value(u"'"), Apostrophe},
        {"a name", text(u"select ") + value(u"房源ID") + u" from fyxx", Some},
        {"a part of a name", text(u"select 房源") + value(u"ID") + u" from fyxx", Some},
        {"a name in brackets", text(u"select [") + value(u"房源ID") + u"] from fyxx", Some},
        {"a keyword", text(u"select 1 ") + value(u"from") + u" fyxx", Some},
        {"an operator", text(u"select 1") + value(u"+") + u"1", Some},
        {"blanks between words", text(u"select") + value(u" ") + u"1", Some},
        {"blanks behind the end", text(u"select 1") + value(u" "), Some},
        {"a digit of a number", text(u"select 1") + value(u"0") + u"0", None},
        {"two numbers that grow together", text(u"select ") + value(u"1") + value(u"0"), None},
        {"digits that make a name longer", text(u"select 楼层") + value(u"1") + u" from fyxx", Some},
        {"a date and its delimiter", text(u"select #") + value(u"2026-9-8#") + u"", Some},
        {"a part of a date", text(u"select #2026-") + value(u"9") + u"-8#", None},
        {"a quote in another kind of text", text(u"select \"") + value(u"it's") + u"\"", None},
        {"a hexadecimal number", text(u"select ") + value(u"&H10"), None},
        {"an alias", text(u"select 1 as ") + value(u"x"), Some},
        {"a comment behind", text(u"select 'x'") + value(u"--"), Some}};
    for (const auto &[name, statement, refusal] : mixtures) {
        const Outcome outcome = outcomeOf(statement);
        EXPECT_EQ(!outcome.refusal.isEmpty(), refusal != None) << name;
        EXPECT_EQ(outcome.refusal == apostropheMessage, refusal == Apostrophe) << name;
    }
}

} // namespace ebtq::db::test
