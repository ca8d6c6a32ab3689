#include "contracts/conversions.h"
#include "host/host_parameters.h"
#include "library/listings/fcxx_fixture.h"
#include "library/listings/listing_detail_fields.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

QString allText(const RowBlock &block)
{
    QStringList values;
    for (qsizetype row = 0; row < block.rowCount(); ++row)
        values += block.value(row, 0).toString();
    return values.join(u' ');
}

TEST_F(FcxxEditorTest, ANewListingStandsOnTop)
{
    list.detail().qzVSTabCtl1().setActiveTab(ListingTab);
    list.VS().setRow(3);
    makeListing(u"1 海珠区,6 江南里,3 B座,23 出售,24 有效,8 1802,14 18,10 33,4 3,25 586,7 128.5,54 车位"_qs);
    ASSERT_EQ(list.VS().Rows(), 5);
    EXPECT_EQ(list.VS().Row(), 1);
    EXPECT_TRUE(rowText(list.VS(), 1)
                    .startsWith(u"|FY2026110004|出售|有效|海珠区|江南里|B座|1802|18/33|车位|3房0厅0卫0阳台|"
                                u"128.5|||586万元|0元/月|2026-11-22|营业一部||"));
    EXPECT_EQ(cell(2, ListingNumber), u"FY2026110003");
    EXPECT_EQ(list.detail().qzFcTxt(0).Text(), u"FY2026110004");
    const QString statement =
        listingStatement(101, SqlText(u" where 房源ID='%1'"_qs.arg(cell(1, ListingKey)))).text();
    EXPECT_EQ(app.statements.filter(u"楼层1"_qs).last(),
              QString(statement)
                  .replace(u"& 总楼层,"_qs, u"& 总楼层 as 楼层1,"_qs)
                  .remove(u" order by 房源编号 desc"_qs));
}

/// What was just saved need not be read again: the open tab is asked for the leading number of the key.
TEST_F(FcxxEditorTest, AnEditAsksTheOpenTabForTheNumberOfItsKey)
{
    const std::pair<int, QString> tabs[] = {{ListingTab, u"A.*,C.mtname"_qs},
                                            {OwnerTab, u"A.*,C.mtname"_qs},
                                            {FollowUpsTab, u"select 操作日期"_qs},
                                            {CustomersTab, u"select '【'"_qs},
                                            {PicturesTab, u"isPicture=1"_qs}};
    connection->execute(u"update fyxx set 房源ID='12-AB' where 房源编号='FY2026110002'"_qs);
    refresh();
    list.VS().setRow(2);
    bool isOfTheListing = true;
    QObject::connect(&list.detail(), &ListingDetail::TabShown,
                     [&](int, bool done) { isOfTheListing = done; });
    for (const auto &[tab, statement] : tabs) {
        list.detail().qzVSTabCtl1().setActiveTab(tab);
        EXPECT_TRUE(isOfTheListing);
        edit(u"edit"_qs, [&] { editor().Cmd(0).press(); });
        EXPECT_TRUE(app.statements.last().contains(statement)) << app.statements.last().toStdString();
        EXPECT_TRUE(app.statements.last().contains(u"='12'")) << tab;
        EXPECT_FALSE(isOfTheListing) << "what is shown is not the listing's";
    }
}

TEST_F(FcxxEditorTest, TheEditorGoesToTheNeighboursThatTheListShows)
{
    connection->execute(u"update fyxx set 总面积=80,售房价格=160 where 房源编号='FY2026110003'"_qs);
    put(u"VsIsTotalOn"_qs, u"VsCol11"_qs, u"1"_qs); // a row of sums at the end
    list.IReportUI_DoGetFormStatus(layoutFile);
    refresh();
    list.VS().setRowHidden(2, true);
    list.VS().setRow(1);
    enum Button : int { Previous = 4, Next = 5 };
    edit(u"edit"_qs, [&] {
        const auto numberAfter = [&](int button) {
            editor().Cmd(button).press();
            return editor().recordNumber().toStdString();
        };
        EXPECT_EQ(numberAfter(Previous), "FY2026110003") << "there is none";
        editor().qzFcTxt(EditorNumber::Owner).setText(u"甲"_qs);
        desktop.willChoose(std::nullopt);
        EXPECT_EQ(numberAfter(Next), "FY2026110003") << "changed, and the question was left";
        desktop.willChoose(0);
        EXPECT_EQ(numberAfter(Next), "FY2026110001");
        EXPECT_EQ(list.VS().Row(), 3);
        EXPECT_FALSE(editor().isDirty());
        EXPECT_EQ(editor().qzFcTxt(EditorNumber::SaleUnitPrice).Text(), QString()) << "of the one before";
        EXPECT_EQ(numberAfter(Next), "FY2026110001") << "sums are no listing";
        editor().qzFcTxt(EditorNumber::Owner).setText(u"乙"_qs);
        editor().Cmd(0).press();
    });
    EXPECT_EQ(allText(rows(u"select 房源编号 & 业主 from fyxx order by 房源编号"_qs)),
              u"FY2026110001乙 FY2026110002 FY2026110003甲");
    edit(u"new"_qs, [&] { EXPECT_FALSE(editor().Cmd(Next).Enabled()); });
}

