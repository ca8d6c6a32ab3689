#include "library/listings/fcxx_tables.h"
#include "library/listings/listing_detail_fields.h"
#include "screens/listings/fcxx_screen_fixture.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>

using namespace ebtq;
using namespace ebtq::test;

namespace {

constexpr int listings = 120;

class FcxxViewTest : public FcxxScreenTest
{
protected:
    FcxxViewTest()
        : FcxxScreenTest(listings, 10, 10)
    {}
    [[nodiscard]] QLineEdit &field(int number) const { return child<QLineEdit>(u"qzTxt_%1"_qs.arg(number)); }
    [[nodiscard]] QToolButton &button(const QString &key) const
    {
        return child<QToolButton>(u"NavToolbar1_"_qs + key);
    }
    void typeInto(int number, const QString &text) const
    {
        field(number).setFocus();
        field(number).selectAll();
        typeText(field(number), text);
    }
    static void click(QWidget &widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    [[nodiscard]] QStringList shown(int column) const
    {
        QStringList texts;
        const QAbstractItemModel &model = *table().model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, column).data().toString());
        return texts;
    }
    [[nodiscard]] static QString loaded(qsizetype rows) { return u"共加载%1条记录"_qs.arg(rows); }
};

TEST_F(FcxxViewTest, EveryFilterLoadsOnceWhenItIsConfirmed)
{
    const QString district = shown(4).constFirst();
    const RowBlock state = connection->query(
        u"select 代码,名称 from pdmsjzd where 类型='交易状态' and 名称='%1'"_qs.arg(shown(3).constFirst()));
    auto &period = child<QComboBox>(u"XPCmb"_qs);
    const auto enter = [](QWidget &widget) { QTest::keyClick(&widget, Qt::Key_Return); };
    const auto letter = [&](Qt::Key key) { QTest::keyClick(&view, key, Qt::AltModifier); };
    struct Case
    {
        const char *what;
        std::function<void()> begin; ///< loads nothing yet
        std::function<void()> confirm;
        int column;     ///< each row of which contains
        QString wanted; ///< this
        QString pressed = u"all"_qs;
    };
    const auto nothing = [] {};
    const Case cases[] = {
        {"district", [&] { typeInto(0, district); }, [&] { enter(field(0)); }, 4, district},
        {"state", [&] { panels.willChoose(state.value(0, 0).toString()); },
         [&] { QTest::keyClick(&field(3), Qt::Key_F4); }, 3, state.value(0, 1).toString()},
        {"tick sale", nothing, [&] { letter(Qt::Key_S); }, 2, u"售"_qs, u"buy"_qs},
        {"rent", nothing, [&] { click(button(u"rent"_qs)); }, 2, u"租"_qs, u"rent"_qs},
        {"buy", nothing, [&] { click(button(u"buy"_qs)); }, 2, u"售"_qs, u"buy"_qs},
        {"tick rent too", nothing, [&] { letter(Qt::Key_Z); }, 2, {}, {}},
        {"period", [&] { QTest::keyClick(&period, Qt::Key_Down); }, [&] { enter(period); }, 1, u"FY"_qs},
    };
    for (const auto &[what, begin, confirm, column, wanted, pressed] : cases) {
        SCOPED_TRACE(what);
        if (!pressed.isEmpty())
            module.NavToolbar1().press(u"all"_qs);
        message.clear();
        begin();
        EXPECT_EQ(message, QString());
        confirm();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !message.isEmpty(); }));
        const QStringList cells = shown(column);
        EXPECT_EQ(message, loaded(cells.size()));
        EXPECT_EQ(cells.filter(wanted).size(), cells.size());
        EXPECT_EQ(cells.size() == listings, wanted.isEmpty());
        for (const QString &key : {u"all"_qs, u"buy"_qs, u"rent"_qs})
            EXPECT_EQ(button(key).isChecked(), key == pressed) << key.toStdString();
        for (const int kind : {0, 1})
            EXPECT_EQ(child<QAbstractButton>(u"Chk_%1"_qs.arg(kind)).isChecked(),
                      module.Chk(kind).Value() == 1);
    }
    EXPECT_EQ(panels.place(), field(3).mapToGlobal(QPoint(0, field(3).height())));
}

