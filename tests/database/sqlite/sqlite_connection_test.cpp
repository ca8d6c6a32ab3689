#include "database/connection.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include <unistd.h>

namespace ebtq::db {

namespace {

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
    void write(const char *name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

private:
    QTemporaryDir m_folder;
};

/// The message of the DatabaseError that `run` throws; empty when it throws none.
std::string messageOf(const std::function<void()> &run)
{
    try {
        run();
    } catch (const DatabaseError &error) {
        return error.what();
    }
    return {};
}

int count(Connection &connection)
{
    return connection.query(QStringLiteral("select count(*) from t")).value(0, 0).toInt();
}

} // namespace

TEST_F(SqliteConnectionTest, GivesBackWhatWasWritten)
{
    auto connection = make();
    const SqlText insert = SqlText(QStringLiteral("insert into t(id,名称,面积,日期)values(1,'")) +
                           typed(QStringLiteral("云山 100% [花园] \"二期\"")) + u"',128.50,#2026-9-8#)";
    EXPECT_EQ(connection->execute(insert), 1);
    EXPECT_EQ(connection->execute(QStringLiteral("insert into t(id,名称,面积,日期)values(2,null,null,null)")),
              1);
    const RowBlock rows = connection->query(QStringLiteral("select * from T order by ID"));
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.columns()[1].name, QStringLiteral("名称"));
    EXPECT_EQ(rows.cell(0, 1), "云山 100% [花园] \"二期\"");
    EXPECT_EQ(rows.cell(0, 2), "128.5");
    EXPECT_EQ(rows.cell(0, 3), "2026-9-8");
    for (int column = 1; column < 5; ++column)
        EXPECT_TRUE(rows.isNull(1, column));
    EXPECT_EQ(connection->execute(QStringLiteral("update t set 名称='x'")), 2);
    EXPECT_EQ(connection->execute(QStringLiteral("delete from t where id=3")), 0);
    EXPECT_EQ(connection->execute(QStringLiteral("select * from t")), 0);
}

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

TEST_F(SqliteConnectionTest, RefusesWhatCannotBeOpened)
{
    write("notes.db", QByteArray(4096, 'x'));
    EXPECT_THAT(messageOf([&] { (void)Connection::open(path("notes.db")); }), HasSubstr("不是数据库"));
    EXPECT_THAT(messageOf([&] { (void)Connection::open(path("missing.db")); }),
                HasSubstr("找不到数据库文件"));
    EXPECT_THAT(
        messageOf([&] { (void)Connection::open(path("no/folder.db"), Connection::Missing::IsCreated); }),
        HasSubstr("无法打开数据库文件"));
    EXPECT_FALSE(QFile::exists(path("missing.db"))) << "looking for a database must not make one";
}

TEST_F(SqliteConnectionTest, SaysWhyAStatementFailedAndChangesNothing)
{
    auto connection = make();
    connection->execute(QStringLiteral("insert into t(id,名称)values(1,'a')"));
    struct Case
    {
        const char16_t *statement;
        const char *message;
    };
    const Case cases[] = {
        {u"insert into t(id,名称)values(1,'b')", "数据重复"},
        {u"insert into nothing(id)values(1)", "不存在"},
        {u"update t set nothing=1", "不存在"},
        {u"insert into t(id", "第"},
        {u"drop table t", "第"},
        {u"", ""},
    };
    for (const Case &c : cases) {
        const std::string message = messageOf([&] { connection->execute(QString::fromUtf16(c.statement)); });
        EXPECT_FALSE(message.empty()) << QString::fromUtf16(c.statement).toStdString();
        EXPECT_THAT(message, HasSubstr(c.message));
    }
    EXPECT_EQ(count(*connection), 1);
}

TEST_F(SqliteConnectionTest, ALockIsWaitedForAndThenSaid)
{
    auto first = make();
    auto second = make();
    second->setLockTimeout(10);
    first->begin();
    first->execute(QStringLiteral("insert into t(id)values(1)"));
    EXPECT_THAT(messageOf([&] { second->execute(QStringLiteral("insert into t(id)values(2)")); }),
                HasSubstr("占用"));
    EXPECT_THAT(messageOf([&] { second->begin(); }), HasSubstr("占用"));
    EXPECT_FALSE(second->inTransaction());
    EXPECT_EQ(count(*second), 0) << "readers are not kept waiting and see what was committed";
    first->commit();
    EXPECT_EQ(second->execute(QStringLiteral("insert into t(id)values(2)")), 1);
    EXPECT_EQ(count(*first), 2);
}

