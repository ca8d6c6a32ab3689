#include "contracts/conversions.h"
#include "library/listings/fcxx_editor_fixture.h"
#include "library/listings/fcxx_tables.h"
#include "library/listings/listing_detail_fields.h"

using namespace ebtq;
using ebtq::test::FcxxEditorTest;

namespace {

TEST_F(FcxxEditorTest, ANewListingStandsOnTop)
{
    list.VS().setRow(3);
    expectEditor([&] {
        fill(editor(),
             u"1 海珠区,6 江南里,3 B座,23 出售,24 有效,8 1802,14 18,10 33,4 3,25 586,7 128.5,54 车位"_qs);
        desktop.willAnswer(Desktop::Answer::No);
        editor().Cmd(0).press();
    });
    list.NavToolbar1().press(u"new"_qs);
    ASSERT_EQ(list.VS().Rows(), 5);
    EXPECT_EQ(list.VS().Row(), 1);
    QStringList row;
    for (int col = 0; col < 19; ++col)
        row.append(cell(1, col));
    EXPECT_EQ(row.join(u'|'),
              u"|FY2026110004|出售|有效|海珠区|江南里|B座|1802|18/33|车位|3房0厅0卫0阳台|128.5|||"
              u"586万元|0元/月|2026-11-22|营业一部|");
    EXPECT_EQ(cell(2, 1), u"FY2026110003");
    const QString statement =
        listingStatement(101, SqlText(u" where 房源ID='%1'"_qs.arg(cell(1, 19)))).text();
    EXPECT_EQ(app.statements.filter(u"fyxx A"_qs).last(),
              QString(statement)
                  .replace(u"& 总楼层,"_qs, u"& 总楼层 as 楼层1,"_qs)
                  .remove(u" order by 房源编号 desc"_qs));
}

TEST_F(FcxxEditorTest, TheTabsShowTheCurrentListingAndClaimNothingOfAnother)
{
    ListingDetail &detail = list.detail();
    bool isTrue = false;
    QObject::connect(&detail, &ListingDetail::TabShown, [&](int, bool done) { isTrue = done; });
    detail.qzVSTabCtl1().setActiveTab(1);
    expectEditor([&] {
        fill(editor(), u"1 海珠区,6 江南里,3 B座,23 出售,24 有效"_qs);
        desktop.willAnswer(Desktop::Answer::No);
        editor().Cmd(0).press();
    });
    list.NavToolbar1().press(u"new"_qs);
    EXPECT_EQ(detail.qzFcTxt(0).Text(), u"FY2026110004") << "a new listing";
    desktop.willAnswer(Desktop::Answer::Yes);
    list.NavToolbar1().press(u"delete"_qs);
    EXPECT_EQ(detail.qzFcTxt(0).Text(), u"FY2026110003") << "the one below a deleted listing";
    EXPECT_TRUE(isTrue);
    detail.qzVSTabCtl1().setActiveTab(3);
    expectEditor([&] { editor().Cmd(0).press(); });
    list.NavToolbar1().press(u"edit"_qs);
    EXPECT_FALSE(isTrue) << "the follow-ups have been emptied, not counted";
}

/// What was just saved need not be read again: the open tab is asked for the leading number of the key.
TEST_F(FcxxEditorTest, AnEditAsksTheOpenTabForTheNumberOfItsKey)
{
    const std::pair<int, QString> tabs[] = {{ListingTab, u"A.*,C.mtname"_qs},
                                            {OwnerTab, u"A.*,C.mtname"_qs},
                                            {FollowUpsTab, u"select 操作日期"_qs},
                                            {CustomersTab, u"select '【'"_qs},
                                            {PicturesTab, u"isPicture=1"_qs}};
    list.VS().setRow(2);
    const QString number = PlainDecimal(Val(cell(2, ListingKey)));
    for (const auto &[tab, statement] : tabs) {
        list.detail().qzVSTabCtl1().setActiveTab(tab);
        expectEditor([&] { editor().Cmd(0).press(); });
        list.NavToolbar1().press(u"edit"_qs);
        EXPECT_TRUE(app.statements.last().contains(statement)) << app.statements.last().toStdString();
        EXPECT_TRUE(app.statements.last().contains(u"='%1'"_qs.arg(number))) << tab;
    }
}

TEST_F(FcxxEditorTest, SumsFollowWhatIsSavedAndDeleted)
{
    put(u"VsIsTotalOn"_qs, u"VsCol11"_qs, u"1"_qs);
    list.IReportUI_DoGetFormStatus(layoutFile);
    const auto total = [&] { return cell(list.VS().Rows() - 1, 11).toDouble(); };
    list.VS().setRow(1);
    const double before = total() - cell(1, 11).toDouble();
    expectEditor([&] {
        editor().qzFcTxt(7).setText(u"1000"_qs);
        editor().Cmd(0).press();
    });
    list.NavToolbar1().press(u"edit"_qs);
    EXPECT_EQ(total(), before + 1000);
    desktop.willAnswer(Desktop::Answer::Yes);
    list.NavToolbar1().press(u"delete"_qs);
    EXPECT_EQ(total(), before);
}

TEST_F(FcxxEditorTest, AnEditRewritesItsRowAndLeavesTheAttachmentsAlone)
{
    list.VS().setRow(2);
    list.VS().setTextMatrix(2, 20, u"7"_qs);
    expectEditor([&] {
        EXPECT_EQ(editor().qzFcTxt(6).Text(), u"东湖名苑");
        editor().qzFcTxt(6).setText(u"西湖名苑"_qs);
        editor().Cmd(0).press();
    });
    list.NavToolbar1().press(u"edit"_qs);
    EXPECT_EQ(list.VS().Rows(), 4);
    EXPECT_EQ(cell(2, 5) + cell(2, 20), u"西湖名苑7");
    EXPECT_EQ(cell(1, 5) + cell(3, 5), u"翠堤雅居翠堤雅居");
}

TEST_F(FcxxEditorTest, AnEditRewritesItsRowAlsoWhenASearchHasMovedOn)
{
    list.VS().setRow(2);
    expectEditor([&] {
        list.SearchBox1().setText(u"FY2026110001"_qs);
        list.SearchBox1().searchNow();
        EXPECT_EQ(list.VS().Row(), 3);
        editor().qzFcTxt(6).setText(u"西湖名苑"_qs);
        editor().Cmd(0).press();
    });
    list.NavToolbar1().press(u"edit"_qs);
    EXPECT_EQ(cell(1, 5) + cell(2, 5) + cell(3, 5), u"翠堤雅居西湖名苑翠堤雅居");
    EXPECT_EQ(cell(2, 1) + cell(3, 1), u"FY2026110002FY2026110001");
}

TEST_F(FcxxEditorTest, ADoubleClickHidesTheOwnerFromWhoMayNotEdit)
{
    for (const bool allowed : {true, false}) {
        if (!allowed)
            connection->execute(u"delete from host_rights where rightID=8"_qs);
        expectEditor([&] {
            EXPECT_EQ(editor().qzFcTxt(50).Visible(), allowed);
            EXPECT_EQ(editor().Cmd(0).Enabled(), allowed);
        });
        list.VS().setRow(1);
        list.VS().reportDoubleClick();
    }
}

TEST_F(FcxxEditorTest, WhatIsNotSeenIsNotOpened)
{
    list.VS().setRow(2);
    list.VS().setRowHidden(2, true);
    list.NavToolbar1().press(u"edit"_qs);
    list.VS().reportDoubleClick();
    EXPECT_EQ(message, u"当前房源已被过滤隐藏，请先在列表中选择房源！");
    list.VS().setRows(1);
    list.NavToolbar1().press(u"edit"_qs);
    EXPECT_EQ(listEvents, QStringList());
    list.IReportUI_Clear();
    list.NavToolbar1().press(u"new"_qs);
    EXPECT_EQ(listEvents, QStringList(u"Fcxx-->OpenFrmFx::模块尚未初始化！|8|EBTQ_S"_qs));
}

TEST_F(FcxxEditorTest, FailuresOfTheEditorComeOutOfTheList)
{
    connection->executeNative("drop table su_usertype");
    list.VS().setRow(1);
    list.NavToolbar1().press(u"edit"_qs);
    ASSERT_EQ(listEvents.size(), 1);
    EXPECT_TRUE(listEvents[0].startsWith(u"FrmFx-->LoadData::") && listEvents[0].endsWith(u"|8|EBTQ_S"));
    Q_EMIT editor().ReturnData(u"x"_qs, false);
    ASSERT_EQ(listEvents.size(), 2);
    EXPECT_TRUE(listEvents[1].contains(u"su_usertype") && !listEvents[1].contains(u"Fcxx"));
}

} // namespace
