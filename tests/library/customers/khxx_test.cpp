#include "library/customers/khxx.h"

#include "host/module_ids.h"
#include "host/rights.h"
#include "library/customers/customer_matching.h"
#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "library/followups/frm_gj.h"
#include "library/listings/listing_matching.h"
#include "library/support/list_test.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

using namespace CustomerFilter;

/// The list of customers; the business date is another day than the machine's.
class KhxxTest : public ListTest<khxx>
{
protected:
    KhxxTest()
    {
        desktop.setNow(QDateTime(QDate(2026, 11, 24), QTime(9, 30)));
        for (const int right : {RightNew, RightEdit, RightDelete})
            allow(right, true);
        insert(u"fykh (客源ID,客源编号,客户名称,电话,方式,状态,操作日期)"_qs,
               {u"'C1','KY1','Amy','1',1,0,#2026-11-20 8:00:00#",
                u"'C2','KY2','陈AMY','2',2,1,#2026-11-21 10:00:00#", u"'C3','KY3','李四','3',3,0,null"});
        connection->execute(
            u"update fykh set 地区='天河区',需求户型='三房',委托等级='A级',面积1=80,面积2=100,求购价格2=300,"
            u"委托日期=#2026-1-2#,用户ID='U1',业务员ID=5 where 客源ID='C1'"_qs);
    }
    void allow(int right, bool allowed)
    {
        host::setRight(*connection, u"U1"_qs, host::CustomerModule, right, allowed);
    }
    void open() { ListTest::open(host::CustomerModule); }
    /// A command of the editor of customers, which saves this name.
    void saveName(const QString &command, const QString &name)
    {
        edit(command, [this, name] {
            list.mFrmKh()->qzTxt(CustomerNumber::Name).setText(name);
            list.mFrmKh()->qzTxt(CustomerNumber::Telephone).setText(u"1"_qs);
            list.mFrmKh()->Cmd(0).press();
        });
    }
    [[nodiscard]] QString shown() { return columnText(list.VS(), CustomerCode); }
};

TEST_F(KhxxTest, EachFilterMakesItsClause)
{
    open();
    const QString head = listStatement().section(u" order by"_qs, 0, 0);
    EXPECT_EQ(listStatement(),
              u"select iif(方式=1,'求购',iif(方式=2,'求租',iif(方式=3,'购租',''))),iif(状态=0,'有效','失效'),"
              u"客源编号 as 委托编号,客户名称,地区 as 需求片区,面积1 & '-' & 面积2 as 需求面积,"
              u"求购价格1 & '-' & 求购价格2 as 需求购价格,求租价格1 & '-' & 求租价格2 as 需求租价格,"
              u"需求户型 as  需求房型,委托日期,C.mtname as 部门,D.姓名 as 业务员,客源ID"
              u" from ((fykh A left join su_membership B on A.用户ID=B.userID)"
              u" left join su_usertype C on B.UserTypeID=C.mtID)"
              u" left join pdmgy D on A.业务员ID=D.雇员ID order by 客源编号"_qs);
    EXPECT_EQ(rowText(list.VS(), 1),
              u"求购|有效|KY1|Amy|天河区|80-100|-300|-|三房|2026-1-2|营业一部|李强|C1");
    const std::tuple<std::function<void()>, QString, QString> cases[] = {
        {[&] { type(Department, u"一部"_qs, 1); },
         u" where A.用户ID in(select userID from su_membership where UserTypeID=1)"_qs, u"KY1"_qs},
        {[&] { type(Agent, u"李强"_qs, 5); }, u" where A.业务员ID=5"_qs, u"KY1"_qs},
        {[&] { type(District, u" 天河区 "_qs); }, u" where A.地区='天河区'"_qs, u"KY1"_qs},
        {[&] { type(Grade, u"A级"_qs); }, u" where A.委托等级='A级'"_qs, u"KY1"_qs},
        {[&] { type(Rooms, u"三房"_qs); }, u" where 需求户型='三房'"_qs, u"KY1"_qs},
        {[&] {
             list.qzTxt(State).type(u"有效"_qs);
             EXPECT_TRUE(list.qzTxt(State).check());
         },
         u" where 状态=0"_qs, u"KY1 KY3"_qs},
        {[&] { type(State, u" "_qs); }, {}, u"KY1 KY2 KY3"_qs},
        {[&] { list.Chk(0).setValue(1); }, u" where 方式=1"_qs, u"KY1"_qs},
        {[&] { list.Chk(1).setValue(1); }, u" where 方式=2"_qs, u"KY2"_qs},
        {[&] { list.XPCmb().setText(u"三天内"_qs); }, u" where 操作日期>#2026-11-21 9:30:00#"_qs, u"KY2"_qs},
        {[&] { list.XPCmb().setText(u"十天内"_qs); }, {}, u"KY1 KY2 KY3"_qs},
    };
    for (const auto &[set, where, rows] : cases) {
        press(u"all"_qs);
        list.XPCmb().setText({});
        set();
        app.statements.clear();
        ASSERT_TRUE(list.IReportUI_Refresh());
        EXPECT_EQ(listStatement(), head + where + u" order by 客源编号"_qs);
        EXPECT_EQ(shown(), rows) << where.toStdString();
    }
    EXPECT_EQ(events, QStringList()) << "this list does not tell how many rows it has";

    list.qzTxt(Grade).type(u"o'b"_qs);
    EXPECT_FALSE(list.IReportUI_Refresh());
    EXPECT_EQ(list.qzTxt(Grade).Text(), u"o'b");
    ASSERT_EQ(events.size(), 1);
    EXPECT_TRUE(events[0].endsWith(u"|8|Fcxx")) << events[0].toStdString();
    QString refused;
    QObject::connect(&list.qzTxt(Grade), &qzTxt_S::checkFailed, [&](const QString &text) { refused = text; });
    EXPECT_FALSE(list.qzTxt(Grade).check());
    EXPECT_EQ(refused, u"输入有误，请重新输入！");
}

