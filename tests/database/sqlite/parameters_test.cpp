// Statements whose values are handed to the engine as parameters: which they are, and that nothing else
// changes.

#include "database/database_test.h"
#include "database/dialect/statement_shape.h"
#include "database/sqlite/sqlite_connection.h"

using namespace ebtq;
using namespace ebtq::db;

namespace {

const QString keyA = u"0A1B2C3D-0000-4000-8000-0123456789AB"_qs;
const QString keyB = u"ffffffff-eeee-dddd-cccc-bbbbbbbbbbbb"_qs;

/// `text` with its "@" typed.
SqlText withTyped(const char16_t *text, const QString &value)
{
    return SqlText::filledIn(QString::fromUtf16(text), u'@', value);
}

TEST(StatementShapeTest, OnlyKeysAndPlainNumbersHaveAPlace)
{
    const QString digits = u"00000000-0000-4000-8000-012345678901"_qs; // a key without a letter
    // A text, what has a place in it and what has none.
    const std::tuple<const char16_t *, QStringList, QStringList> cases[] = {
        {u"select a from t where k='@' and k<>'@'",
         {keyA, keyB},
         {digits, keyA.chopped(1), u'{' + keyA + u'}', QString(keyA).replace(u'B', u'G'),
          QString(keyA).replace(u'C', u'\''), u"天河区"_qs, u"12"_qs}},
        {u"select a from t where (n>=@) and n<@ order by a",
         {u"1"_qs, u"12.5"_qs, u"999999999"_qs},
         {u"0"_qs, u"012"_qs, u"-5"_qs, u"1e5"_qs, u"12.50"_qs, u"12."_qs, u".5"_qs, u"1234567890"_qs,
          u"1 or 1"_qs, u"1.23456"_qs, keyA}},
        {u"select a from t where k='x@'", {}, {keyA}},
        {u"select a from t where k='x''@''y' or \"'@'\"=k", {}, {keyA}},
        {u"select a from t where k='n=@ x'", {}, {u"12"_qs}},
        {u"select [n=@ x] from t", {}, {u"12"_qs}},
        {u"select a from t where d>#@#", {}, {u"2026-11-22"_qs}},
        {u"select a from t where n=@+1", {}, {u"12"_qs}},
        {u"select @ from t", {}, {u"12"_qs}},
        {u"update t set a=1,b='@',c='@' where n=1",
         {u"天河'"_qs.chopped(1), u"12"_qs, keyA},
         {u"a\nb"_qs, u"a'b"_qs}},
        {u"update t set a=b='@',c=1 where n=1", {}, {u"x"_qs}},
        {u"update t set a='x' & '@' where n=1", {}, {u"x"_qs}},
        {u"update t set a=iif(b='@',1,2) where n=1", {}, {u"x"_qs}},
        {u"update t set a=1 where b='@' and c='@'", {}, {u"x"_qs}},
        {u"update t set a=iif(1=1,b='@',2),c=1 where n=1", {}, {u"x"_qs}},
        {u"select iif(1=2,a='@',b) from t", {}, {u"x"_qs}},
        {u"select '\xE000' from t where n=@", {}, {u"12"_qs}},
        {u"=@ =@ =@ =@ =@ =@ =@ =@ =@ =@ ", {}, {u"12"_qs}},
    };
    const auto hasPlace = [](const char16_t *text, const QString &value) {
        return StatementShape::of(withTyped(text, value)).has_value();
    };
    for (const auto &[text, withPlace, without] : cases) {
        for (const QString &value : withPlace)
            EXPECT_TRUE(hasPlace(text, value)) << value.toStdString();
        for (const QString &value : without)
            EXPECT_FALSE(hasPlace(text, value)) << value.toStdString();
    }
}

class ParametersTest : public ::testing::Test
{
protected:
    ParametersTest()
    {
        connection.executeNative("create table t(k text collate ebtq_nocase, n numeric, d date, x text)");
        for (const auto &[key, number] :
             {std::pair(keyA, u"12"_qs), {keyB, u"12.5"_qs}, {u"c"_qs, u"918273640"_qs}})
            connection.execute(
                u"insert into t(k,n,d,x) values('%1',%2,#2026-11-22#,'%2')"_qs.arg(key, number));
    }
    [[nodiscard]] QString rows(const SqlText &statement)
    {
        const RowBlock block = connection.query(statement);
        QString result;
        for (qsizetype row = 0; row < block.rowCount(); ++row)
            for (int column = 0; column < block.columnCount(); ++column)
                result +=
                    block.value(row, column).toString() + (column + 1 == block.columnCount() ? u';' : u',');
        return result;
    }
    /// What comes out, or why nothing does.
    [[nodiscard]] QString outcome(const SqlText &statement)
    {
        QString result;
        const std::string refusal = messageOf([&] { result = rows(statement); });
        return refusal.empty() ? result : u"refused: "_qs + QString::fromStdString(refusal);
    }
    SqliteConnection connection{u":memory:"_qs, Connection::Missing::IsCreated};
};

TEST_F(ParametersTest, NoValueComesOutOtherwiseThanInTheText)
{
    const std::pair<const char16_t *, QStringList> cases[] = {
        {u"select * from t where k='@'", {keyA, keyB, keyA.toLower(), u"c"_qs}},
        {u"select x from t where k in('@','c')", {keyA, keyB}},
        {u"select x,'@' & x from t where k like '@' or k='@'", {keyA, keyB.toUpper()}},
        {u"select iif(k='@',1,'@'),instr(1,k,'@') from t order by x", {keyA, keyB}},
        {u"select x from t where n='@'", {keyA}},
        {u"select x from t where d='@'", {keyA}},
        {u"select x from t where nowhere='@'", {keyA}},
        {u"select x from t where n<=@ and n>=@",
         {u"12"_qs, u"12.5"_qs, u"13"_qs, u"12.4999"_qs, u"918273640"_qs}},
        {u"select x from t where n<=@ and val(x)>=@ and n<=918273641 and x=@",
         {u"12"_qs, u"12.5"_qs, u"918273640"_qs}},
        {u"select x from t where val(x)<=@ order by n", {u"12"_qs, u"918273640"_qs, u"12.25"_qs}},
        {u"select x from t where x=@", {u"12"_qs, u"12.5"_qs, u"7"_qs}},
        {u"select x from t where n=918273640 or n=@", {u"12"_qs, u"5"_qs}},
        {u"select n/2,n=@ from t order by n", {u"12"_qs, u"12.5"_qs}},
    };
    for (const auto &[text, values] : cases) {
        for (const QString &value : values) {
            const SqlText statement = withTyped(text, value);
            EXPECT_EQ(outcome(statement), outcome(statement.text())) << statement.text().toStdString();
        }
    }
    for (const QString &value : {u"天河"_qs, u"12"_qs, u"2026-11-22"_qs, u"?1"_qs, u"ebtq assigned 0"_qs}) {
        const auto updated = [&](const char16_t *text) {
            QStringList outcomes;
            for (const SqlText &statement :
                 {withTyped(text, value), SqlText(withTyped(text, value).text())}) {
                const std::string refusal = messageOf([&] { connection.execute(statement); });
                outcomes += QString::fromStdString(refusal) + rows(u"select x,n,d from t where k='c'"_qs);
            }
            EXPECT_EQ(outcomes[0], outcomes[1]) << value.toStdString();
        };
        updated(u"update t set x='@' where k='c'");
        updated(u"update t set n='@',x='@' where k='c'");
        updated(u"update t set d='@',x='-' where k='c'");
    }
    connection.execute(u"update t set x='918273640',n=918273640,d=#2026-11-22# where k='c'"_qs);
    EXPECT_EQ(rows(withTyped(u"select x from t where k='@'", keyB)), u"12.5;"_qs);
    EXPECT_EQ(connection.execute(withTyped(u"update t set n=@ where x='12'", u"77"_qs)), 1);
    EXPECT_EQ(connection.execute(withTyped(u"delete from t where k='@'", keyB)), 1);
    EXPECT_EQ(connection.execute(withTyped(u"insert into t(k) values('@')", keyB)), 1);
    EXPECT_EQ(rows(u"select k,n from t order by n"_qs), u"%1,;%2,77;c,918273640;"_qs.arg(keyB, keyA));
}

TEST_F(ParametersTest, AKnownShapeStaysGuardedAndFollowsTheTables)
{
    const auto found = [&](const QString &value) {
        return outcome(withTyped(u"select * from t where k='@'", value));
    };
    const QString before = found(keyA);
    EXPECT_TRUE(found(u"x' or '1'='1"_qs).contains(u"单引号"));
    EXPECT_TRUE(found(keyA.chopped(1) + u'\'').contains(u"单引号"));
    EXPECT_EQ(found(keyA), before);
    connection.executeNative("alter table t add column more text default 'new'");
    EXPECT_EQ(found(keyA), before.chopped(1) + u",new;"_qs);
    connection.executeNative("alter table t rename column k to kk");
    EXPECT_TRUE(found(keyA).startsWith(u"refused: ")) << found(keyA).toStdString();
}

} // namespace
