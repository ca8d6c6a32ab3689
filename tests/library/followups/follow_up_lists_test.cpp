#include "library/followups/cx_gj.h"
#include "library/followups/follow_up_rows.h"
#include "library/followups/yj_tx.h"

#include "host/module_ids.h"
#include "library/support/agency_test.h"
#include "library/support/grids.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// Follow-ups of a listing, a customer and a listing that is gone; the business date is the 22nd and the
/// machine's clock shows the 25th.
class FollowUpListTest : public AgencyTest
{
protected:
    FollowUpListTest()
    {
        insert({
            u"su_usertype (mtID,mtcode,mtname) values (2,'02','营业二部')",
            u"su_membership (userID,UserTypeID,username) values ('U2',2,'王五')",
            u"fyxx (房源ID) values ('L1')",
            u"fykh (客源ID) values ('C1')",
        });
        insert(u"fygj (跟进ID,房源ID,用户ID,业务员ID,操作日期,跟进内容,下次提醒,提醒日期,提醒范围,提醒内容,"
               u"处理结果)"_qs,
               {u"'G1','L1','U1',5,#2026-11-20 8:00:00#,'Amy 看房',1,#2026-11-22#,0,'回电',''",
                u"'G2','C1','U2',null,#2026-11-21 23:59:59#,'谈价',1,#2026-11-22#,1,null,''",
                u"'G3','L0','U1',null,#2026-11-22 0:00:00#,'再约amy',1,#2026-11-22#,null,null,''"});
        // Not due: of somebody else, of other days, dealt with, never asked for, without a result at all.
        insert(u"fygj (跟进ID,用户ID,操作日期,下次提醒,提醒日期,处理结果)"_qs,
               {u"'G4','U2',#2026-11-9#,1,#2026-11-22#,''", u"'G5','U1',#2026-11-8#,1,#2026-11-21#,''",
                u"'G6','U1',#2026-11-7#,1,#2026-11-25#,''", u"'G7','U1',#2026-11-6#,1,#2026-11-22#,'好'",
                u"'G8','U1',#2026-11-5#,0,#2026-11-22#,''", u"'G9','U1',#2026-11-4#,1,#2026-11-22#,null"});
    }
    void open(FollowUpList &opened)
    {
        QObject::connect(&opened, &FollowUpList::Message, [this](const QString &text) { events += text; });
        QObject::connect(&opened, &FollowUpList::ErrMessage,
                         [this](const QString &text, int level, const QString &title) {
                             events += u"%1|%2|%3"_qs.arg(text).arg(level).arg(title);
                         });
        QObject::connect(&opened, &FollowUpList::RefreshGetGridStatus, [this] { events += u"layout"_qs; });
        ASSERT_TRUE(opened.IReportUI_Init(app, host::FollowUpModule));
        ASSERT_TRUE(opened.IReportUI_Refresh());
    }
    static QString shown(FollowUpList &from) { return columnText(from.VS(), FollowUpKey); }
    /// What was raised since the last call.
    QStringList raised() { return std::exchange(events, {}); }

    Cx_Gj list{desktop};
    YjTx reminders{desktop};
};

TEST_F(FollowUpListTest, EachFilterMakesItsClause)
{
    open(list);
    EXPECT_EQ(raised(), QStringList({u"layout"_qs, u"共加载9条记录"_qs}));
    const QString statement = app.statements.first();
    EXPECT_TRUE(statement.startsWith(u"select  top 100 操作日期,跟进内容,C.mtname as 部门"));
    const QString head = statement.section(u" order by"_qs, 0, 0);
    const QString all = u"G3 G2 G1 G4 G5 G6 G7 G8 G9"_qs;
    // Texts and values of the fields in their order.
    const std::tuple<QStringList, QVariantList, int, QString, QString> cases[] = {
        {{}, {}, 0, {}, all},
        {{{}, {}, u"二部"_qs}, {{}, {}, 2}, 0, u" where B.UserTypeID=2"_qs, u"G2 G4"_qs},
        {{{}, {}, {}, u"李强"_qs}, {{}, {}, {}, 5}, 0, u" where A.业务员ID=5"_qs, u"G1"_qs},
        {{u" 2026-11-21 "_qs, u"2026-11-21"_qs},
         {},
         0,
         u" where 操作日期>=#2026-11-21# and 操作日期<#2026-11-22#"_qs,
         u"G2"_qs},
        {{u"2026-11-22"_qs, u"2026-11-20"_qs},
         {},
         0,
         u" where 操作日期>=#2026-11-22# and 操作日期<#2026-11-21#"_qs,
         {}},
        {{}, {}, 1, u" where 房源ID in(select 房源ID from fyxx)"_qs, u"G1"_qs},
        {{}, {}, 2, u" where 房源ID in(select 客源ID from fykh)"_qs, u"G2"_qs},
        {{}, {}, 3, {}, all},
    };
    for (const auto &[texts, values, ticks, where, keys] : cases) {
        for (int field = Cx_Gj::From; field < Cx_Gj::Limit; ++field) {
            list.qzTxt(field).setText(texts.value(field));
            list.qzTxt(field).setValue(values.value(field));
        }
        list.Chk(0).setValue(ticks & 1);
        list.Chk(1).setValue(ticks >> 1);
        app.statements.clear();
        ASSERT_TRUE(list.IReportUI_Refresh());
        EXPECT_EQ(app.statements, QStringList(head + where + u" order by 操作日期 desc"_qs));
        EXPECT_EQ(shown(list), keys) << where.toStdString();
    }
}