TEST_F(KhxxTest, SearchesWithoutRegardToCaseAndTurnsByWhatIsShown)
{
    open();
    list.ChkFind().setValue(1);
    list.SearchBox1().setText(u"aMy%"_qs);
    list.SearchBox1().searchNow();
    EXPECT_EQ(shown(), u"KY1 KY2");
    list.SearchBox1().setText({});

    list.VS().GotFocus();
    list.VS().setTopRow(1);
    for (const auto &[steps, top] : {std::pair(1, 3), {-1, 1}, {-5, 1}}) {
        list.mcMouseEvent()->turn(steps);
        EXPECT_EQ(list.VS().TopRow(), top) << "five rows a step, within the list";
    }
}

TEST_F(KhxxTest, TheOpenTabShowsTheCurrentCustomer)
{
    insert(u"fyxx (房源ID,房源编号,总面积,售房价格,租房价格,楼层)"_qs,
           {u"'L1','FY1',90,200,0,'3'", u"'L2','FY2',70,200,0,''"});
    insert(u"fygj (跟进ID,房源ID,操作日期,跟进内容,提醒范围)"_qs,
           {u"'G1','C1',#2026-1-1#,'旧',2", u"'G2','C1',#2026-2-1#,'新',null"});
    connection->execute(u"update fykh set 邮件='a@b',其他联系方式='QQ',备注='记' where 客源ID='C1'"_qs);
    open();
    CustomerDetail &detail = list.detail();
    EXPECT_EQ(detail.field(9).Text() + detail.field(19).Text() + detail.field(21).Text() +
                  detail.field(23).Text(),
              u"Amy80-100-300李强");
    EXPECT_EQ(detail.field(24).Text() + detail.field(25).Text() + detail.field(27).Text() +
                  detail.field(26).Text() + detail.box(-1).Text(),
              u"Amy1a@bQQ记");
    EXPECT_EQ(detail.field(29).Caption(), u"付拥方式");
    app.statements.clear();
    detail.qzVSTabCtl1().setActiveTab(MatchingListingsTab);
    EXPECT_EQ(app.statements.size(), 2);
    EXPECT_EQ(columnText(detail.VsP(), 1), u"FY1");
    detail.qzVSTabCtl1().setActiveTab(CustomerFollowUpsTab);
    EXPECT_EQ(columnText(detail.VsGj(), 2) + columnText(detail.VsGj(), 7), u"新 旧本人 全部");
    app.statements.clear();
    list.VS().setRow(2);
    EXPECT_EQ(app.statements.size(), 1) << "only the open tab asks";
    EXPECT_EQ(detail.VsGj().Rows(), 1);

    detail.qzVSTabCtl1().setActiveTab(MatchingListingsTab);
    EXPECT_EQ(columnText(detail.VsP(), 1), u"FY1 FY2") << "no bound is set";
    connection->execute(u"delete from fykh where 客源ID='C3'"_qs);
    list.VS().setRow(3);
    EXPECT_EQ(columnText(detail.VsP(), 1), u"FY1 FY2") << "a request that is gone leaves them";
    EXPECT_EQ(events, QStringList(u"客源 KY3 已被他人删除，刷新后不再列出！"_qs));
    detail.qzVSTabCtl1().setActiveTab(ContactTab);
    EXPECT_EQ(detail.field(24).Text() + detail.box(-1).Text(), QString()) << "nobody calls another customer";
}

