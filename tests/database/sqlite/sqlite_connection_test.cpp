#include "database/database_test.h"
#include "support/as_nobody.h"
#include "support/full_disk.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace ebtq::db {

namespace {

using ebtq::test::AsNobody;
using ::testing::AllOf;

class SqliteConnectionTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    [[nodiscard]] QByteArray bytePath(const char *name) const { return QFile::encodeName(path(name)); }
    [[nodiscard]] std::unique_ptr<Connection> make(const char *name = "a.db") const
    {
        auto connection = Connection::open(path(name), Connection::Missing::IsCreated);
        connection->executeNative(
            "create table if not exists host_schema(version integer);"
            "create table if not exists t(id integer primary key, 面积 numeric, 内容 text)");
        return connection;
    }
    void closeFolder(bool closed) const
    {
        ASSERT_EQ(::chmod(bytePath("").constData(), closed ? 0555 : 0777), 0);
    }

    QTemporaryDir m_folder;
};

int count(Connection &connection)
{
    return connection.query(u"select count(*) from t"_qs).value(0, 0).toInt();
}

void insert(Connection &connection)
{
    connection.execute(u"insert into t(内容) values('甲')"_qs);
}

} // namespace

TEST_F(SqliteConnectionTest, NothingIsSavedIntoAFileThatLostItsName)
{
    const auto move = [this] { QFile::rename(path("a.db"), path("b.db")); };
    const std::pair<const char *, std::function<void()>> cases[] = {
        {"renamed", move},
        {"replaced",
         [&] {
             move();
             QFile::copy(path("b.db"), path("a.db"));
         }},
        {"deleted", [this] { QFile::remove(path("a.db")); }},
        {"its log deleted", [this] { QFile::remove(path("a.db-wal")); }},
    };
    for (const auto &[what, act] : cases) {
        const auto connection = make();
        insert(*connection);
        connection->begin();
        insert(*connection);
        act();
        EXPECT_THAT(messageOf([&] { connection->commit(); }), HasSubstr("已被移动")) << what;
        connection->rollback();
        EXPECT_THAT(messageOf([&] { connection->begin(); }), HasSubstr("已被移动")) << what;
        EXPECT_THAT(messageOf([&] { insert(*connection); }), HasSubstr("已被移动")) << what;
        EXPECT_EQ(count(*connection), 1) << what;
        for (const char *left : {"a.db", "a.db-wal", "a.db-shm", "b.db"})
            QFile::remove(path(left));
    }
    const auto real = make("b.db");
    ASSERT_TRUE(QFile::link(path("b.db"), path("link.db")));
    const auto connection = make("link.db");
    connection->begin();
    (void)make("c.db");
    QFile::remove(path("link.db"));
    ASSERT_TRUE(QFile::link(path("c.db"), path("link.db")));
    EXPECT_THAT(messageOf([&] { connection->commit(); }), HasSubstr("已被移动")) << "the link";
}

TEST_F(SqliteConnectionTest, ANewDatabaseIsItsOwnersAlone)
{
    const mode_t before = ::umask(0);
    const auto connection = make();
    ::umask(before);
    for (const char *name : {"a.db", "a.db-wal", "a.db-shm"}) {
        struct stat file = {};
        ASSERT_EQ(::stat(bytePath(name).constData(), &file), 0);
        EXPECT_EQ(file.st_mode & 0777, 0600U) << name;
    }
}

/// A reader who takes the file for unchanging would see old rows, and then damage, once a colleague saves.
TEST_F(SqliteConnectionTest, AFolderThatCannotBeWrittenIsNamed)
{
    insert(*make());
    ASSERT_EQ(::chmod(bytePath("a.db").constData(), 0644), 0);
    closeFolder(true);
    {
        const AsNobody nobody;
        const auto names = AllOf(HasSubstr("文件夹不可写"), HasSubstr(m_folder.path().toStdString()));
        EXPECT_THAT(messageOf([&] { (void)Connection::open(path("a.db")); }), names);
        EXPECT_THAT(messageOf([&] { (void)make("new.db"); }), names);
    }
    closeFolder(false);
    const auto colleague = make();
    {
        const AsNobody nobody;
        const auto reader = Connection::open(path("a.db"));
        EXPECT_TRUE(reader->isReadOnly());
        EXPECT_THAT(messageOf([&] { insert(*reader); }), HasSubstr("只读"));
    }
    EXPECT_FALSE(colleague->isReadOnly());
    EXPECT_THAT(messageOf([&] { (void)make("no/folder.db"); }), HasSubstr("文件夹不存在"));
    EXPECT_THAT(messageOf([&] { (void)Connection::open(path("none.db")); }), HasSubstr("找不到数据库文件"));
}

