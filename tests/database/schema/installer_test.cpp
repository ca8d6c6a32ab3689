#include "database/schema/installer.h"

#include "database/database_test.h"
#include "database/dialect/translator.h"

#include <QFile>
#include <QTemporaryDir>

namespace ebtq::db {

namespace {

std::unique_ptr<Connection> installed()
{
    auto connection = Connection::open(u":memory:"_qs);
    install(*connection);
    return connection;
}

} // namespace

TEST(Installer, SaysWhatItCannotMend)
{
    auto connection = installed();
    connection->executeNative("alter table pdmsjzd rename column ID to 编号");
    EXPECT_THAT(joined(checkSchema(*connection)), HasSubstr("缺少列 pdmsjzd.ID"));
    const std::string message = messageOf([&] { install(*connection); });
    EXPECT_THAT(message, HasSubstr("pdmsjzd.ID")) << "a key cannot be made up";
    EXPECT_THAT(message, HasSubstr("备份"));
    EXPECT_FALSE(connection->inTransaction());
}

TEST(Installer, MarksAFileOfAnEarlierVersionAndRefusesOneOfAnother)
{
    auto connection = installed();
    const auto mark = [&connection] {
        return connection->queryNative("pragma application_id").value(0, 0).toInt();
    };
    EXPECT_EQ(mark(), 0x45425451);
    connection->executeNative("pragma application_id=0; update host_schema set version=1");
    install(*connection);
    EXPECT_EQ(mark(), 0x45425451);
    for (const char *script :
         {"pragma application_id=7", "drop table host_schema; pragma application_id=0"}) {
        connection->executeNative(script);
        EXPECT_THAT(messageOf([&] { requireCurrent(*connection); }), HasSubstr("不是本系统")) << script;
        EXPECT_THAT(messageOf([&] { install(*connection); }), HasSubstr("--take-over")) << script;
    }
    connection->executeNative("pragma application_id=1161974865");
    EXPECT_THAT(messageOf([&] { requireCurrent(*connection); }), HasSubstr("没有记录版本"));
}

TEST(Installer, DropsRetiredIndexesOfItsOwnVersionToo)
{
    auto connection = installed();
    connection->executeNative("create index ix_fyxx_area on fyxx(总面积)");
    install(*connection);
    EXPECT_EQ(connection->queryNative("select 1 from sqlite_master where name='ix_fyxx_area'").rowCount(), 0);
}

TEST(Installer, ADamagedTreeIsFoundBeforeWorkBegins)
{
    for (const char *tree : {"fyxx", "ix_fykh_number"}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.db"_qs);
        const auto made = Connection::open(path, Connection::Missing::IsCreated);
        install(*made);
        const auto page =
            made->queryNative(QByteArray("select rootpage-1 from sqlite_master where name='") + tree + "'");
        made->executeNative("pragma journal_mode=delete");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(16384 * page.value(0, 0).toLongLong()));
        file.write(QByteArray(16384, 'x'));
        file.close();
        EXPECT_THAT(messageOf([&] { requireCurrent(*Connection::open(path)); }), HasSubstr("已损坏")) << tree;
    }
}

TEST(Installer, KeepsWrongKindsOfValuesOut)
{
    auto connection = installed();
    for (const char *statement :
         {"insert into fyxx(房源ID,总面积) values('A','很大')",
          "insert into fyxx(房源ID,委托日期) values('A','2026-9-8')",
          "insert into fyxx(房源ID,业务员ID) values('A','张敏')",
          "insert into fyxx(房源ID,业务员ID) values('A',2147483648)",
          "insert into pdmcq(产权ID) values(1e18)", "insert into pdmcq(产权ID) values(null)",
          "insert into pdmcq(产权名称) values('x')"})
        EXPECT_THROW(connection->executeNative(statement), DatabaseError) << statement;
    connection->executeNative(
        "insert into fyxx(房源ID,总面积,委托日期,业务员ID) values('A',88.5,'2026-09-08',3)");
    EXPECT_THROW(connection->executeNative("insert into fyxx(房源ID) values('a')"), DatabaseError)
        << "keys are the same without regard to case";
}

TEST(Installer, IndexesServeTheirStatements)
{
    auto connection = installed();
    const std::pair<const char *, const char *> cases[] = {
        {"select 房源ID from fyxx where 地区='x' order by 房源编号 desc", "ix_fyxx_district"},
        {"select 房源ID from fyxx where 楼盘字典='x' order by 房源编号 desc", "ix_fyxx_building"},
        {"select 房源ID from fyxx where 业务员ID=1 order by 房源编号 desc", "ix_fyxx_agent"},
        {"select 房源ID from fyxx where 操作日期>'2026-01-01'", "ix_fyxx_changed"},
        {"select (select count(rowIndex) from pubAttach where isActive=1 and isPicture<>1 and progID=1 and"
         " IDs=A.房源ID) from fyxx A",
         "COVERING INDEX ix_pubAttach_owner"},
        {"select 跟进ID from fygj where 房源ID='x' order by 操作日期 desc", "ix_fygj_owner"},
        {"select 客源ID from fykh where 客源编号>'x' order by 客源编号 limit 1", "ix_fykh_number"},
        {"select 房源ID from fyxx where 总面积>=80 and 总面积<=90", "ix_fyxx_match_area"},
        {"select 名称 from pdmsjzd where 类型='x' order by 代码", "ix_pdmsjzd_kind"},
    };
    for (const auto &[statement, index] : cases)
        EXPECT_THAT(planOf(*connection, "explain query plan", statement),
                    AllOf(HasSubstr(index), Not(HasSubstr("TEMP B-TREE"))))
            << statement;
}

TEST(Installer, CustomersWhoMayMatchAreSearchedByThatWhichTellsMost)
{
    auto connection = installed();
    const QString floor = u" and 楼层1<=3 and 楼层2>=3"_qs;
    const QString area = u" and 面积1<=90.5 and 面积2>=90.5"_qs;
    const QString price = u" and 求购价格1<=150 and 求购价格2>=150"_qs;
    const QString rent = u" and 求租价格1<=2500 and 求租价格2>=2500"_qs;
    const std::pair<QString, const char *> cases[] = {
        {floor + area + price, "SEARCH t0 USING INDEX ix_fykh_match_buy (求购价格2>?)"},
        {floor + area + rent, "SEARCH t0 USING INDEX ix_fykh_match_rent (求租价格2>?)"},
        {floor + area, "SEARCH t0 USING INDEX ix_fykh_match_area (面积2>?)"},
        {area, "SEARCH t0 USING INDEX ix_fykh_match_area (面积2>?)"},
        {floor, "SCAN t0 USING INDEX ix_fykh_number"},
        {QString(), "SCAN t0 USING INDEX ix_fykh_number"},
        // Two limits that somebody set are nothing rare.
        {u" and 面积1<=90 and 求购价格2>=150"_qs, "SCAN t0 USING INDEX ix_fykh_number"},
    };
    for (const auto &[conditions, expected] : cases) {
        const SqlText statement(
            u"select 客户名称 from fykh where 1=1%1 order by 客源编号"_qs.arg(conditions));
        const Translation translation = translate(statement, connection->dialect(), connection->catalog());
        EXPECT_THAT(planOf(*connection, "explain query plan", translation.sql), HasSubstr(expected))
            << translation.sql.toStdString();
    }
}

} // namespace ebtq::db
