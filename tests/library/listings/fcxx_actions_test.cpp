#include "library/followups/frm_gj.h"
#include "library/listings/fcxx_editor_fixture.h"

using namespace ebtq;
using ebtq::test::FcxxEditorTest;

namespace {

const QString question = u"提示:?|是否删除当前所选记录:"_qs;
const QString hiddenRow = u"当前房源已被过滤隐藏，请先在列表中选择房源！"_qs;

/// A listing with a follow-up stands in row 2 and is current.
class FcxxActionsTest : public FcxxEditorTest
{
protected:
    FcxxActionsTest()
    {
        list.VS().setRow(2);
        listing = cell(2, 19);
        connection->execute(u"insert into fygj (跟进ID,房源ID) values ('G1','%1')"_qs.arg(listing));
        message.clear();
        (void)asked();
    }
    [[nodiscard]] qsizetype followUps() const { return rows(u"select 跟进ID from fygj"_qs).rowCount(); }
    /// Writes a follow-up with the command; `act` fills it in.
    void write(const std::function<void(FrmGj &)> &act)
    {
        expectEditor([&, act] {
            act(*list.mFrmGj());
            list.mFrmGj()->Cmd(0).press();
        });
        list.NavToolbar1().press(u"gj"_qs);
    }
    QString listing;
};

TEST_F(FcxxActionsTest, ADeletionAsksAndRemovesWhatIsSeen)
{
    struct Case
    {
        const char *what;
        std::function<void()> prepare;
        std::optional<Desktop::Answer> answer; ///< nothing: nobody is asked
        QString error;                         ///< what the list's only failure says
        qsizetype listingsLeft;
        qsizetype followUpsLeft;
    };
    using enum Desktop::Answer;
    const Case cases[] = {
        {"hidden", [&] { list.VS().setRowHidden(2, true); }, std::nullopt, {}, 3, 1},
        {"no", [&] { list.VS().showAllRows(); }, No, {}, 3, 1},
        {"follow-ups are kept",
         [&] {
             connection->executeNative(
                 "create trigger keep before delete on fygj begin select raise(abort, 'kept'); end");
         },
         Yes, u"kept"_qs, 3, 1},
        {"the listing is kept",
         [&] {
             connection->executeNative(
                 "drop trigger keep; create trigger keep before delete on fyxx begin select "
                 "raise(abort, 'kept'); end");
         },
         Yes, u"kept"_qs, 3, 0},
        {"yes", [&] { connection->executeNative("drop trigger keep"); }, Yes, {}, 2, 0},
        {"gone", [&] { connection->executeNative("delete from fyxx where 房源编号='FY2026110001'"); }, Yes,
         u"已被他人删除"_qs, 1, 0},
        {"no row", [&] { list.VS().setRows(1); }, std::nullopt, {}, 1, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const qsizetype listingsBefore = listings();
        c.prepare();
        const int rowsBefore = list.VS().Rows();
        listEvents.clear();
        app.statements.clear();
        if (c.answer)
            desktop.willAnswer(*c.answer);
        list.NavToolbar1().press(u"delete"_qs);
        EXPECT_EQ(asked(), c.answer ? QStringList(question) : QStringList());
        EXPECT_EQ(listEvents.size(), c.error.isEmpty() ? 0 : 1);
        if (listEvents.size() == 1) {
            EXPECT_TRUE(listEvents[0].contains(c.error) &&
                        listEvents[0].endsWith(c.what == std::string("gone") ? u"|2|Fcxx" : u"|8|Fcxx"))
                << listEvents[0].toStdString();
        }
        EXPECT_EQ(listings(), c.listingsLeft);
        EXPECT_EQ(followUps(), c.followUpsLeft);
        EXPECT_EQ(rowsBefore - list.VS().Rows(), listingsBefore - listings())
            << "the list shows what is left";
        const bool isRemoved = list.VS().Rows() < rowsBefore && c.what != std::string("no row");
        EXPECT_EQ(message, c.what == std::string("hidden") ? hiddenRow
                           : isRemoved ? u"共加载%1条记录"_qs.arg(list.VS().Rows() - 1)
                                       : QString());
        message.clear();
        if (c.what == std::string("yes")) {
            EXPECT_EQ(app.statements.first(2),
                      QStringList({u" Delete from fygj where 房源ID='%1'"_qs.arg(listing),
                                   u" Delete from fyxx where 房源ID='%1'"_qs.arg(listing)}));
            EXPECT_EQ(list.mcMouseEvent()->Max(), 0);
            EXPECT_EQ(cell(1, 1) + cell(2, 1), u"FY2026110003FY2026110001");
        }
    }
}

TEST_F(FcxxActionsTest, ASavedFollowUpStandsAtTheBottomOfItsTab)
{
    const std::pair<std::function<void(FrmGj &)>, QString> cases[] = {
        {[](FrmGj &gj) { gj.Txt().setText(u"看房"_qs); },
         u"|2026-11-25 9:30:00|看房|营业一部||否|2026-11-25 9:30:00|本人|||"_qs},
        {[](FrmGj &gj) {
             gj.Chk().setValue(1);
             gj.qzTxt(2).setValue(5);
             gj.qzTxt(0).setText(u"2026-1-2"_qs);
             gj.qzTxt(3).setText(u"2026-1-9"_qs);
             gj.qzTxt(4).setValue(1);
             gj.qzTxt(5).setText(u"回电"_qs);
             gj.qzTxt(6).setText(u"好"_qs);
         },
         u"|2026-1-2||营业一部|李强|是|2026-1-9|本部|回电|好|"_qs},
        {[](FrmGj &gj) { gj.qzTxt(4).setValue(3); },
         u"|2026-11-25 9:30:00||营业一部||否|2026-11-25 9:30:00||||"_qs},
    };
    VSFlexGrid &grid = list.detail().VsGj();
    const int before = grid.Rows();
    for (const auto &[act, expected] : cases) {
        write(act);
        QStringList row;
        for (int col = 0; col < 11; ++col)
            row.append(grid.TextMatrix(grid.Rows() - 1, col));
        EXPECT_EQ(row.join(u'|'), expected);
        const RowBlock stored =
            rows(u"select 房源ID from fygj where 跟进ID='%1'"_qs.arg(grid.TextMatrix(grid.Rows() - 1, 11)));
        ASSERT_EQ(stored.rowCount(), 1);
        EXPECT_EQ(stored.value(0, 0).toString(), listing);
    }
    EXPECT_EQ(grid.Rows(), before + 3);
    EXPECT_EQ(message + listEvents.join(u' '), QString());

    grid.setRow(before);
    connection->execute(u"update fygj set 跟进内容='改过' where 跟进内容='看房'"_qs);
    Q_EMIT list.mFrmGj()->ReturnData(grid.TextMatrix(before, 11), false);
    EXPECT_EQ(grid.TextMatrix(before, 2), u"改过") << "the current row, and no new one";
    EXPECT_EQ(grid.Rows(), before + 3);

    connection->executeNative("alter table pdmgy rename to x");
    write([](FrmGj &) {});
    ASSERT_EQ(listEvents.size(), 1);
    EXPECT_TRUE(listEvents[0].endsWith(u"|8|EBTQ_S")) << listEvents[0].toStdString();
    EXPECT_EQ(followUps(), 5) << "it is saved all the same";
}

TEST_F(FcxxActionsTest, AFollowUpOnWhatIsNotSeenIsSaidToBe)
{
    list.VS().setRowHidden(2, true);
    write([](FrmGj &) {});
    EXPECT_EQ(message, u"当前房源 %1 已被过滤隐藏，所写跟进将属于该房源！"_qs.arg(cell(2, 1)));
    list.VS().setRows(1);
    write([](FrmGj &) {});
    EXPECT_EQ(message, u"列表中没有当前房源，所写跟进将不属于任何房源！");
    EXPECT_EQ(rows(u"select 房源ID from fygj where 房源ID='房源ID'"_qs).rowCount(), 1);
    list.IReportUI_Clear();
    EXPECT_EQ(list.VS().Rows(), 0);
    EXPECT_TRUE(!list.mFrmFx() && !list.mFrmGj() && !list.mcMouseEvent());
    for (const QString &key : {u"gj"_qs, u"delete"_qs})
        list.NavToolbar1().press(key);
    EXPECT_EQ(listEvents, QStringList(u"Fcxx-->OpenFrmGj::模块尚未初始化！|8|EBTQ_S"_qs));
}

} // namespace