TEST_F(SqliteConnectionTest, AReadOnlyDatabaseIsReadAndNotWritten)
{
    make()->execute(QStringLiteral("insert into t(id)values(1)"));
    auto connection = Connection::open(QStringLiteral("file:%1?mode=ro").arg(path()));
    EXPECT_EQ(count(*connection), 1);
    EXPECT_THAT(messageOf([&] { connection->execute(QStringLiteral("delete from t")); }), HasSubstr("只读"));
    EXPECT_THAT(messageOf([&] { connection->executeNative("create table u(x)"); }), HasSubstr("只读"));
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

TEST_F(SqliteConnectionTest, GoesOnAfterAnotherProgramDroppedAColumn)
{
    auto connection = make();
    connection->execute(QStringLiteral("insert into t(id,名称)values(1,'a')"));
    const QString all = QStringLiteral("select * from t");
    EXPECT_EQ(connection->query(all).columnCount(), 5);
    make()->executeNative("alter table t drop column 内容; alter table t add column 备注 text");
    const RowBlock rows = connection->query(all);
    ASSERT_EQ(rows.columnCount(), 5);
    EXPECT_EQ(rows.columns()[4].name, QStringLiteral("备注"));
    EXPECT_THAT(messageOf([&] { (void)connection->query(QStringLiteral("select 内容 from t")); }),
                HasSubstr("列 内容 不存在"));
}

/// Modes of files do not bind root: the test reads as nobody.
class AsNobody
{
public:
    AsNobody()
        : m_isRoot(geteuid() == 0 && setresuid(65534, 65534, 0) == 0)
    {}
    AsNobody(const AsNobody &) = delete;
    AsNobody &operator=(const AsNobody &) = delete;
    ~AsNobody() { EXPECT_TRUE(!m_isRoot || setresuid(0, 0, 0) == 0); }

private:
    bool m_isRoot;
};

TEST_F(SqliteConnectionTest, ReadsFromAFolderThatCannotBeWritten)
{
    make()->executeNative("create table host_schema(version integer); insert into t(id) values(1)");
    const QString folder = QFileInfo(path()).absolutePath();
    constexpr auto readable = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    constexpr auto passable = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(path(), readable));
    ASSERT_TRUE(QFile::setPermissions(folder, readable | passable));
    {
        const AsNobody nobody;
        auto connection = Connection::open(path());
        EXPECT_EQ(count(*connection), 1);
        EXPECT_THAT(messageOf([&] { connection->execute(QStringLiteral("delete from t")); }),
                    HasSubstr("只读"));
    }
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(SqliteConnectionTest, LooksAtAForeignDatabaseWithoutChangingIt)
{
    write("empty.db", {});
    {
        auto connection = Connection::open(path("empty.db"));
        EXPECT_EQ(connection->query(QStringLiteral("select 1")).rowCount(), 1);
    }
    EXPECT_EQ(QFileInfo(path("empty.db")).size(), 0);
}

TEST_F(SqliteConnectionTest, PutsBlocksOfRowsIn)
{
    auto connection = make();
    RowBlock rows({{QStringLiteral("id"), ColumnType::Integer},
                   {QStringLiteral("名称"), ColumnType::Text},
                   {QStringLiteral("面积"), ColumnType::Number},
                   {QStringLiteral("日期"), ColumnType::Date},
                   {QStringLiteral("内容"), ColumnType::Binary}});
    const auto add = [&](int id) {
        rows.appendInteger(id);
        rows.append("带'引号'");
        rows.appendNumber(99.5);
        rows.appendDate("2026-09-08 14:05:09");
        rows.append(std::string_view("\0\1\2", 3));
    };
    add(1);
    add(2);
    connection->insertRows(QStringLiteral("t"), rows);
    const RowBlock back =
        connection->query(QStringLiteral("select * from t where 日期>#2026-9-8 14:00# and 面积=99.5"));
    ASSERT_EQ(back.rowCount(), 2);
    for (int column = 0; column < 5; ++column)
        EXPECT_EQ(back.value(1, column), rows.value(1, column)) << column;
    EXPECT_THAT(messageOf([&] { connection->insertRows(QStringLiteral("t"), rows); }), HasSubstr("重复"));
    EXPECT_EQ(count(*connection), 2) << "all or nothing";

    RowBlock nothing(
        {{QStringLiteral("名称"), ColumnType::Text}, {QStringLiteral("内容"), ColumnType::Binary}});
    nothing.append({});
    nothing.append({});
    connection->insertRows(QStringLiteral("t"), nothing);
    EXPECT_EQ(connection->queryNative("select count(*) from t where 名称='' and 内容=x''").cell(0, 0), "1")
        << "empty is not Null";
}

TEST_F(SqliteConnectionTest, KeepsTenMegabytesOfText)
{
    auto connection = make();
    const QString text = QStringLiteral("满五唯一").repeated(10 * 1024 * 1024 / 12);
    EXPECT_EQ(connection->execute(SqlText(QStringLiteral("insert into t(id,名称)values(1,'")) + typed(text) +
                                  u"')"),
              1);
    EXPECT_EQ(connection->query(QStringLiteral("select 名称 from t")).value(0, 0).toString(), text);
}

} // namespace ebtq::db
