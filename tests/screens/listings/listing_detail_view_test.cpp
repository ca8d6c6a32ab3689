#include "screens/listings/listing_detail_view.h"

#include "library/listings/fcxx_tables.h"
#include "library/listings/listing_detail_fields.h"
#include "screens/listings/fcxx_screen_fixture.h"
#include "screens/look/look.h"

#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QToolTip>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// Each listing has follow-ups and customers.
class ListingDetailViewTest : public FcxxScreenTest
{
protected:
    ListingDetailViewTest()
        : FcxxScreenTest(12, 300, 200)
    {}
    /// The texts of the labels in sight that belong to the widget.
    [[nodiscard]] QString captionOf(const QWidget &widget) const
    {
        QString captions;
        for (const QLabel *label : view.findChildren<QLabel *>()) {
            if (label->buddy() == &widget && label->isVisible())
                captions += label->text();
        }
        return captions;
    }

    ListingDetail &detail = module.detail();
};

TEST_F(ListingDetailViewTest, EachFieldStandsOnItsTabWithItsValue)
{
    const QRect place = table().geometry();
    for (int tab = ListingTab; tab <= PicturesTab; ++tab) {
        detail.qzVSTabCtl1().setActiveTab(tab);
        module.VS().setRow(module.VS().Row() == 2 ? 3 : 2);
        QCoreApplication::processEvents();
        EXPECT_EQ(table().geometry(), place) << "the list stays";
        for (const DetailField &each : detailFields()) {
            const auto &field = child<QLineEdit>(u"qzFcTxt_%1"_qs.arg(each.number));
            SCOPED_TRACE(field.objectName().toStdString() + " on tab " + std::to_string(tab));
            ASSERT_EQ(field.isVisible(), each.tab == tab);
            EXPECT_EQ(captionOf(field), each.tab == tab ? each.caption.toString() : QString());
            EXPECT_EQ(field.text(), detail.qzFcTxt(each.number).Text());
            EXPECT_TRUE(field.isReadOnly());
            const bool isPrice = QSet({25, 26, 27, 29, 30, 31, 32}).contains(each.number);
            EXPECT_EQ(field.toolTip().isEmpty(), !isPrice) << "owners are told of in one place";
            EXPECT_TRUE(!isPrice || field.alignment().testFlag(Qt::AlignRight));
        }
        for (const DetailBox &each : detailBoxes()) {
            const auto &box = child<QPlainTextEdit>(u"Txt_%1"_qs.arg(each.number));
            EXPECT_TRUE(box.isVisible() == (tab == OwnerTab) && box.isReadOnly());
            EXPECT_EQ(box.toPlainText(), detail.Txt(each.number).Text());
        }
    }
    EXPECT_EQ(child<QLineEdit>(u"qzFcTxt_0"_qs).text(), module.VS().TextMatrix(3, 1));
    for (const auto &[number, ink] :
         {std::pair(25, look::tokens().salePrice), {29, look::tokens().rent}, {27, look::tokens().ink}})
        EXPECT_EQ(child<QLineEdit>(u"qzFcTxt_%1"_qs.arg(number)).palette().color(QPalette::Text), ink);
    EXPECT_EQ(errors, QStringList());
}

TEST_F(ListingDetailViewTest, AFieldThatIsTooShortShowsItsTextUnderTheMouse)
{
    auto &field = child<QLineEdit>(u"qzFcTxt_41"_qs);
    detail.qzVSTabCtl1().setActiveTab(ListingTab);
    for (const QString &text : {u"水电"_qs, u"<b>水电</b>"_qs + u"水电气网"_qs.repeated(30)}) {
        detail.qzFcTxt(41).setText(text);
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, {5, 5}, field.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&field, &event);
        EXPECT_EQ(QToolTip::text(), text.size() < 5 ? QString() : Qt::convertFromPlainText(text));
        EXPECT_EQ(field.cursorPosition(), 0) << "its beginning is seen";
    }
    QToolTip::hideText();
}

TEST_F(ListingDetailViewTest, TheTabsSayHowMuchIsOnThem)
{
    const auto &tabs = child<QTabBar>(u"qzVSTabCtl1"_qs);
    const auto shownCount = [&] { return tabs.tabText(FollowUpsTab - 1); };
    connection->execute(u"delete from fygj"_qs);
    connection->execute(
        u"insert into fygj(跟进ID,房源ID) values('G','%1')"_qs.arg(module.VS().TextMatrix(2, ListingKey)));
    module.VS().setRow(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownCount() == u"跟进记录 (1)"; }));
    module.VS().setRow(3);
    EXPECT_EQ(shownCount(), u"跟进记录"_qs) << "that of the row before";
}

TEST_F(ListingDetailViewTest, KeysGoToTheTabs)
{
    int programsKey = 0;
    QObject::connect(new QShortcut(Qt::Key_F6, &view), &QShortcut::activated, [&] { ++programsKey; });
    auto &list = table();
    list.setFocus();
    for (const int tab : {1, 4, 2, 5, 3}) {
        QTest::keyClick(&list, static_cast<Qt::Key>(Qt::Key_0 + tab), Qt::AltModifier);
        EXPECT_EQ(detail.qzVSTabCtl1().ActiveTab(), tab);
        EXPECT_EQ(focusName(), u"VS"_qs);
    }
    QTest::keyClick(&list, Qt::Key_F6);
    EXPECT_EQ(focusName(), u"qzVSTabCtl1"_qs);
    auto &tabs = child<QTabBar>(u"qzVSTabCtl1"_qs);
    QTest::keyClick(&tabs, Qt::Key_Left);
    EXPECT_EQ(detail.qzVSTabCtl1().ActiveTab(), 2);
    QTest::keyClick(&tabs, Qt::Key_Tab);
    EXPECT_EQ(focusName(), u"qzFcTxt_2"_qs);
    auto &field = child<QLineEdit>(u"qzFcTxt_2"_qs);
    const QString text = field.text();
    QTest::keyClick(&field, Qt::Key_X);
    EXPECT_EQ(field.text(), text);
    EXPECT_EQ(programsKey, 0);
    QTest::keyClick(&field, Qt::Key_F6);
    EXPECT_EQ(programsKey, 1) << "from the detail it goes on to what the program has beside the page";
}

TEST_F(ListingDetailViewTest, GridsTellNothingFromFailed)
{
    for (const auto &[tab, name, source] :
         {std::tuple(FollowUpsTab, u"VsGj"_qs, "fygj"), {CustomersTab, u"VsP"_qs, "fykh"}}) {
        detail.qzVSTabCtl1().setActiveTab(tab);
        auto &grid = child<FlexGridView>(name);
        EXPECT_TRUE(grid.isVisible());
        connection->execute(u"delete from %1"_qs.arg(QLatin1String(source)));
        module.VS().setRow(2);
        EXPECT_EQ(grid.model()->rowCount(), 0);
        const QImage nothing = grid.viewport()->grab().toImage();
        connection->executeNative(QByteArray("drop table ") + source);
        module.VS().setRow(3);
        EXPECT_EQ(errors.size(), 1);
        EXPECT_NE(grid.viewport()->grab().toImage(), nothing);
        errors.clear();
    }
}

} // namespace
