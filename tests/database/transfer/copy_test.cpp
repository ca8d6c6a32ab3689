#include "database/transfer/database_copy.h"

#include "database/database_test.h"
#include "database/schema/installer.h"
#include "database/transfer/backup.h"
#include "database/transfer/table_digest.h"
#include "database/transfer/transfer_fixture.h"
#include "support/postgres_base.h"

#include <csignal>

namespace ebtq::db {

namespace {

using CopyTest = TransferTest;

} // namespace

TEST_F(CopyTest, CarriesEveryValueFromEngineToEngineAndBack)
{
    const auto source = make(path("a.db"));
    const test::PostgresBase base;
    const auto server = Connection::open(base.url());
    const auto back = make(path("c.db"));
    qint64 shown = 0;
    const CopyReport there =
        copyDatabase(*source, *server, [&shown](const QString &table, qint64 done, qint64 total) {
            EXPECT_LE(done, total) << table.toStdString();
            shown += done == total ? total : 0;
        });
    EXPECT_EQ(shown, there.rows);
    EXPECT_EQ(copyDatabase(*server, *back).rows, there.rows);
    EXPECT_TRUE(literals(*source) == literals(*back)) << "a value differs";
    EXPECT_EQ(checkSchema(*back), QStringList());
    for (Connection *target : {server.get(), back.get()}) {
        target->execute(u"insert into pubAttach(IDs) values('new')"_qs);
        EXPECT_EQ(target->query(u"select rowIndex from pubAttach where IDs='new'"_qs).cell(0, 0),
                  "2147483001");
    }
    // Only long whole numbers tell the engines apart; the program itself writes none.
    source->executeNative("update fyxx set 总面积=123456789012345678");
    const test::PostgresBase other;
    EXPECT_THAT(refusal([&] { copyDatabase(*source, *Connection::open(other.url())); }),
                HasSubstr("核对不符"));
    EXPECT_TRUE(Connection::open(other.url())->catalog().isEmpty());
}

TEST_F(CopyTest, EveryNewDatabaseHasStatistics)
{
    const auto rowsSeen = [](Connection &connection, const char *statement) {
        const RowBlock rows = connection.queryNative(statement);
        return rows.rowCount() == 0 ? 0 : rows.value(0, 0).toDouble();
    };
    const char *onFile = "select stat+0 from sqlite_stat1 where idx='ix_fygj_owner'";
    const auto source = make(path("a.db"));
    EXPECT_EQ(rowsSeen(*source, onFile), 30) << "sample data";
    source->executeNative("drop table sqlite_stat1");
    const test::PostgresBase base;
    const auto server = Connection::open(base.url());
    copyDatabase(*source, *server);
    EXPECT_EQ(rowsSeen(*server, "select reltuples from pg_class where relname='ix_fygj_owner'"), 30);
    copyDatabase(*source, *make(path("b.db")));
    backUp(path("a.db"), path("a.bak"), false);
    restore(path("a.bak"), path("c.db"));
    for (const char *made : {"b.db", "c.db"})
        EXPECT_EQ(rowsSeen(*make(path(made)), onFile), 30) << made;
}

TEST_F(CopyTest, ChecksumsSeeEveryChangeOfAValueAndNoOrder)
{
    const auto connection = make(u":memory:"_qs);
    install(*connection);
    connection->executeNative(
        "insert into pubAttach(rowIndex,IDs,filename,filesize,createdate,contents) values"
        "(1,'a','x',0.1,'2026-11-24',x'0001'),(2,'b','y',12,null,x'0002'),"
        "(3,'c','',1e17,'2026-11-24 10:00:00',null)");
    QStringList columns;
    for (const Column &column : connection->catalog().table(u"pubAttach")->columns)
        columns << column.name;
    const auto digest = [&] { return digestOf(*connection, u"pubAttach"_qs, columns); };
    const TableDigest before = digest();
    const char *changes[] = {
        "update pubAttach set filesize=0.10000000000000002 where rowIndex=1",
        "update pubAttach set filesize=100000000000000016 where rowIndex=3",
        "update pubAttach set contents=x'0003' where rowIndex=1",
        "update pubAttach set filename=case rowIndex when 1 then 'y' when 2 then 'x' else filename end",
        "update pubAttach set IDs='ax',filename='' where rowIndex=1",
        "update pubAttach set filename=null where rowIndex=3",
        "update pubAttach set contents=x'' where rowIndex=3",
        "update pubAttach set createdate='2026-11-25' where rowIndex=1",
        "update pubAttach set filename='X' where rowIndex=1",
        "delete from pubAttach where rowIndex=2",
        "insert into pubAttach(IDs) values('d')",
    };
    for (const char *change : changes) {
        const Transaction undone(*connection);
        connection->executeNative(change);
        EXPECT_NE(digest(), before) << change;
    }
    connection->executeNative("create table other as select * from pubAttach; delete from pubAttach;"
                              "insert into pubAttach select * from other where rowIndex>1;"
                              "insert into pubAttach select * from other where rowIndex=1;"
                              "update pubAttach set createdate='2026-11-24 00:00:00' where rowIndex=1");
    EXPECT_EQ(digest(), before);
}

TEST_F(CopyTest, LeavesTheTargetAsItWasWhateverGoesWrong)
{
    // What is done to the source and to the target before, what stands behind the target's path, the failure.
    const std::tuple<const char *, const char *, const char *, const char *> cases[] = {
        {"", "pragma max_page_count=200", "", "磁盘空间不足"},
        {"", "", "?mode=ro", "只读"},
        {"", "create table other(x)", "", "其他程序的表"},
        {"update host_schema set version=0", "", "", "升级"},
        {"update host_schema set version=2; drop table host_rights", "", "", "host_rights"},
        {"drop table host_schema", "", "", "尚未初始化"},
    };
    const auto source = make(path("a.db"));
    for (const auto &[toSource, toTarget, mode, message] : cases) {
        source->executeNative(toSource);
        (void)make(path("b.db"));
        const auto target = Connection::open(u"file:%1%2"_qs.arg(path("b.db"), QLatin1String(mode)));
        target->executeNative(toTarget);
        const int tables = countOf(*target, "sqlite_master");
        EXPECT_THAT(refusal([&] { copyDatabase(*source, *target); }), HasSubstr(message));
        EXPECT_EQ(countOf(*target, "sqlite_master"), tables) << message;
        EXPECT_FALSE(target->inTransaction() || source->inTransaction()) << message;
        QFile::remove(path("b.db"));
    }
}

TEST_F(CopyTest, RefusesATargetWithRowsAndUndoesACopyThatDiffers)
{
    const auto source = make(path("a.db"));
    source->executeNative(
        "alter table fyxx add column 自定 text;"
        "insert into pubAttach(rowIndex,filesize) values(9007199254740993,123456789012345678)");
    const auto target = make(path("b.db"));
    install(*target);
    target->executeNative("create trigger t after insert on pdmdq begin update pdmdq set 级次=级次+1; end");
    EXPECT_THAT(refusal([&] { copyDatabase(*source, *target); }), HasSubstr("pdmdq"));
    EXPECT_EQ(countOf(*target, "fyxx"), 0);
    target->executeNative("drop trigger t");
    EXPECT_EQ(copyDatabase(*source, *target).leftOut, QStringList{u"fyxx.自定"_qs});
    EXPECT_TRUE(literals(*source) == literals(*target));
    EXPECT_THAT(refusal([&] { copyDatabase(*source, *target); }), HasSubstr("已有数据"));
}

TEST_F(CopyTest, CopiesOneMomentWhileOthersWrite)
{
    const auto source = make(path("a.db"));
    const auto writer = make(path("a.db"));
    const auto target = make(path("b.db"));
    const std::string before = literals(*source);
    copyDatabase(*source, *target, [&](const QString &table, qint64 done, qint64) {
        writer->executeNative("delete from fykh where 客源ID=(select min(客源ID) from fykh);"
                              "update fyxx set 房号=房号||'x'; update host_schema set version=9");
        if (table == u"fyxx")
            writer->execute(u"insert into fyxx(房源ID) values('new%1')"_qs.arg(done));
    });
    EXPECT_TRUE(literals(*target) == before);
    EXPECT_FALSE(literals(*writer) == before) << "nothing was written meanwhile";
}

TEST_F(CopyTest, AKillLeavesNothingThatLooksLikeADatabase)
{
    EXPECT_EXIT(
        {
            const auto source = make(path("a.db"));
            const auto target = make(path("b.db"));
            copyDatabase(*source, *target, [](const QString &table, qint64 done, qint64) {
                if (table == u"host_modules" && done > 0) // nearly all is written
                    std::raise(SIGKILL);
            });
        },
        ::testing::KilledBySignal(SIGKILL), "");
    const auto target = Connection::open(path("b.db"));
    EXPECT_EQ(countOf(*target, "sqlite_master"), 0);
    EXPECT_THAT(checkSchema(*target).join(u' ').toStdString(), HasSubstr("尚未初始化"));
    const auto source = make(path("a.db"));
    copyDatabase(*source, *target);
    EXPECT_TRUE(literals(*source) == literals(*target));
}

} // namespace ebtq::db