TEST_F(FcxxEditorTest, ACopyIsANewListingWithNothingOfTheFirstsOwn)
{
    connection->execute(u"update fyxx set 业主='陈先生',房号='1802',钥匙号='7',业务员ID=5,制单人='别人'"_qs);
    refresh();
    list.VS().setRow(2);
    desktop.willShow([&](QObject &) {
        EXPECT_TRUE(editor().isDirty());
        desktop.willAnswer(Desktop::Answer::No);
        editor().Cmd(0).press();
    });
    list.copyCurrent();
    EXPECT_EQ(cell(1, ListingNumber) + cell(1, ListingBuilding), u"FY2026110004东湖名苑");
    EXPECT_EQ(allText(rows(u"select 业主 & 房号 & 钥匙号 & 业务员ID & 制单人 from fyxx where "
                           u"房源编号='FY2026110004'"_qs)),
              u"陈先生5张敏");
    list.NavToolbar1().setEnabled(u"edit"_qs, false);
    list.copyCurrent(); // shows nothing: the owner is not for this user
}

TEST_F(FcxxEditorTest, WhoWantsItIsTheAgentOfWhatHeWritesAnew)
{
    const auto agents = [&] {
        QString both;
        edit(u"new"_qs, [&] { both = editor().qzFcTxt(EditorNumber::Agent).Text(); });
        edit(u"gj"_qs,
             [&] { both += u'/' + list.mFrmGj()->qzTxt(2).Text() + list.mFrmGj()->qzTxt(2).Tag(); });
        return both.toStdString();
    };
    EXPECT_EQ(agents(), "/0");
    host::setParameter(*connection, {}, 12, u"ownagent"_qs, u"1"_qs);
    script = {{}, u"张敏"_qs, 5, nullptr};
    EXPECT_EQ(agents(), "张敏/张敏5");
    script = {};
    EXPECT_EQ(agents(), "/0") << "no employee";
}

TEST_F(FcxxEditorTest, SumsFollowWhatIsSavedAndDeleted)
{
    put(u"VsIsTotalOn"_qs, u"VsCol11"_qs, u"1"_qs);
    list.IReportUI_DoGetFormStatus(layoutFile);
    const auto total = [&] { return cell(list.VS().Rows() - 1, ListingArea).toDouble(); };
    list.VS().setRow(1);
    const double before = total() - cell(1, ListingArea).toDouble();
    edit(u"edit"_qs, [&] { save(u"7 1000"_qs); });
    EXPECT_EQ(total(), before + 1000);
    desktop.willAnswer(Desktop::Answer::Yes);
    press(u"delete"_qs);
    EXPECT_EQ(total(), before);
}

TEST_F(FcxxEditorTest, AnEditRewritesItsRowAndLeavesTheAttachmentsAlone)
{
    for (const bool searchMovesOn : {false, true}) {
        list.VS().setRow(2);
        list.VS().setTextMatrix(2, ListingAttachments, u"7"_qs);
        edit(u"edit"_qs, [&] {
            EXPECT_EQ(editor().qzFcTxt(6).Text(), searchMovesOn ? u"西湖名苑" : u"东湖名苑");
            if (searchMovesOn) {
                list.SearchBox1().setText(u"FY2026110001"_qs);
                list.SearchBox1().searchNow();
                EXPECT_EQ(list.VS().Row(), 3);
            }
            save(searchMovesOn ? u"6 南湖名苑"_qs : u"6 西湖名苑"_qs);
        });
        EXPECT_EQ(columnText(list.VS(), ListingBuilding),
                  searchMovesOn ? u"翠堤雅居 南湖名苑 翠堤雅居" : u"翠堤雅居 西湖名苑 翠堤雅居");
        EXPECT_EQ(shown(), u"FY2026110003 FY2026110002 FY2026110001");
        EXPECT_EQ(cell(2, ListingAttachments), u"7");
    }
    const QString key = cell(3, ListingKey);
    list.VS().RemoveItem(3);
    Q_EMIT editor().ReturnData(key, false);
    EXPECT_EQ(shown(), u"FY2026110003 FY2026110002") << "of one that is not shown no row is rewritten";
}

