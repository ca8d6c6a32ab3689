#include "database/connection.h"
#include "support/messages.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ebtq::db {

namespace {

using ebtq::test::messageOf;
using ::testing::HasSubstr;

class SqliteConnectionTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString path(const char *name = "test.db") const
    {
        return m_folder.filePath(QLatin1String(name));
    }
    [[nodiscard]] std::unique_ptr<Connection> make(const char *name = "test.db") const
    {
        auto connection = Connection::open(path(name), Connection::Missing::IsCreated);
        connection->executeNative(
            "create table if not exists t(id integer primary key, 名称 text collate ebtq_nocase,"
            " 面积 numeric check(typeof(面积)<>'text'), 日期 date, 内容 blob)");
        return connection;
    }

private:
    QTemporaryDir m_folder;
};

int count(Connection &connection)
{
    return connection.query(QStringLiteral("select count(*) from t")).value(0, 0).toInt();
}

} // namespace

TEST_F(SqliteConnectionTest, ShowsLargeNumbersAlikeHoweverTheyAreKept)
{
    auto connection = make();
    connection->executeNative(
        "insert into t(id,面积) values(1,999999999999999),(2,1000000000000000),(3,-2e15),(4,1.5e16)");
    const RowBlock rows = connection->query(QStringLiteral("select 面积, '' & 面积 from t order by id"));
    const char *texts[] = {"999999999999999", "1E+15", "-2E+15", "1.5E+16"};
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(rows.cell(row, 0), texts[row]);
        EXPECT_EQ(rows.cell(row, 1), texts[row]) << "joined to a text";
    }
}

TEST_F(SqliteConnectionTest, TransactionsEndOneWayOrTheOther)
{
    auto connection = make();
    {
        Transaction lost(*connection);
        connection->execute(QStringLiteral("insert into t(id)values(1)"));
        EXPECT_THAT(messageOf([&] { connection->begin(); }), HasSubstr("事务"));
    }
    EXPECT_EQ(count(*connection), 0);
    {
        Transaction outer(*connection);
        connection->execute(QStringLiteral("insert into t(id)values(1)"));
        {
            Transaction inner(*connection);
            connection->execute(QStringLiteral("insert into t(id)values(2)"));
            inner.commit();
        }
        EXPECT_TRUE(connection->inTransaction()) << "an inner one joins and leaves the outer one open";
        EXPECT_FALSE(
            messageOf([&] { connection->execute(QStringLiteral("insert into t(id)values(2)")); }).empty());
        outer.commit();
    }
    EXPECT_EQ(count(*connection), 2) << "a failed statement leaves the others of its transaction";
    connection->rollback();
}

TEST_F(SqliteConnectionTest, AForeignDatabaseIsLookedAtAndNotChanged)
{
    ASSERT_TRUE(QFile(path()).open(QIODevice::WriteOnly));
    EXPECT_EQ(Connection::open(path())->query(QStringLiteral("select 1")).rowCount(), 1);
    EXPECT_EQ(QFile(path()).size(), 0);
}

} // namespace ebtq::db
