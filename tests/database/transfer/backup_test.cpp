#include "database/transfer/backup.h"

#include "database/database_test.h"
#include "database/schema/installer.h"
#include "database/transfer/transfer_fixture.h"

#include "support/as_nobody.h"

#include <QFile>

#include <sys/stat.h>

namespace ebtq::db {

namespace {

class BackupTest : public TransferTest
{
protected:
    [[nodiscard]] std::string contents(const char *name) const { return literals(*make(path(name))); }
    [[nodiscard]] QByteArray bytes(const char *name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << name;
        return file.readAll();
    }
    void write(const char *name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }
};

QByteArray flipped(QByteArray bytes, qsizetype at)
{
    return bytes.replace(at, 1, QByteArray(1, static_cast<char>(bytes[at] ^ 1)));
}

} // namespace

TEST_F(BackupTest, TakesOneMomentWhileTheDatabaseIsWrittenAndComesBack)
{
    const std::string before = contents("a.db");
    const auto writer = make(path("a.db"));
    int steps = 0;
    backUp(path("a.db"), path("a.bak"), false, [&](int done, int total) {
        EXPECT_LE(done, total);
        writer->execute(u"insert into fyxx(房源ID) values('new%1')"_qs.arg(++steps));
        writer->execute(u"delete from fykh"_qs);
    });
    EXPECT_GT(steps, 3) << "small steps";
    EXPECT_EQ(names(), (QStringList{u"a.bak"_qs, u"a.db"_qs, u"a.db-shm"_qs, u"a.db-wal"_qs}));

    EXPECT_THAT(refusal([&] { restore(path("a.bak"), path("a.db")); }), HasSubstr("其他程序"));
    EXPECT_EQ(countOf(*writer, "fykh"), 0);
    const BackupOutcome fresh = restore(path("a.bak"), path("b.db"));
    EXPECT_EQ(fresh.keptAside, QString());
    EXPECT_TRUE(fresh.hasChecksums);
    EXPECT_TRUE(contents("b.db") == before);
    EXPECT_EQ(checkSchema(*make(path("b.db"))), QStringList());
    EXPECT_FALSE(make(path("b.db"))->catalog().table(u"host_backup"));
}

TEST_F(BackupTest, KeepsWhatARestoreReplaces)
{
    backUp(path("a.db"), path("a.bak"), false);
    const std::string before = contents("a.db");
    make(path("a.db"))->executeNative("delete from fyxx");
    const auto mode = QFile::permissions(path("a.db"));
    const BackupOutcome outcome = restore(path("a.bak"), path("a.db"));
    EXPECT_TRUE(contents("a.db") == before);
    EXPECT_EQ(QFile::permissions(path("a.db")), mode);
    EXPECT_EQ(countOf(*Connection::open(outcome.keptAside), "fyxx"), 0);
    EXPECT_THAT(outcome.keptAside.toStdString(), ::testing::ContainsRegex("a\\.db\\.20[0-9]{6}-[0-9]{6}$"));
    EXPECT_FALSE(restore(outcome.keptAside, path("c.db")).hasChecksums);

    make(path("a.db"))->executeNative("delete from fyxx");
    ASSERT_TRUE(QFile::link(path("a.db"), path("link.db")));
    const QString keptNext = restore(path("a.bak"), path("link.db")).keptAside;
    EXPECT_TRUE(contents("a.db") == before) << "the link was replaced";
    EXPECT_NE(keptNext, restore(path("a.bak"), path("a.db")).keptAside) << "within one second";

    // A database that is past reading goes aside with the log that belongs to it.
    write("b.db", QByteArray(40000, 'x'));
    write("b.db-wal", "log");
    const BackupOutcome damaged = restore(path("a.bak"), path("b.db"));
    EXPECT_TRUE(contents("b.db") == before);
    EXPECT_TRUE(QFile::exists(damaged.keptAside + u"-wal"_qs));
}

TEST_F(BackupTest, WhoeverCouldUseTheReplacedDatabaseCanUseTheRestored)
{
    backUp(path("a.db"), path("a.bak"), false);
    const QByteArray database = QFile::encodeName(path("a.db"));
    constexpr gid_t agency = 4321;
    const auto accessOf = [](const QByteArray &name) {
        struct stat file = {};
        EXPECT_EQ(::stat(name.constData(), &file), 0);
        return std::pair(file.st_gid, file.st_mode & 0777);
    };
    ASSERT_EQ(::chmod(QFile::encodeName(path("")).constData(), 0777), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path("a.bak")).constData(), 0644), 0);
    if (::chown(database.constData(), 0, agency) != 0)
        GTEST_SKIP() << "only root gives files away";
    ASSERT_EQ(::chmod(database.constData(), 0660), 0);
    {
        const ebtq::test::AsNobody member(agency);
        restore(path("a.bak"), path("a.db"));
    }
    EXPECT_EQ(accessOf(database), std::pair(agency, 0660U));
    ASSERT_EQ(::chmod(database.constData(), 0666), 0);
    {
        const ebtq::test::AsNobody stranger;
        EXPECT_THAT(refusal([&] { restore(path("a.bak"), path("a.db")); }), HasSubstr("属组"));
        restore(path("a.bak"), path("b.db"));
    }
    EXPECT_EQ(accessOf(database), std::pair(agency, 0666U));
    EXPECT_EQ(accessOf(QFile::encodeName(path("b.db"))).second, 0600U);
}

