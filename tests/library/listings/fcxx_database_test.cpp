// The list of listings on a real database: what a filter asks, and which rows it leaves.

#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

using namespace ListingFilter;

const QString order = u" order by 房源编号 desc"_qs;

/// Now is 2026-11-25. U3 is in two departments, U2 in none.
class FcxxDatabaseTest : public FcxxTest
{
protected:
    FcxxDatabaseTest()
    {
        insert(u"su_usertype (mtID,mtcode,mtname)"_qs, {u"2,'02','营业二部'"});
        insert(u"su_membership (userID,UserTypeID,username)"_qs, {u"'U3',1,'王芳'", u"'U3',2,'王芳'"});
        insert(u"pubAttach (progID,IDs,filename,isActive,isPicture)"_qs,
               {u"101,'FY1','f',1,0", u"101,'FY1','deleted',0,0", u"101,'FY1','picture',1,1",
                u"102,'FY2','f',1,0"});
        insert(
            u"fyxx (房源ID,房源编号,用户ID,业务员ID,地区,楼盘字典,房型_房,房型_厅,房型_卫,房型_阳台,交易方式,"
            u"交易状态,操作日期)"_qs,
            {u"'FY1','FY1','U1',5,'天河区','翠堤雅居',3,2,2,1,'出售','有效',#2026-11-25 08:00:00#",
             u"'FY2','FY2','U1',6,'海珠区','东湖名苑',1,1,1,0,'出租','有效',#2026-11-22#",
             u"'FY3','FY3','U2',5,'天河区','香樟里',3,2,2,1,'售租','已成交',#2026-11-22 00:00:01#",
             u"'FY4','FY4','U3',7,'天河区','翠堤雅居',2,1,1,1,'转让','有效',#2025-1-1#",
             u"'FY5','FY5','',0,'天河 区','Palm Court',0,0,0,0,'','',#2026-11-18#"});
        connection->execute(u"update fyxx set 楼层='21',总楼层='33',总面积=91,售房价格=586.5,"
                            u"租房价格=0"_qs);
        init();
    }
    void clear()
    {
        for (const int number : {District, Rooms, State, Department, Agent, Building})
            type(number, {});
        list.Chk(0).setValue(0);
        list.Chk(1).setValue(0);
        list.XPCmb().setText({});
    }
    [[nodiscard]] QString numbers() { return shown().remove(u"FY"_qs).remove(u' '); }
    /// Of the list's statement.
    [[nodiscard]] QString where() const
    {
        return listStatement().section(u"D.雇员ID"_qs, -1).chopped(order.size());
    }
};

TEST_F(FcxxDatabaseTest, RowsShowAsTheyAreToBeRead)
{
    ASSERT_TRUE(refresh());
    EXPECT_EQ(
        listStatement(),
        u"select '',房源编号,交易方式  as 交易,交易状态 as 状态,地区 as 城区,楼盘字典,栋座位置 as "
        u"栋座,房号,楼层 & '/' & 总楼层, 附属房,房型_房 & '房' & 房型_厅 & '厅' & 房型_卫 & '卫' & "
        u"房型_阳台 &'阳台' as 房型,总面积 as 面积,朝向,装修,售房价格 & '万元' as 售总价,"
        u"租房价格 & '元/月' as 租总价,委托日期 as 委托日,C.mtname as 部门,D.姓名 as 业务员,房源ID,"
        u"(select count(rowindex) from pubAttach where isActive=1 and isPicture<>1 and progID=101 and "
        u"ids=A.房源ID) as 附件 from ((fyxx A left join su_membership B on A.用户ID=B.userID)"
        u" left join su_usertype C on B.UserTypeID=C.mtID) left join pdmgy D on A.业务员ID=D.雇员ID"_qs +
            order);
    EXPECT_EQ(numbers(), u"544321"_qs) << "a user in two departments gives two rows, one in none still one";
    EXPECT_EQ(rowText(list.VS(), 6), u"|FY1|出售|有效|天河区|翠堤雅居|||21/33||3房2厅2卫1阳台|91|||586.5万元|"
                                     u"0元/月||营业一部|李强|FY1|1"_qs);
    EXPECT_EQ(list.VS().CellPicture(6, ListingMarker), u"mail-attachment"_qs);
    EXPECT_EQ(list.VS().CellPicture(5, ListingMarker), QString()) << "attachments of another module";
    EXPECT_EQ(cell(1, ListingDepartment), QString());
}

