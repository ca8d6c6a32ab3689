#include "library/layout/layout_file.h"
#include "library/listings/fcxx_fixture.h"
#include "support/as_nobody.h"

#include <QFile>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// The list with a host that answers RefreshGetGridStatus as the desktop does.
class FcxxLayoutTest : public FcxxTest
{
protected:
    FcxxLayoutTest()
    {
        QObject::connect(&list, &Fcxx::RefreshGetGridStatus,
                         [this] { list.IReportUI_DoGetFormStatus(layoutFile); });
    }
    void open()
    {
        init();
        list.IReportUI_DoGetFormStatus(layoutFile);
        refresh();
    }
    void close()
    {
        list.IReportUI_DoSaveFormStatus(layoutFile);
        list.IReportUI_Clear();
    }
};

TEST_F(FcxxLayoutTest, ALayoutThatCouldNotBeReadOnceIsNotReplacedByTheDefault)
{
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
    put(u"Vs"_qs, u"VsColWidth1"_qs, u"1234"_qs);
    QFile file(layoutFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray kept = file.readAll();
    QFile::setPermissions(layoutFile, QFile::Permissions());
    {
        const AsNobody nobody;
        open();
    }
    QFile::setPermissions(layoutFile, QFile::ReadOwner | QFile::WriteOwner);
    list.VS().setColWidth(3, 777);
    close();
    ASSERT_TRUE(file.seek(0));
    EXPECT_EQ(kept, QFile(layoutFile).size() == kept.size() ? file.readAll() : QByteArray());
}

TEST_F(FcxxLayoutTest, AFilterIsBackBeforeTheFirstLoadAndNeverAfterAndNothingElseOfAListing)
{
    open();
    type(ListingFilter::District, u"天河区"_qs);
    type(ListingFilter::Department, u"一部"_qs, 12);
    list.Chk(1).setValue(1);
    list.XPCmb().setText(u"半年内"_qs);
    list.detail().qzFcTxt(53).setText(u"13800005678"_qs);
    list.detail().Txt(0).setText(u"下午联系业主"_qs);
    close();
    QFile kept(layoutFile);
    ASSERT_TRUE(kept.open(QFile::ReadOnly));
    const QByteArray text = kept.readAll();
    EXPECT_TRUE(text.contains("QZTXT_S_qzTxt_0_Text"));
    EXPECT_FALSE(text.contains("13800005678") || text.contains("下午联系业主"));

    Fcxx again{desktop};
    QObject::connect(&again, &Fcxx::RefreshGetGridStatus,
                     [&] { again.IReportUI_DoGetFormStatus(layoutFile); });
    ASSERT_TRUE(again.IReportUI_Init(app, 101));
    again.IReportUI_DoGetFormStatus(layoutFile);
    EXPECT_EQ(again.qzTxt(0).Text(), u"天河区");
    EXPECT_EQ(again.XPCmb().Text(), u"半年内");
    ASSERT_TRUE(again.IReportUI_Refresh());
    for (const char16_t *part : {u"UserTypeID=12)", u"A.地区='天河区'", u"like '%租%'", u"操作日期>#"})
        EXPECT_TRUE(app.lastStatement.text().contains(QString::fromUtf16(part)))
            << app.lastStatement.text().toStdString();

    again.qzTxt(0).type(u"海珠区"_qs);
    ASSERT_TRUE(again.IReportUI_Refresh());
    EXPECT_EQ(again.qzTxt(0).Text(), u"海珠区") << "typed since";
    for (const char16_t *key : {u"buy", u"rent", u"all"}) {
        again.NavToolbar1().press(QString::fromUtf16(key));
        EXPECT_TRUE(again.qzTxt(0).Text().isEmpty() && again.qzTxt(4).Value().isNull()) << "emptied since";
    }
    EXPECT_EQ(again.Chk(1).Value(), 0);
}

TEST_F(FcxxLayoutTest, AHostThatAsksForTheLayoutOnlyAfterALoadGetsItUnlessThePersonHasTyped)
{
    put(u"Form"_qs, u"QZTXT_S_qzTxt_0_Text"_qs, u"天河区"_qs);
    put(u"VsColWidth"_qs, u"VsCol1"_qs, u"66"_qs);
    for (const QString &typed : {QString(), u"海珠区"_qs}) {
        init();
        if (!typed.isEmpty())
            list.qzTxt(0).type(typed);
        refresh();
        EXPECT_EQ(list.qzTxt(0).Text(), typed.isEmpty() ? u"天河区"_qs : typed);
        EXPECT_EQ(list.VS().ColWidth(1), 66);
        list.IReportUI_Clear();
    }
}

TEST_F(FcxxLayoutTest, ColumnsThatAPersonChangedAreKeptAtOnceAndFoundAgain)
{
    store(u"3 2 1"_qs);
    open();
    list.VS().setColWidth(1, 123);
    list.VS().setColWidth(2, 0);
    std::vector<int> order = list.VS().columnOrder();
    std::swap(order.front(), order[ListingDistrict]);
    list.VS().setColumnOrder(order);
    list.detail().VsGj().setColWidth(2, 321);
    list.VS().reportLayoutChanged();
    refresh();
    EXPECT_EQ(list.VS().ColWidth(1), 123) << "a load brings nothing older back";
    // No close: the program may end any way.
    Fcxx again{desktop};
    ASSERT_TRUE(again.IReportUI_Init(app, 101));
    again.IReportUI_DoGetFormStatus(layoutFile);
    EXPECT_EQ(again.VS().ColWidth(1), 123);
    EXPECT_EQ(again.VS().ColWidth(2), 0);
    EXPECT_EQ(again.VS().columnOrder(), order);
    EXPECT_EQ(again.detail().VsGj().ColWidth(2), 321);
    EXPECT_TRUE(again.VS().ColHidden(19)) << "what the screen itself hides stays hidden";
}

TEST_F(FcxxLayoutTest, SubtotalsComeWithEveryLoadAndAreNoListings)
{
    put(u"VsIsSort"_qs, u"VsCol4"_qs, u"1"_qs);
    put(u"VsIsGroupOn"_qs, u"VsCol4"_qs, u"1"_qs);
    put(u"VsIsTotalOn"_qs, u"VsCol20"_qs, u"1"_qs);
    store(u"4 3 2 1"_qs);
    for (int load = 0; load < 2; ++load) {
        load == 0 ? open() : void(refresh());
        EXPECT_EQ(list.VS().Row(), load == 0 ? 1 : 5) << "a list opens at its top, and stays at a listing";
        ASSERT_EQ(list.VS().Rows(), 8);
        EXPECT_EQ(cell(3, 0) + cell(7, 0) + cell(7, ListingAttachments), u"天河区小计合计4"_qs);
        list.VS().setRow(5);
    }
    list.VS().setRow(7);
    events.clear();
    app.statements.clear();
    press(u"edit"_qs);
    press(u"delete"_qs);
    EXPECT_EQ(events, QStringList(2, u"当前行是小计或合计，请先在列表中选择房源！"_qs));
    EXPECT_EQ(app.statements, QStringList());
}

TEST_F(FcxxLayoutTest, NoLayoutFileStopsTheScreen)
{
    store(u"2 1"_qs);
    const QString readOnly = u"/proc/selfbb/Fcxx.txt"_qs; // not even the one who may do all can write there
    for (const QString &where :
         {folder.path(), readOnly, folder.filePath(u"none/below/Fcxx.txt"_qs), QString()}) {
        SCOPED_TRACE(where.toStdString());
        layoutFile = where;
        open();
        EXPECT_EQ(shown(), u"2 1");
        events.clear();
        list.VS().setColWidth(1, 99);
        list.VS().reportLayoutChanged();
        EXPECT_EQ(events, where.isEmpty() ? QStringList()
                                          : QStringList(u"布局未能保存，下次打开时不会保留："_qs + where));
        close();
        EXPECT_FALSE(events.join(u' ').contains(u"|8|"));
    }
}

TEST_F(FcxxLayoutTest, AScreenKnowsWhereItsFileLies)
{
    EXPECT_EQ(LayoutFile(u"PdmLpzd"_qs, app), folder.path() + u"/selfbb/PdmLpzd.txt"_qs);
    EXPECT_TRUE(QFile::exists(folder.filePath(u"selfbb"_qs)));
    EXPECT_EQ(ControlIndex(list.qzTxt(4)), 4);
    EXPECT_EQ(ControlIndex(list.VS()), -1);
    EXPECT_EQ(ControlIndex(QObject()), -1);
}

} // namespace