TEST_F(SqliteConnectionTest, ADiscIsReadWithoutALog)
{
    const QByteArray folder = bytePath("");
    if (geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0 ||
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("none", folder.constData(), "tmpfs", 0, "size=4m") != 0)
        GTEST_SKIP() << "only root may mount";
    insert(*make());
    ASSERT_EQ(::mount("none", folder.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    {
        const auto connection = Connection::open(path("a.db"));
        EXPECT_EQ(count(*connection), 1);
        EXPECT_TRUE(connection->isReadOnly());
    }
    ASSERT_EQ(::umount(folder.constData()), 0);
}

TEST_F(SqliteConnectionTest, AFullDiskIsSaidWhateverCannotBeWritten)
{
    insert(*make());
    const QString large(3000000, u'甲');
    const auto open = make("b.db");
    const std::tuple<const char *, rlim_t, std::function<void()>> cases[] = {
        {"no room for a new database", 0, [&] { (void)make("new.db"); }},
        {"no room to begin the log", 0, [&] { insert(*Connection::open(path("a.db"))); }},
        {"the log cannot grow", 100000,
         [&] { open->execute(u"insert into t(内容) values('%1')"_qs.arg(large)); }},
    };
    for (const auto &[what, size, act] : cases) {
        const ebtq::test::FullDisk full(size);
        EXPECT_THAT(messageOf(act), HasSubstr("磁盘空间不足")) << what;
    }
    EXPECT_EQ(count(*open), 0);
    insert(*open);
}

TEST_F(SqliteConnectionTest, WhatASchemaSaysIsNotTrusted)
{
    const auto connection = make();
    connection->executeNative("create view v as select * from pragma_database_list");
    const std::pair<const char *, const char *> cases[] = {
        {"select * from v", "unsafe use"},
        {"pragma writable_schema=1; delete from sqlite_master where name='t'", "may not be modified"},
    };
    for (const auto &[statement, message] : cases)
        EXPECT_THAT(messageOf([&] { connection->executeNative(statement); }), HasSubstr(message));
}

TEST_F(SqliteConnectionTest, ShowsLargeNumbersAlikeHoweverTheyAreKept)
{
    auto connection = make();
    connection->executeNative(
        "insert into t(id,面积) values(1,999999999999999),(2,1000000000000000),(3,-2e15),(4,1.5e16)");
    const RowBlock rows = connection->query(u"select 面积, '' & 面积 from t order by id"_qs);
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
        insert(*connection);
    }
    EXPECT_EQ(count(*connection), 0);
    {
        Transaction outer(*connection);
        insert(*connection);
        {
            Transaction inner(*connection);
            insert(*connection);
            inner.commit();
        }
        EXPECT_TRUE(connection->inTransaction()) << "an inner one joins and leaves the outer one open";
        outer.commit();
    }
    EXPECT_EQ(count(*connection), 2);
}

/// Whichever plan is taken, in order; also where rows have no numbers by which few of them are known.
TEST_F(SqliteConnectionTest, RowsWithinABoundAreThoseThatMeetIt)
{
    const auto connection = make();
    const auto within = [&](const char16_t *table, int least) {
        const SqlText sql =
            SqlText(u"select id from %1 where 1=1 and 面积>="_qs.arg(QString::fromUtf16(table))) +
            typed(QString::number(least)) + QStringView(u" order by id desc");
        QStringList ids;
        const RowBlock rows = connection->query(sql);
        for (qsizetype row = 0; row < rows.rowCount(); ++row)
            ids += rows.value(row, 0).toString();
        return ids.join(u' ').toStdString();
    };
    connection->executeNative("create index a on t(面积);"
                              "create table u(id text primary key, 面积 numeric) without rowid;"
                              "create index b on u(面积)");
    EXPECT_EQ(within(u"t", 7), "") << "none at all";
    connection->executeNative("with recursive n(i) as (select 1 union all select i+1 from n where i<60)"
                              "insert into t(id,面积) select i,i from n;"
                              "insert into u select id,面积 from t");
    EXPECT_EQ(within(u"t", 60), "60");
    EXPECT_EQ(within(u"t", 57), "60 59 58 57");
    EXPECT_EQ(within(u"t", 1).size(), size_t(60 * 3 - 10));
    EXPECT_EQ(within(u"u", 60), "60");
}

TEST_F(SqliteConnectionTest, AForeignDatabaseIsLookedAtAndNotChanged)
{
    ASSERT_TRUE(QFile(path("a.db")).open(QIODevice::WriteOnly));
    EXPECT_EQ(Connection::open(path("a.db"))->query(u"select 1"_qs).rowCount(), 1);
    EXPECT_EQ(QFile(path("a.db")).size(), 0);
}

} // namespace ebtq::db