TEST_F(KhxxTest, WhatTheEditorsSaveComesBack)
{
    open();
    desktop.willAnswer(Desktop::Answer::No);
    saveName(u"new"_qs, u"新客"_qs);
    EXPECT_EQ(list.VS().TextMatrix(1, CustomerName) + list.detail().field(9).Text(), u"新客新客");
    EXPECT_EQ(list.VS().Rows(), 5);
    EXPECT_EQ(list.mcMouseEvent()->Max(), 0);
    list.VS().setRow(2);
    saveName(u"edit"_qs, u"改名"_qs);
    EXPECT_EQ(rowText(list.VS(), 2),
              u"求购|有效|KY1|改名|天河区|80-100|0-300|0-0|三房|2026-1-2|营业一部|李强|C1");
    EXPECT_EQ(list.detail().field(9).Text(), u"改名");

    list.detail().qzVSTabCtl1().setActiveTab(MatchingListingsTab);
    insert({u"fyxx (房源ID,房源编号,总面积,售房价格) values ('L1','FY1',90,200)"});
    saveName(u"edit"_qs, u"再改"_qs);
    EXPECT_EQ(columnText(list.detail().VsP(), 1), u"FY1") << "searched again";

    list.detail().qzVSTabCtl1().setActiveTab(CustomerFollowUpsTab);
    for (const QString &text : {u"一"_qs, u"二"_qs}) {
        edit(u"gj"_qs, [&] {
            list.mFrmGj()->Txt().setText(text);
            list.mFrmGj()->Cmd(0).press();
        });
    }
    VSFlexGrid &followUps = list.detail().VsGj();
    EXPECT_EQ(followUps.Row(), 2) << "the new one";
    EXPECT_EQ(rows(u"select 房源ID from fygj where 房源ID='C1'"_qs).rowCount(), 2);
    followUps.setRow(1);
    connection->execute(u"update fygj set 跟进内容='改过' where 跟进内容='一'"_qs);
    Q_EMIT list.mFrmGj()->ReturnData(followUps.TextMatrix(1, 11), false);
    EXPECT_EQ(columnText(followUps, 2), u"改过 二");
    EXPECT_EQ(std::exchange(events, {}), u"已保存 KY2026110001,已保存 KY1,已保存 KY1"_qs.split(u','));

    connection->executeNative(
        "create trigger gone after update of 客户名称 on fykh begin delete from fykh where 客源ID='C1'; end");
    saveName(u"edit"_qs, u"又改"_qs);
    EXPECT_EQ(events.value(0), u"这条客源保存之后已被他人删除！|2|khxx");
    list.VS().setRow(3);

    allow(RightEdit, false);
    bool isOpen = true;
    desktop.willShow([&](QObject &) { isOpen = list.mFrmKh()->qzTxt(1).Enabled(); });
    Q_EMIT list.VS().DblClick();
    EXPECT_FALSE(isOpen) << "who may not edit only looks";
}

TEST_F(KhxxTest, ADeletionRunsBothStatements)
{
    insert({u"fygj (跟进ID,房源ID) values ('G1','C1')"});
    open();
    const std::tuple<const char *, QString, QString> cases[] = {
        {"create trigger keep before delete on fykh begin select raise(abort, 'kept'); end",
         u"KY1 KY2 KY3"_qs, u"|8|Fcxx"_qs},
        {"drop trigger keep", u"KY2 KY3"_qs, {}},
        {"delete from fykh where 客源ID='C2'", u"KY3"_qs, u"|2|khxx"_qs},
    };
    for (const auto &[spoil, left, error] : cases) {
        connection->executeNative(spoil);
        list.VS().setRow(1);
        const QString id = cell(1, CustomerKey);
        events.clear();
        app.statements.clear();
        desktop.willAnswer(Desktop::Answer::Yes);
        press(u"delete"_qs);
        EXPECT_EQ(shown(), left);
        EXPECT_TRUE(events.join(u' ').endsWith(error)) << events.join(u' ').toStdString();
        EXPECT_EQ(app.statements.first(error.endsWith(u"|8|Fcxx") ? 1 : 2).join(u';') + u';',
                  (u" Delete from fykh where 客源ID='%1';"_qs +
                   (error.endsWith(u"|8|Fcxx") ? QString() : u" Delete from fyxx where 房源ID='%1';"_qs))
                      .arg(id));
    }
    EXPECT_EQ(rows(u"select 跟进ID from fygj"_qs).rowCount(), 1);
    allow(RightNew, false);
    allow(RightDelete, false);
    list.IReportUI_Clear();
    EXPECT_TRUE(!list.mFrmKh() && !list.mFrmGj() && !list.mcMouseEvent());
    ASSERT_TRUE(list.IReportUI_Init(app, host::CustomerModule));
    EXPECT_TRUE(!list.NavToolbar1().isEnabled(u"new"_qs) && !list.NavToolbar1().isEnabled(u"delete"_qs));
    EXPECT_EQ(list.IReportUI_Attributes(99).toString() + list.IReportUI_Attributes(1).toString(), u"nomenu");
}

