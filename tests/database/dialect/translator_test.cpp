#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "database/schema/tables.h"

#include <gtest/gtest.h>

namespace ebtq::db::test {

TEST(Translation, NamesAndTypesTheResultsColumns)
{
    const QString statement =
        u"select A.楼层, 楼盘id, 总面积 as 面积, 楼层 & '', 1=1, count(*), B.* from fyxx A, pdmgy B"
        " group by A.楼层, 楼盘ID, 总面积, 雇员ID, 姓名"_qs;
    const std::vector<Column> expected{
        {u"楼层"_qs, ColumnType::Text},      {u"楼盘id"_qs, ColumnType::Integer},
        {u"面积"_qs, ColumnType::Number},    {{}, ColumnType::Text},
        {{}, ColumnType::Integer},           {{}, ColumnType::Integer},
        {u"雇员ID"_qs, ColumnType::Integer}, {u"姓名"_qs, ColumnType::Text}};
    for (const Dialect *dialect : {&sqliteDialect(), &postgresDialect()}) {
        const std::vector<Column> columns = translate(statement, *dialect, schemaCatalog()).columns;
        ASSERT_EQ(columns.size(), expected.size());
        for (size_t at = 0; at < expected.size(); ++at) {
            EXPECT_EQ(columns[at].name.toStdString(), expected[at].name.toStdString());
            EXPECT_EQ(columns[at].type, expected[at].type) << at;
        }
    }
}

/// What both forms give is in the corpus; this shows which lists are counted for at once.
TEST(Translation, CountsForAWholeListAtOnce)
{
    const Catalog catalog = schemaCatalog();
    const auto countsOf = [&](const Dialect &dialect, const char16_t *rest) {
        const QString select = u"select %1 房源编号,(select count(*) from pubAttach where progID=1"
                               " and ids=A.房源ID) from fyxx A %2"_qs;
        const QString end = QString::fromUtf16(rest);
        const QString top = end.isEmpty() ? u"top 5"_qs : QString();
        return translate(select.arg(top, end), dialect, catalog).counts;
    };
    const auto counts = countsOf(postgresDialect(), u"where 1=1 and 地区='x' order by 1");
    ASSERT_EQ(counts.size(), 1);
    EXPECT_EQ(counts[0].column, 1);
    EXPECT_EQ(counts[0].sql.toStdString(), "SELECT t0.\"IDs\",count(*) FROM \"pubAttach\" AS t0"
                                           " WHERE (t0.\"progID\"=1) GROUP BY t0.\"IDs\"");
    EXPECT_EQ(countsOf(sqliteDialect(), u"where 1=1 order by 1").size(), 1);
    EXPECT_TRUE(countsOf(sqliteDialect(), u"where 地区='x'").empty());
    EXPECT_TRUE(countsOf(postgresDialect(), u"where 地区='x' and 房源ID='G-1'").empty()) << "one row";
    EXPECT_TRUE(countsOf(postgresDialect(), u"").empty()) << "the first of them";
    EXPECT_TRUE(countsOf(postgresDialect(), u"group by 房源编号,房源ID").empty());
}

/// That the plans give the same rows is shown where they are run.
TEST(Translation, OffersAPlanForEachLoneBound)
{
    struct
    {
        const char16_t *rest;
        size_t plans;
    } const cases[] = {
        {u"where 总面积>=600", 1},
        {u"where 1=1 and 总面积>=600 and 售房价格<9 and val(楼层)>=3 order by 1", 2},
        {u"where 总面积>=80 and 总面积<=100 and 售房价格>=5", 0}, // which is a search anyway
        {u"where 地区='x' and 总面积>=600", 0},
        {u"where 总面积>=600 or 售房价格>=5", 0},
        {u"where 雇员ID>=5", 0}, // only of the table that is read first
        {u"where 总面积<>5 and 总面积>=租房价格 and 委托日期>=#2026-1-1#", 0},
        {u"", 0},
    };
    for (const auto &[rest, plans] : cases) {
        const QString sql = u"select 房源编号 from fyxx A left join pdmgy D on A.业务员ID=D.雇员ID "_qs +
                            QString::fromUtf16(rest);
        EXPECT_EQ(translate(sql, sqliteDialect(), schemaCatalog()).plansByBound.size(), plans)
            << sql.toStdString();
        EXPECT_TRUE(translate(sql, postgresDialect(), schemaCatalog()).plansByBound.empty());
    }
}

} // namespace ebtq::db::test