TEST_F(FollowUpListTest, TheLimitCutsAndBadInputIsToldWithoutALoss)
{
    open(list);
    for (const auto &[limit, rows] : std::initializer_list<std::pair<QString, int>>{
             {u"2"_qs, 2}, {{}, 9}, {u"0"_qs, 9}, {u"-1"_qs, 9}, {u"abc"_qs, 9}, {u"1e12"_qs, 9}}) {
        list.qzTxt(Cx_Gj::Limit).setText(limit);
        ASSERT_TRUE(list.IReportUI_Refresh()) << limit.toStdString();
        EXPECT_EQ(list.VS().Rows() - 1, rows) << limit.toStdString();
    }
    const std::tuple<int, QString, QString> cases[] = {
        {Cx_Gj::From, u"o'b"_qs, u"第 320 个字符处：日期有误：“o'b”，应如 2026-9-8|8|EBTQ_S"_qs},
        {Cx_Gj::To, u"昨天"_qs, u"Cx_Fcxx-->IReportUI_Refresh::“昨天”不是日期！|8|EBTQ_S"_qs},
        {Cx_Gj::To, u"9999-12-31"_qs, {}},
    };
    for (const auto &[field, text, failure] : cases) {
        list.qzTxt(field).setText(text);
        (void)raised();
        EXPECT_EQ(list.IReportUI_Refresh(), failure.isEmpty());
        EXPECT_EQ(raised(), failure.isEmpty() ? QStringList({u"layout"_qs, u"共加载9条记录"_qs})
                                              : QStringList(failure));
        EXPECT_TRUE(list.VS().Redraw());
        EXPECT_EQ(list.qzTxt(field).Text(), text);
        list.qzTxt(field).setText({});
    }
    list.qzTxt(Cx_Gj::Limit).type(u"0.5"_qs);
    EXPECT_FALSE(list.qzTxt(Cx_Gj::Limit).check());
    list.qzTxt(Cx_Gj::From).type(u"上周"_qs);
    EXPECT_FALSE(list.qzTxt(Cx_Gj::From).check());
}

TEST_F(FollowUpListTest, RemindersAreThoseOfTheBusinessDay)
{
    open(reminders);
    EXPECT_EQ(shown(reminders), u"G3 G2 G1");
    EXPECT_EQ(raised(), QStringList({u"layout"_qs, u"共加载3条记录"_qs}));
    EXPECT_EQ(reminders.VS().TextMatrix(3, 0) + reminders.VS().TextMatrix(0, 0), u"3序号");
    connection->execute(u"update fygj set 处理结果='已回'"_qs);
    ASSERT_TRUE(reminders.IReportUI_Refresh());
    EXPECT_EQ(raised(), QStringList({u"layout"_qs, u"共加载0条记录"_qs}));
    app.asRun = [](const SqlText &) { return SqlText(u"select 1 from nowhere"_qs); };
    EXPECT_FALSE(reminders.IReportUI_Refresh());
    EXPECT_EQ(raised(), QStringList(u"第 15 个字符处：表 nowhere 不存在|8|跟进提醒"_qs));
}

TEST_F(FollowUpListTest, FindGoesOnThroughTheListAndAroundItsEnd)
{
    open(list);
    (void)raised();
    constexpr int contents = FollowUpContents;
    list.VS().setCol(contents);
    EXPECT_FALSE(list.IReportUI_Find(u""_qs));
    EXPECT_FALSE(list.IReportUI_Find(u"李强"_qs)) << "in another column";
    const auto step = [&](bool found, const QString &key) {
        EXPECT_TRUE(found);
        EXPECT_EQ(list.VS().TextMatrix(list.VS().Row(), FollowUpKey), key);
    };
    step(list.IReportUI_Find(u"AMY"_qs), u"G3"_qs);
    step(list.IReportUI_FindNext(), u"G1"_qs);
    step(list.IReportUI_FindNext(), u"G3"_qs);
    step(list.IReportUI_Find(QVariantList{u"amy"_qs, -1}), u"G3"_qs);
    step(list.IReportUI_FindNext(), u"G1"_qs);
    EXPECT_EQ(raised(),
              QStringList({u"没有找到：李强"_qs, u"“AMY”：第1条，共2条"_qs, u"“AMY”：第2条，共2条"_qs,
                           u"“AMY”：第1条，共2条（已到尽头，从另一端继续）"_qs, u"“amy”：第1条，共2条"_qs,
                           u"“amy”：第2条，共2条（已到尽头，从另一端继续）"_qs}));
    list.VS().setColHidden(contents, true);
    step(list.IReportUI_Find(u"李强"_qs), u"G1"_qs);
    list.VS().setColHidden(contents, false);

    EXPECT_TRUE(list.IReportUI_Filter(u"amy"_qs));
    EXPECT_EQ(shown(list), u"G3 G1");
    EXPECT_FALSE(list.IReportUI_Find(u"谈价"_qs)) << "its row is hidden";
    EXPECT_TRUE(list.IReportUI_Filter(QString()));
    EXPECT_EQ(list.VS().visibleCount(), 9);

    list.ChkFind().setValue(1);
    list.SearchBox1().setText(u"aMY"_qs);
    list.SearchBox1().searchNow();
    EXPECT_EQ(shown(list), u"G3 G1");
}

} // namespace