TEST_F(FcxxViewTest, FiltersThatDoNotFitFoldBelowAButtonThatCountsThoseInUse)
{
    auto &more = child<QToolButton>(u"MoreFilters"_qs);
    const auto &period = child<QComboBox>(u"XPCmb"_qs);
    const int oneLine = more.parentWidget()->height();
    EXPECT_TRUE(more.isVisible() && !period.isVisible());
    EXPECT_EQ(more.text(), u"更多"_qs);
    module.XPCmb().setText(u"半年内"_qs);
    EXPECT_EQ(more.text(), u"更多 (1)"_qs);
    QTest::keyClick(&view, Qt::Key_Q, Qt::AltModifier);
    EXPECT_TRUE(period.isVisible() && period.hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([&] { return more.parentWidget()->height() > oneLine; }));
    click(more);
    view.resize(1272, 700); // the page of a window of 1440
    EXPECT_TRUE(QTest::qWaitFor([&] { return period.isVisible() && !more.isVisible(); }));
    EXPECT_NEAR(more.parentWidget()->height(), oneLine, 2);
}

TEST_F(FcxxViewTest, AFoldedDetailLeavesTheListItsRoomAndComesBackAsItWas)
{
    const auto detailHeight = [&] { return child<QSplitter>(u"parts"_qs).sizes().value(1); };
    const auto foldByKey = [&] { QTest::keyClick(&view, Qt::Key_D, Qt::ControlModifier); };
    QTest::qWait(0);
    child<QSplitter>(u"parts"_qs).setSizes({300, 220});
    const int before = detailHeight();
    view.resize(1112, 624); // the page of a window of 1280 by 720
    child<QWidget>(u"qzVSTabCtl1"_qs).setFocus();
    foldByKey();
    EXPECT_TRUE(table().hasFocus());
    EXPECT_TRUE(QTest::qWaitFor([&] { return table().viewport()->height() >= 14 * table().rowHeight(0); }));
    EXPECT_FALSE(child<QWidget>(u"qzFcTxt_0"_qs).isVisible());
    foldByKey();
    EXPECT_EQ(detailHeight(), before);
    click(child<QWidget>(u"FoldDetail"_qs));
    EXPECT_TRUE(view.isDetailFolded());
    module.detail().qzVSTabCtl1().setActiveTab(ListingTab);
    QTest::mouseClick(&child<QWidget>(u"qzVSTabCtl1"_qs), Qt::LeftButton, {}, {10, 10});
    EXPECT_FALSE(view.isDetailFolded()) << "a tab was chosen";
}

TEST_F(FcxxViewTest, AWrongTextHoldsRefreshBackButNotTheWayOut)
{
    typeInto(4, u"没有的部门"_qs);
    click(button(u"refresh"_qs));
    EXPECT_EQ(message, QString());
    EXPECT_FALSE(button(u"refresh"_qs).isChecked()) << "only a kind of listing stays pressed";
    const auto *bubble = view.findChild<QLabel *>(u"FieldError"_qs);
    ASSERT_TRUE(bubble);
    EXPECT_EQ(bubble->text(), u"部门输入有误，请重新输入！"_qs);
    click(button(u"all"_qs));
    EXPECT_EQ(field(4).text(), QString());
    EXPECT_EQ(message, loaded(listings));
    EXPECT_FALSE(view.findChild<QLabel *>(u"FieldError"_qs));
}

TEST_F(FcxxViewTest, F5LoadsByWhatIsTypedAndNotByTheValueBefore)
{
    int programsKey = 0;
    QObject::connect(new QShortcut(Qt::Key_F5, &view), &QShortcut::activated, [&] { ++programsKey; });
    QStringList departments = shown(17);
    departments.removeDuplicates();
    departments.removeAll(QString());
    for (const QString &wanted : departments.mid(0, 2)) {
        typeInto(4, wanted);
        QTest::keyClick(&field(4), Qt::Key_F5);
        EXPECT_FALSE(shown(17).isEmpty());
        EXPECT_EQ(shown(17).count(wanted), shown(17).size()) << wanted.toStdString();
    }
    message.clear();
    typeText(field(4), u"x"_qs);
    QTest::keyClick(&field(4), Qt::Key_F5);
    EXPECT_EQ(message, QString()) << "a refused text is loaded by nothing";
    EXPECT_EQ(programsKey, 0);
}

TEST_F(FcxxViewTest, TellsAnEmptyListFromAFailedOne)
{
    auto &grid = table();
    const auto hint = [&] { return grid.viewport()->grab().toImage(); };
    const QImage filled = hint();
    grid.setEmptyHint({});
    EXPECT_EQ(hint(), filled) << "rows need no hint";
    typeInto(0, u"没有的城区'"_qs);
    module.NavToolbar1().press(u"refresh"_qs);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_EQ(shown(1).size(), 0);
    EXPECT_EQ(field(0).text(), u"没有的城区'"_qs) << "nothing typed is lost";
    const QImage afterFailure = hint();
    module.qzTxt(0).setText(u"没有的城区"_qs);
    EXPECT_TRUE(module.IReportUI_Refresh());
    EXPECT_EQ(shown(1).size(), 0);
    EXPECT_NE(hint(), afterFailure);
}