TEST_F(FcxxEditorTest, ADoubleClickHidesTheOwnerFromWhoMayNotEdit)
{
    for (const bool allowed : {true, false}) {
        setRight(RightEdit, allowed);
        desktop.willShow([&](QObject &) {
            EXPECT_EQ(editor().qzFcTxt(50).Visible(), allowed);
            EXPECT_EQ(editor().Cmd(0).Enabled(), allowed);
        });
        list.VS().setRow(1);
        list.VS().reportDoubleClick();
    }
}

TEST_F(FcxxEditorTest, WhatIsNotSeenIsNotOpenedAndAFollowUpOnItIsSaidToBe)
{
    list.VS().setRow(2);
    list.VS().setRowHidden(2, true);
    press(u"edit"_qs);
    list.VS().reportDoubleClick();
    writeFollowUp();
    list.VS().setRows(1);
    press(u"edit"_qs);
    writeFollowUp();
    const QString hidden = u"当前房源已被过滤隐藏，请先在列表中选择房源！"_qs;
    EXPECT_EQ(events,
              QStringList({hidden, hidden, u"当前房源 FY2026110002 已被过滤隐藏，所写跟进将属于该房源！"_qs,
                           u"列表中没有当前房源，所写跟进将不属于任何房源！"_qs}));
    EXPECT_EQ(rows(u"select 房源ID from fygj where 房源ID='房源ID'"_qs).rowCount(), 1);
    list.IReportUI_Clear();
    EXPECT_TRUE(!list.mFrmFx() && !list.mFrmGj() && !list.mcMouseEvent());
    events.clear();
    for (const QString &key : {u"new"_qs, u"gj"_qs, u"delete"_qs})
        press(key);
    EXPECT_EQ(events, QStringList({u"Fcxx-->OpenFrmFx::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"列表中没有当前房源，所写跟进将不属于任何房源！"_qs,
                                   u"Fcxx-->OpenFrmGj::模块尚未初始化！|8|EBTQ_S"_qs}));
}

TEST_F(FcxxEditorTest, FailuresOfTheEditorComeOutOfTheList)
{
    connection->executeNative("drop table su_usertype");
    list.VS().setRow(1);
    press(u"edit"_qs);
    Q_EMIT editor().ReturnData(u"x"_qs, false);
    events = events.filter(u"|8|"_qs);
    ASSERT_EQ(events.size(), 2);
    EXPECT_TRUE(events[0].startsWith(u"FrmFx-->LoadData::") && events[0].endsWith(u"|8|EBTQ_S"));
    EXPECT_TRUE(events[1].contains(u"su_usertype") && !events[1].contains(u"Fcxx"));
}