TEST_F(BackupTest, ADamagedBackupIsRefusedAndNothingIsTouched)
{
    backUp(path("a.db"), path("a.bak"), false);
    backUp(path("a.db"), path("a.bak"), true);
    write("b.db", "what stands here");
    const QByteArray good = bytes("a.bak");
    const std::pair<const char *, QByteArray> cases[] = {
        {"no database", QByteArray(20000, 'x')},
        {"cut in half", good.first(good.size() / 2)},
        {"cut by a byte", good.chopped(1)},
        {"header", flipped(good, 3)},
        {"a listing's text", flipped(good, good.indexOf("{hard-1}") + 3)},
        {"inside a picture", flipped(good, good.indexOf("照片照片") + 100000)},
        {"a recorded checksum",
         flipped(good, good.indexOf("fyxx", good.indexOf("create table host_backup")) + 8)},
        {"a page of a tree", flipped(good, 16384 * 7)},
    };
    const QStringList before = names();
    for (const auto &[what, bytesOfCase] : cases) {
        write("a.bak", bytesOfCase);
        EXPECT_NE(refusal([&] { restore(path("a.bak"), path("b.db")); }), "") << what;
        EXPECT_EQ(names(), before) << what;
    }
    EXPECT_EQ(bytes("b.db"), "what stands here");
}

TEST_F(BackupTest, RefusesWhatWouldLoseSomething)
{
    make(path("other.db"))->executeNative("create table t(x)");
    make(path("blank.db"))->executeNative("create table host_schema(version integer)");
    write("taken", "mine");
    const std::tuple<const char *, const char *, bool, const char *> cases[] = {
        {"a.db", "taken", false, "--replace"},       {"a.db", "a.db", true, "同一个文件"},
        {"none.db", "b", false, "找不到"},           {"other.db", "b", false, "不是本系统"},
        {"taken", "b", false, "不是数据库"},         {"a.db", "no/folder/b", false, "文件夹不存在"},
        {"blank.db", "b", false, "ebtq-admin init"},
    };
    const QStringList before = names();
    for (const auto &[database, file, replaced, message] : cases)
        EXPECT_THAT(refusal([&] { backUp(path(database), path(file), replaced); }), HasSubstr(message));
    EXPECT_THAT(refusal([&] { restore(path("a.db"), path("a.db")); }), HasSubstr("同一个文件"));
    EXPECT_EQ(names(), before);
    EXPECT_THAT(refusal([&] { restore(path("blank.db"), path("b")); }), HasSubstr("ebtq-admin init"));
    EXPECT_EQ(bytes("taken"), "mine");
}

} // namespace ebtq::db
