#include "contracts/host_contracts.h"
#include "library/listings/fcxx_tables.h"

#include <gtest/gtest.h>

using namespace ebtq;

namespace {

using namespace ListingFilter;

const QDate today(2026, 11, 22);

SqlText where(const FilterValues &values, const QDate &day)
{
    return filterWhere(listingList().filter->clauses, values, QDateTime(day, QTime(9, 30)));
}

TEST(ListingStatement, IsExactlyThis)
{
    const QString head =
        u"select '',房源编号,交易方式  as 交易,交易状态 as 状态,地区 as 城区,楼盘字典,栋座位置 as "
        u"栋座,房号,楼层 & '/' & 总楼层, 附属房,"
        u"房型_房 & '房' & 房型_厅 & '厅' & 房型_卫 & '卫' & 房型_阳台 &'阳台' as 房型,总面积 as "
        u"面积,朝向,装修,"
        u"售房价格 & '万元' as 售总价,租房价格 & '元/月' as 租总价,委托日期 as 委托日,C.mtname as "
        u"部门,D.姓名 as 业务员,房源ID,"
        u"(select count(rowindex) from pubAttach where isActive=1 and isPicture<>1 and progID=101 and "
        u"ids=A.房源ID) as 附件"
        u" from ((fyxx A left join su_membership B on A.用户ID=B.userID)"
        u" left join su_usertype C on B.UserTypeID=C.mtID) left join pdmgy D on A.业务员ID=D.雇员ID"_qs;
    EXPECT_EQ(listingStatement(101, {}).text(), head + u" order by 房源编号 desc"_qs);
    const SqlText filtered =
        listingStatement(101, SqlText(u" where A.地区='"_qs) + typed(u"天河"_qs) + u"'"_qs);
    EXPECT_EQ(filtered.text(), head + u" where A.地区='天河' order by 房源编号 desc"_qs);
    ASSERT_EQ(filtered.typedSpans().size(), 1);
    const auto span = filtered.typedSpans().front();
    EXPECT_EQ(filtered.text().mid(span.begin, span.length), u"天河"_qs);
    EXPECT_TRUE(listingStatement(-7, {}).text().contains(u"progID=-7 and ids"));
}

TEST(ListingFilterTest, ClausesByTable)
{
    const QString membership = u" where A.用户ID in(select userID from su_membership where UserTypeID=%1)"_qs;
    const QString rooms = u"房型_房 & '-' & 房型_厅 & '-' & 房型_卫 & '-' & 房型_阳台='%1'"_qs;
    struct Case
    {
        FilterValues filter;
        QString where;
        QStringList typedTexts;
    };
    const Case cases[] = {
        {{}, QString(), {}},
        {{.fields = {{Department, {u"营业一部"_qs, 12}}}}, membership.arg(12), {}},
        {{.fields = {{Department, {u" "_qs, 12}}}}, membership.arg(12), {}}, // a blank is a text here
        {{.fields = {{Department, {u"营业一部"_qs}}}},
         membership.arg(0),
         {}}, // typed, but never looked up: finds nothing
        {{.fields = {{Department, {{}, 12}}, {Agent, {{}, 3}}}}, QString(), {}}, // the text decides
        {{.fields = {{Agent, {u"张敏"_qs, 3}}}}, u" where A.业务员ID=3"_qs, {}},
        {{.fields = {{Agent, {u"张敏"_qs, 1e20}}}}, u" where A.业务员ID=100000000000000000000"_qs, {}},
        {{.fields = {{District, {u"  天河区 "_qs}}}}, u" where A.地区='天河区'"_qs, {u"天河区"_qs}},
        {{.fields = {{District, {u"   "_qs}}, {Building, {u" "_qs}}, {Rooms, {u" "_qs}}, {State, {u" "_qs}}}},
         QString(),
         {}},
        {{.fields = {{Building, {u"翠堤\t"_qs}}}}, u" where A.楼盘字典='翠堤\t'"_qs, {u"翠堤\t"_qs}},
        {{.fields = {{Rooms, {u"3-2-1-1"_qs}}}}, u" where "_qs + rooms.arg(u"3-2-1-1"), {u"3-2-1-1"_qs}},
        {{.first = true}, u" where 交易方式 like '%售%'"_qs, {}},
        {{.second = true}, u" where 交易方式 like '%租%'"_qs, {}},
        {{.first = true, .second = true}, QString(), {}},
        {{.fields = {{State, {u"有效"_qs}}}}, u" where 交易状态='有效'"_qs, {u"有效"_qs}},
        {{.fields = {{District, {u"x' or '1'='1"_qs}}}},
         u" where A.地区='x' or '1'='1'"_qs,
         {u"x' or '1'='1"_qs}},
        {{.fields = {{Department, {u"一部"_qs, 4}},
                     {Agent, {u"李"_qs, 5}},
                     {District, {u"天河"_qs}},
                     {Building, {u"东湖"_qs}},
                     {Rooms, {u"1-1-1-0"_qs}},
                     {State, {u"有效"_qs}}},
          .second = true,
          .period = u"七天内"_qs},
         membership.arg(4) + u" and A.业务员ID=5 and A.地区='天河' and A.楼盘字典='东湖' and "_qs +
             rooms.arg(u"1-1-1-0") +
             u" and 交易方式 like '%租%' and 交易状态='有效' and 操作日期>#2026-11-15#"_qs,
         {u"天河"_qs, u"东湖"_qs, u"1-1-1-0"_qs, u"有效"_qs}},
    };
    for (const Case &c : cases) {
        const SqlText made = where(c.filter, today);
        EXPECT_EQ(made.text(), c.where);
        QStringList typedTexts;
        for (const auto &span : made.typedSpans())
            typedTexts.append(made.text().mid(span.begin, span.length));
        EXPECT_EQ(typedTexts, c.typedTexts) << c.where.toStdString();
    }
    EXPECT_THROW((void)where({.fields = {{Agent, {u"张敏"_qs, HUGE_VAL}}}}, today), Failure);
}

TEST(ListingFilterTest, WindowsOfTime)
{
    const auto clause = [](const QString &window, const QDate &day) {
        return where({.period = window}, day).text();
    };
    // The window, the day and the date that rows must be behind.
    const char16_t *const cases[] = {
        u"三天内,2026-11-22,2026-11-19",  u"七天内,2026-11-22,2026-11-15",   u" 十天内,2026-11-22,2026-11-12",
        u"十五天内,2026-11-22,2026-11-7", u"一个月内,2026-11-22,2026-10-22", u"三个月内,2026-11-22,2026-8-22",
        u"半年内,2026-11-22,2026-5-22",   u"一年内,2026-11-22,2025-11-22",   u"一年内,2024-02-29,2023-2-28",
        u"三个月内,2026-05-31,2026-2-28", u"三天内,2026-01-02,2025-12-30"};
    for (const char16_t *each : cases) {
        const QStringList c = QString::fromUtf16(each).split(u',');
        EXPECT_EQ(clause(c[0], QDate::fromString(c[1], Qt::ISODate)), u" where 操作日期>#%1#"_qs.arg(c[2]));
    }
    for (const char16_t *none : {u"十天内", u"十五月内", u"全部", u"三天内 ", u"昨天"})
        EXPECT_EQ(clause(QString::fromUtf16(none), today), QString());
    EXPECT_EQ(periodCaptions().join(u'|'),
              u"三天内|七天内|十天内|十五月内|一个月内|三个月内|半年内|一年内|全部"_qs);
}

} // namespace