TEST_F(FcxxViewTest, TabGoesFromTheDetailThroughToolBarAndFiltersToTheList)
{
    view.resize(1272, 700); // no filter is folded away
    QStringList order = {u"qzVSTabCtl1"_qs};
    QString letters;
    for (const QString &key : u"all buy rent new edit delete gj refresh close"_qs.split(u' ')) {
        order.append(u"NavToolbar1_"_qs + key);
        letters += button(key).toolTip().section(u"Alt+"_qs, 1).first(1);
    }
    EXPECT_EQ(letters, u"ABRNEDGUX");
    order += {u"qzTxt_0"_qs, u"qzTxt_7"_qs, u"qzTxt_1"_qs, u"qzTxt_3"_qs,    u"qzTxt_4"_qs, u"qzTxt_5"_qs,
              u"XPCmb"_qs,   u"Chk_0"_qs,   u"Chk_1"_qs,   u"SearchBox1"_qs, u"ChkFind"_qs, u"VS"_qs};
    child<QWidget>(u"qzVSTabCtl1"_qs).setFocus();
    QStringList walked;
    for (qsizetype step = 0; step < order.size(); ++step) {
        QWidget *focused = QApplication::focusWidget();
        walked.append(focused->objectName().isEmpty() ? focused->parentWidget()->objectName()
                                                      : focused->objectName());
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    EXPECT_EQ(walked, order);
    QTest::keyClick(&view, Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return module.ChkFind().Value() == 1; }));
}

TEST_F(FcxxViewTest, NothingIsCutOrOverlapsAtAnySize)
{
    const std::pair<QSize, int> sights[] = {{QSize(1112, 560), 1}, {QSize(1112, 560), 2},
                                            {QSize(900, 560), 3},  {QSize(1376, 800), 4},
                                            {QSize(1376, 800), 5}, {QSize(3670, 2000), 1}};
    for (const auto &[size, tab] : sights) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height() << ", tab " << tab);
        module.detail().qzVSTabCtl1().setActiveTab(tab);
        view.resize(size);
        QCoreApplication::processEvents();
        EXPECT_GT(expectNothingIsCut(view), 20);
        EXPECT_GT(table().height(), size.height() * 2 / 5);
        EXPECT_FALSE(table().horizontalScrollBar()->isVisible() && size.width() > 1100);
    }
}

TEST_F(FcxxViewTest, CtrlPPrintsAndWhatTheMenuDoesIsReportedAsTheListDoes)
{
    auto &grid = table();
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors[0].contains(u"没有打印功能"_qs));
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(message, u"已复制1行"_qs);
    desktop.willChooseFile(u"/dev/null/list.csv"_qs);
    QContextMenuEvent request(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&grid, &request);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_S);
    QCoreApplication::sendPostedEvents();
    ASSERT_EQ(errors.size(), 2);
    EXPECT_TRUE(errors[1].startsWith(u"无法写入文件"_qs));
    EXPECT_TRUE(desktop.asked().last().contains(u"房源信息列表 2026-11-22.csv"_qs));
}

TEST_F(FcxxViewTest, WhatIsCopiedTellsNoOwner)
{
    const QString secret = u"秘密"_qs;
    for (const QString &column : {u"业主"_qs, u"联系人"_qs, u"手机"_qs, u"联系说明"_qs, u"备注"_qs})
        connection->execute(u"update fyxx set %1='%2'"_qs.arg(column, secret));
    EXPECT_TRUE(module.IReportUI_Refresh());
    for (int column = 0; column < module.VS().Cols(); ++column)
        module.VS().setColWidth(column, 60); // as a layout may say
    table().setFocus();
    table().selectAll();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData &copied = *QApplication::clipboard()->mimeData();
    for (const QString &out : {copied.text(), copied.html()}) {
        EXPECT_TRUE(out.contains(shown(1).constLast()));
        EXPECT_FALSE(out.contains(secret) || out.contains(module.VS().TextMatrix(1, ListingKey)));
    }
}

TEST_F(FcxxViewTest, SurvivesTheEndOfItsModulesWork)
{
    EXPECT_TRUE(module.IReportUI_Clear());
    EXPECT_EQ(shown(1).size(), 0);
    auto &grid = table();
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Down);
    click(button(u"refresh"_qs));
    EXPECT_EQ(errors.size(), 1) << "a call out of order ends in a message";
}

} // namespace
