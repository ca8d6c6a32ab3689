#include "database/database_test.h"
#include "database/schema/installer.h"
#include "support/engine_database.h"

namespace ebtq::db::test {

namespace {

using namespace ebtq::test;

/// What a connection promises, whatever the engine.
class ConnectionTest : public EngineTest
{
protected:
    ConnectionTest() { install(*m_connection); }
    qint64 execute(const char16_t *statement) { return m_connection->execute(QString::fromUtf16(statement)); }
    [[nodiscard]] std::string cell(const char16_t *statement)
    {
        const RowBlock rows = m_connection->query(QString::fromUtf16(statement));
        return rows.rowCount() == 0 ? "no row" : std::string(rows.cell(0, 0));
    }

    std::unique_ptr<Connection> m_connection = connect();
};

} // namespace

TEST_P(ConnectionTest, AFailedStatementLeavesTheOthersOfItsTransaction)
{
    execute(u"insert into pdmgy(雇员ID,姓名)values(1,'甲')");
    m_connection->begin();
    execute(u"insert into pdmgy(雇员ID,姓名)values(2,'乙')");
    const std::pair<const char16_t *, const char *> cases[] = {
        {u"insert into pdmgy(雇员ID,姓名)values(1,'again')", "数据重复"},
        {u"update pdmgy set 雇员ID=雇员ID & 'x'", "不是数字"},
        {u"select 无此列 from pdmgy", "列 无此列 不存在"},
        {u"update pdmgy set", "第"},
    };
    for (const auto &[statement, message] : cases) {
        EXPECT_THAT(messageOf([&] { execute(statement); }), HasSubstr(message));
        EXPECT_TRUE(m_connection->inTransaction());
        EXPECT_EQ(cell(u"select count(*) from pdmgy"), "2") << message;
    }
    EXPECT_THAT(messageOf([&] { m_connection->begin(); }), HasSubstr("事务"));
    m_connection->commit();
    EXPECT_FALSE(m_connection->inTransaction());
    EXPECT_EQ(cell(u"select 姓名 from pdmgy where 雇员ID=2"), "乙");
    EXPECT_FALSE(messageOf([&] { m_connection->commit(); }).empty()) << "nothing was open";
}

TEST_P(ConnectionTest, ALockIsWaitedForAndThenSaid)
{
    execute(u"insert into pdmgy(雇员ID,姓名)values(1,'甲')");
    const auto second = connect();
    second->setLockTimeout(20);
    m_connection->begin();
    execute(u"update pdmgy set 姓名='乙'");
    const auto update = [&] { second->execute(u"update pdmgy set 姓名='丙'"_qs); };
    EXPECT_THAT(messageOf(update), HasSubstr("占用"));
    EXPECT_EQ(second->query(u"select 姓名 from pdmgy"_qs).cell(0, 0), "甲");
    m_connection->commit();
    EXPECT_EQ(messageOf(update), "");
    EXPECT_EQ(cell(u"select 姓名 from pdmgy"), "丙");
}

TEST_P(ConnectionTest, AWholeTableIsReadExactlyAndAsOfOneMoment)
{
    execute(u"insert into fyxx(房源ID,总面积,售房价格,委托日期,操作日期)values('A',1/3,1e15,#2026-9-8#,"
            u"#2026-9-8 7:05#)");
    m_connection->beginReading();
    connect()->execute(u"insert into fyxx(房源ID)values('B')"_qs);
    std::vector<std::string> cells;
    m_connection->readTable(
        u"fyxx"_qs, {u"房源ID"_qs, u"总面积"_qs, u"售房价格"_qs, u"委托日期"_qs, u"操作日期"_qs, u"备注"_qs},
        [&](const RowBlock &block) {
            for (size_t at = 0; at < block.cellCount(); ++at)
                cells.emplace_back(block.cellAt(at));
        });
    EXPECT_THAT(cells, ::testing::ElementsAre("A", "0.3333333333333333", "1000000000000000", "2026-09-08",
                                              "2026-09-08 07:05:00", ""));
    EXPECT_THROW(m_connection->readTable(u"fyxx"_qs, {u"无此列"_qs}, [](const RowBlock &) {}), DatabaseError);
    m_connection->rollback();
    EXPECT_EQ(cell(u"select count(*) from fyxx"), "2");
    EXPECT_EQ(cell(u"select 总面积 from fyxx where 房源ID='A'"), "0.333333333333333");
}

TEST_P(ConnectionTest, ALongReadComesInPiecesAndCanBeGivenUp)
{
    RowBlock block({{u"雇员ID"_qs, ColumnType::Integer}});
    for (int id = 1; id <= 20000; ++id)
        block.appendInteger(id);
    m_connection->insertRows(u"pdmgy"_qs, block);
    EXPECT_THAT(messageOf([&] { m_connection->insertRows(u"pdmgy"_qs, block); }), HasSubstr("数据重复"));
    EXPECT_FALSE(m_connection->inTransaction());
    const auto giveUp = [](const RowBlock &) { throw std::length_error("enough"); };
    for (const bool isInTransaction : {false, true}) {
        if (isInTransaction)
            m_connection->begin();
        int blocks = 0;
        m_connection->readTable(u"pdmgy"_qs, {u"雇员ID"_qs}, [&blocks](const RowBlock &) { ++blocks; });
        EXPECT_GT(blocks, 2) << "all rows were held at once";
        EXPECT_THROW(m_connection->readTable(u"pdmgy"_qs, {u"雇员ID"_qs}, giveUp), std::length_error);
        EXPECT_EQ(cell(u"select count(*) from pdmgy"), "20000");
    }
    EXPECT_EQ(execute(u"delete from pdmgy where 雇员ID>5"), 19995);
    m_connection->commit();
    EXPECT_EQ(cell(u"select count(*) from pdmgy"), "5");
}

TEST_P(ConnectionTest, SeesTablesThatAnotherProgramChanged)
{
    const auto all = [&] { return m_connection->query(u"select * from pdmgy"_qs).columnCount(); };
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(all(), 2);
    const auto other = connect();
    other->executeNative("alter table pdmgy add column 备注 text; create table 新表(x integer)");
    EXPECT_EQ(cell(u"select 备注 from pdmgy"), "no row");
    EXPECT_EQ(cell(u"select x from 新表"), "no row");
    EXPECT_EQ(all(), 3);
    other->executeNative("alter table pdmgy drop column 备注; alter table pdmgy add column 说明 text");
    EXPECT_EQ(m_connection->query(u"select * from pdmgy"_qs).columns()[2].name, u"说明");
    EXPECT_THAT(messageOf([&] { (void)cell(u"select 备注 from pdmgy"); }), HasSubstr("列 备注 不存在"));
    other->executeNative("alter table pdmgy drop column 说明; drop table 新表");
    EXPECT_EQ(all(), 2);
    EXPECT_THAT(messageOf([&] { (void)cell(u"select x from 新表"); }), HasSubstr("不存在"));
}

TEST_P(ConnectionTest, AnOlderSchemaIsBroughtUpWithItsRows)
{
    EXPECT_EQ(joined(checkSchema(*m_connection)), "");
    EXPECT_TRUE(install(*m_connection).added.isEmpty());
    execute(u"insert into fyxx(房源ID,房源编号)values('A','FY1')");
    m_connection->executeNative("drop index ix_fyxx_district; create index ix_fykh_area on fykh(面积1); drop "
                                "table fygj; alter table fyxx drop column 附属房;"
                                "update host_schema set version=0");
    const std::string findings = joined(checkSchema(*m_connection));
    for (const char *gap : {"缺少索引 ix_fyxx_district", "缺少表 fygj", "缺少列 fyxx.附属房", "没有记录版本"})
        EXPECT_THAT(findings, HasSubstr(gap));
    EXPECT_EQ(install(*m_connection).versionBefore, 0);
    EXPECT_EQ(joined(checkSchema(*m_connection)), "");
    EXPECT_NO_THROW(m_connection->executeNative("create index ix_fykh_area on fykh(面积1)"))
        << "what no statement uses is gone";
    EXPECT_EQ(cell(u"select 房源编号 from fyxx where 附属房 is null"), "FY1");
}

ON_EACH_ENGINE(ConnectionTest);

} // namespace ebtq::db::test