/// Bounds that a customer left open are none from his side and hold nothing from the listing's.
TEST_F(KhxxTest, MatchesInBothDirections)
{
    // 楼层,总面积,售房价格,租房价格 of the listing; 楼层1,楼层2,面积1,面积2,求购价格1,求购价格2,求租价格1,
    // 求租价格2 of the customer; whether he finds it and it him.
    const std::tuple<QString, QString, bool, bool> cases[] = {
        {u"'8',90,200,0"_qs, u"5,10,80,100,150,200,0,0"_qs, true, true},
        {u"'8',90,200,0"_qs, u"0,0,0,0,0,0,0,0"_qs, true, false},
        {u"'',0,0,0"_qs, u"0,0,0,0,0,0,0,0"_qs, true, true},
        {u"null,null,null,null"_qs, u"5,10,80,100,150,200,0,0"_qs, false, true},
        {u"'8',90,200,0"_qs, u"5,0,0,0,0,0,0,0"_qs, true, false},
        {u"'8',90,200,0"_qs, u"5,10,80,100,150,199.5,0,0"_qs, false, false},
        {u"'8',90.01,150,0"_qs, u"0,99,90,90,150,150,0,0"_qs, false, false},
        {u"'8',90,200,3000"_qs, u"5,10,80,100,150,200,2000,3000"_qs, true, true},
        {u"'8',90,200,3000"_qs, u"5,10,80,100,150,200,0,0"_qs, true, false},
        {u"'底层',90,200,0"_qs, u"1,10,80,100,150,200,0,0"_qs, false, true},
        {u"'-1',90,200,0"_qs, u"1,10,80,100,150,200,0,0"_qs, false, true},
        {u"'12A',90,0,0"_qs, u"12,12,90,90,0,0,0,0"_qs, true, true},
        {u"'12A',90,0,0"_qs, u"null,20,50,null,0,0,0,0"_qs, true, false},
        {u"'8',90,0,3000"_qs, u"0,0,0,0,100,0,0,0"_qs, false, false},
        {u"'',0,0,1.5"_qs, u"0,0,0,0,0,0,0,9999"_qs, true, true},
        {u"'8',90,200,0"_qs, u"null,null,null,null,null,null,null,null"_qs, true, false},
        {u"'8',90,200,0"_qs, u"10,5,80,100,150,200,0,0"_qs, false, false},
        {u"'8',90,200,0"_qs, u"-5,10,80,1000000000000,150,200,0,0"_qs, true, true},
        {u"'1',50.0000001,123456789012345,0"_qs, u"0,99,0,50,0,123456789012345,0,0"_qs, false, false},
    };
    for (const auto &[measures, bounds, fromCustomer, fromListing] : cases) {
        connection->execute(u"delete from fyxx"_qs);
        connection->execute(u"delete from fykh"_qs);
        connection->execute(
            u"insert into fyxx(房源ID,房源编号,楼层,总面积,售房价格,租房价格) values('L','FY',%1)"_qs.arg(
                measures));
        connection->execute(
            u"insert into fykh(客源ID,客源编号,楼层1,楼层2,面积1,面积2,求购价格1,求购价格2,求租价格1,"
            u"求租价格2) values('C','KY',%1)"_qs.arg(bounds));
        const DetailRecord customer(rows(u"select * from fykh"_qs));
        const DetailRecord listing(connection->query(measuresStatement(u"L"_qs)));
        EXPECT_EQ(connection->query(matchingListingsStatement(customer)).rowCount() == 1, fromCustomer)
            << measures.toStdString() << " / " << bounds.toStdString();
        EXPECT_EQ(connection->query(matchingCustomersStatement(listing)).rowCount() == 1, fromListing)
            << measures.toStdString() << " / " << bounds.toStdString();
    }
}

} // namespace