TEST_F(FcxxDatabaseTest, EachFilterMakesItsClause)
{
    const QString ofDepartment = u"A.用户ID in(select userID from su_membership where UserTypeID=%1)"_qs;
    const QString ofRooms = u"房型_房 & '-' & 房型_厅 & '-' & 房型_卫 & '-' & 房型_阳台='%1'"_qs;
    const std::tuple<std::function<void()>, QString, QString> cases[] = {
        {[&] { type(District, u" 天河区 "_qs); }, u"A.地区='天河区'"_qs, u"4431"_qs},
        {[&] { type(District, u"天河 区"_qs); }, u"A.地区='天河 区'"_qs, u"5"_qs},
        {[&] { type(District, u"天河%"_qs); }, u"A.地区='天河%'"_qs, {}}, // a letter like any other
        {[&] { type(Building, u"PALM court"_qs); }, u"A.楼盘字典='PALM court'"_qs, u"5"_qs},
        {[&] { type(Building, u"翠堤\t"_qs); }, u"A.楼盘字典='翠堤\t'"_qs, {}},
        {[&] { type(Rooms, u"3-2-2-1"_qs); }, ofRooms.arg(u"3-2-2-1"), u"31"_qs},
        {[&] { type(State, u"有效"_qs); }, u"交易状态='有效'"_qs, u"4421"_qs},
        {[&] { type(Department, u"营业二部"_qs, u"2"_qs); }, ofDepartment.arg(2), u"44"_qs},
        {[&] { type(Department, u" "_qs, 1); }, ofDepartment.arg(1), u"4421"_qs}, // a blank is a text here
        {[&] { type(Department, u"营业一部"_qs); }, ofDepartment.arg(0), {}},     // not looked up
        {[&] { type(Agent, u"李强"_qs, 5); }, u"A.业务员ID=5"_qs, u"31"_qs},
        {[&] { type(Agent, u"李强"_qs); }, u"A.业务员ID=0"_qs, u"5"_qs},
        {[&] { type(Agent, u"李强"_qs, 1e20); }, u"A.业务员ID=100000000000000000000"_qs, {}},
        {[&] {
             type(Agent, {}, 5); // the text decides
             for (const int number : {District, Building, Rooms, State})
                 type(number, u"  "_qs);
         },
         {},
         u"544321"_qs},
        {[&] { list.Chk(0).setValue(1); }, u"交易方式 like '%售%'"_qs, u"31"_qs},
        {[&] { list.Chk(1).setValue(1); }, u"交易方式 like '%租%'"_qs, u"32"_qs},
        {[&] {
             list.Chk(0).setValue(1);
             list.Chk(1).setValue(1);
         },
         {},
         u"544321"_qs},
        {[&] { list.XPCmb().setText(u"三天内"_qs); }, u"操作日期>#2026-11-22#"_qs, u"31"_qs},
        {[&] {
             type(Department, u"一部"_qs, 1);
             type(Agent, u"李"_qs, 5);
             type(District, u"天河区"_qs);
             type(Building, u"翠堤雅居"_qs);
             type(Rooms, u"3-2-2-1"_qs);
             type(State, u"有效"_qs);
             list.Chk(0).setValue(1);
             list.XPCmb().setText(u"七天内"_qs);
         },
         ofDepartment.arg(1) + u" and A.业务员ID=5 and A.地区='天河区' and A.楼盘字典='翠堤雅居' and "_qs +
             ofRooms.arg(u"3-2-2-1") +
             u" and 交易方式 like '%售%' and 交易状态='有效' and 操作日期>#2026-11-18#"_qs,
         u"1"_qs},
    };
    for (const auto &[set, clause, numbered] : cases) {
        clear();
        set();
        EXPECT_TRUE(refresh()) << clause.toStdString();
        EXPECT_EQ(where(), clause.isEmpty() ? QString() : u" where "_qs + clause);
        EXPECT_EQ(numbers(), numbered) << clause.toStdString();
        EXPECT_EQ(events.last(), u"共加载%1条记录"_qs.arg(numbered.size()));
    }
}

TEST_F(FcxxDatabaseTest, WindowsOfTime)
{
    // The window, the day and the date that rows must be behind.
    const char16_t *const cases[] = {u"三天内,2026-11-22,2026-11-19",
                                     u"七天内,2026-11-22,2026-11-15",
                                     u" 十天内,2026-11-22,2026-11-12",
                                     u"十五天内,2026-11-22,2026-11-7",
                                     u"一个月内,2026-11-22,2026-10-22",
                                     u"三个月内,2026-11-22,2026-8-22",
                                     u"半年内,2026-11-22,2026-5-22",
                                     u"一年内,2026-11-22,2025-11-22",
                                     u"一年内,2024-02-29,2023-2-28",
                                     u"三个月内,2026-05-31,2026-2-28",
                                     u"三天内,2026-01-02,2025-12-30",
                                     u"十天内,2026-11-22,",
                                     u"十五月内,2026-11-22,",
                                     u"全部,2026-11-22,",
                                     u"三天内 ,2026-11-22,"};
    for (const char16_t *each : cases) {
        const QStringList c = QString::fromUtf16(each).split(u',');
        list.XPCmb().setText(c[0]);
        desktop.setNow(QDateTime(QDate::fromString(c[1], Qt::ISODate), QTime(9, 30)));
        EXPECT_TRUE(refresh());
        EXPECT_EQ(where(), c[2].isEmpty() ? QString() : u" where 操作日期>#%1#"_qs.arg(c[2]));
    }
    EXPECT_EQ(list.XPCmb().items().join(u'|'),
              u"三天内|七天内|十天内|十五月内|一个月内|三个月内|半年内|一年内|全部"_qs);
}

TEST_F(FcxxDatabaseTest, NoTextChangesWhatTheStatementDoes)
{
    for (const int field : {District, Rooms, State, Building}) {
        for (const QString &attack : {u"O'Hara"_qs, u"x' or '1'='1"_qs, u"x';delete from fyxx"_qs}) {
            type(field, attack);
            EXPECT_FALSE(refresh()) << attack.toStdString();
            EXPECT_EQ(list.VS().Rows(), 1) << attack.toStdString();
            EXPECT_EQ(list.qzTxt(field).Text(), attack);
        }
        clear();
        EXPECT_TRUE(refresh());
        EXPECT_EQ(numbers(), u"544321"_qs);
    }
}

} // namespace