TEST_F(FcxxEditorTest, ADeletionAsksAndRemovesWhatIsSeen)
{
    list.detail().qzVSTabCtl1().setActiveTab(ListingTab);
    list.VS().setRow(2);
    const QString key = cell(2, ListingKey);
    connection->execute(u"insert into fygj (跟进ID,房源ID) values ('G1','%1')"_qs.arg(key));
    const QString guard =
        u"create trigger keep before delete on %1 begin select raise(abort, 'kept'); end"_qs;
    const QString count = u"共加载%1条记录"_qs;
    using enum Desktop::Answer;
    // The answer, nothing where nobody is asked; how the only message or failure ends; the numbers of the
    // rows that are left, and how many follow-ups the database has.
    const std::tuple<std::function<void()>, std::optional<Desktop::Answer>, QString, QString> cases[] = {
        {[&] { list.VS().setRowHidden(2, true); }, std::nullopt, u"请先在列表中选择房源！"_qs, u"3 1 1"_qs},
        {[&] { list.VS().showAllRows(); }, No, {}, u"3 2 1 1"_qs},
        {[&] { connection->executeNative(guard.arg(u"fygj").toUtf8()); }, Yes, u"（kept）|8|Fcxx"_qs,
         u"3 2 1 1"_qs},
        {[&] { connection->executeNative("drop trigger keep;" + guard.arg(u"fyxx").toUtf8()); }, Yes,
         u"（kept）|8|Fcxx"_qs, u"3 2 1 0"_qs},
        {[&] { connection->executeNative("drop trigger keep"); }, Yes, count.arg(2), u"3 1 0"_qs},
        {[&] { connection->executeNative("delete from fyxx where 房源编号='FY2026110001'"); }, Yes,
         u"所选房源已被他人删除，现从列表中移除！|2|Fcxx "_qs + count.arg(1), u"3 0"_qs},
        {[&] { list.VS().setRows(1); }, std::nullopt, {}, u" 0"_qs},
    };
    for (const auto &[prepare, answer, told, left] : cases) {
        SCOPED_TRACE(told.toStdString() + left.toStdString());
        prepare();
        events.clear();
        app.statements.clear();
        if (answer)
            desktop.willAnswer(*answer);
        press(u"delete"_qs);
        EXPECT_EQ(asked(), answer ? QStringList(u"提示:?|是否删除当前所选记录:"_qs) : QStringList());
        EXPECT_TRUE(events.join(u' ').endsWith(told) && events.isEmpty() == told.isEmpty())
            << events.join(u' ').toStdString();
        EXPECT_EQ(shown().remove(u"FY202611000"_qs) + u' ' +
                      QString::number(rows(u"select 跟进ID from fygj"_qs).rowCount()),
                  left);
        if (told == count.arg(2)) {
            EXPECT_EQ(app.statements.first(2),
                      QStringList({u" Delete from fygj where 房源ID='%1'"_qs.arg(key),
                                   u" Delete from fyxx where 房源ID='%1'"_qs.arg(key)}));
            EXPECT_EQ(list.mcMouseEvent()->Max(), 0);
            EXPECT_EQ(list.detail().qzFcTxt(0).Text(), u"FY2026110001") << "the one below";
        }
    }
    EXPECT_EQ(rows(u"select 房源ID from fyxx"_qs).rowCount(), 1);
}

TEST_F(FcxxEditorTest, ASavedFollowUpStandsAtTheBottomOfItsTab)
{
    const std::pair<std::function<void(FrmGj &)>, QString> cases[] = {
        {[](FrmGj &gj) { gj.Txt().setText(u"看房"_qs); },
         u"|2026-11-25 9:30:00|看房|营业一部||否|2026-11-25 9:30:00|本人||||"_qs},
        {[](FrmGj &gj) {
             gj.Chk().setValue(1);
             gj.qzTxt(2).setValue(5);
             gj.qzTxt(0).setText(u"2026-1-2"_qs);
             gj.qzTxt(3).setText(u"2026-1-9"_qs);
             gj.qzTxt(4).setValue(1);
             gj.qzTxt(5).setText(u"回电"_qs);
             gj.qzTxt(6).setText(u"好"_qs);
         },
         u"|2026-1-2||营业一部|李强|是|2026-1-9|本部|回电|好||"_qs},
        {[](FrmGj &gj) { gj.qzTxt(4).setValue(3); },
         u"|2026-11-25 9:30:00||营业一部||否|2026-11-25 9:30:00|||||"_qs},
    };
    VSFlexGrid &grid = list.detail().VsGj();
    const int before = grid.Rows();
    const auto shown = QObject::connect(&grid, &VSFlexGrid::rowsReset, &grid, [&] {
        EXPECT_FALSE(grid.TextMatrix(grid.Rows() - 1, 1).isEmpty()) << "a view measures rows as they come";
    });
    for (const auto &[act, expected] : cases) {
        writeFollowUp(act);
        EXPECT_EQ(u'|' + rowText(grid, grid.Rows() - 1), expected + grid.TextMatrix(grid.Rows() - 1, 11));
    }
    EXPECT_EQ(grid.Rows(), before + 3);
    EXPECT_EQ(rows(u"select 跟进ID from fygj where 房源ID='%1'"_qs.arg(cell(1, ListingKey))).rowCount(), 3);
    EXPECT_EQ(events, QStringList());

    grid.setRow(before);
    connection->execute(u"update fygj set 跟进内容='改过' where 跟进内容='看房'"_qs);
    Q_EMIT list.mFrmGj()->ReturnData(grid.TextMatrix(before, 11), false);
    EXPECT_EQ(grid.TextMatrix(before, 2), u"改过") << "the current row, and no new one";
    EXPECT_EQ(grid.Rows(), before + 3);

    QObject::disconnect(shown);
    connection->executeNative("alter table pdmgy rename to x");
    writeFollowUp();
    ASSERT_EQ(events.size(), 1);
    EXPECT_TRUE(events[0].endsWith(u"|8|EBTQ_S")) << events[0].toStdString();
    EXPECT_EQ(rows(u"select 跟进ID from fygj"_qs).rowCount(), 4) << "it is saved all the same";
}

} // namespace
