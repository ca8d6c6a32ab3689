#include "screens/listings/listing_detail_view.h"

#include "database/connection.h"
#include "host/demo/demo.h"
#include "host/host_fixture.h"
#include "library/listings/fcxx.h"
#include "library/listings/listing_detail_fields.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/listings/fcxx_view.h"
#include "screens/look/look.h"
#include "screens/support/screen.h"
#include "support/scripted_desktop.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace ebtq;
using namespace ebtq::test;

namespace {

const QDate today(2026, 11, 22);

/// The screen of the listings with a sample agency of which each listing has follow-ups and customers.
class ListingDetailViewTest : public testing::Test
{
protected:
    ListingDetailViewTest()
    {
        host::DemoOptions options;
        options.listings = 12;
        options.customers = 300;
        options.followUps = 200;
        options.today = today;
        host::writeDemo(*connection, options);
        QObject::connect(&module, &Fcxx::ErrMessage, [this](const QString &text) { errors += text; });
        EXPECT_TRUE(module.IReportUI_Init(app, 101));
        view.resize(1112, 600);
        showActive(view);
        EXPECT_TRUE(module.IReportUI_Refresh());
    }
    template<class T> T &child(const QString &name) const
    {
        T *widget = view.findChild<T *>(name);
        if (!widget)
            throw std::runtime_error("no widget " + name.toStdString());
        return *widget;
    }
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

    std::unique_ptr<db::Connection> connection =
        db::Connection::open(QStringLiteral(":memory:"), db::Connection::Missing::IsCreated);
    QTemporaryDir folder;
    ScriptedPanels panels;
    host::Application app{*connection, {QStringLiteral("U1"), {}, {}}, {folder.path(), today}, panels};
    ScriptedDesktop desktop;
    Fcxx module{desktop};
    ListingDetail &detail = module.detail();
    FcxxView view{module, nullptr};
    QStringList errors;
};

TEST_F(ListingDetailViewTest, EachFieldStandsOnItsTabWithItsValue)
{
    const QRect place = child<FlexGridView>(QStringLiteral("VS")).geometry();
    for (int tab = ListingTab; tab <= PicturesTab; ++tab) {
        detail.qzVSTabCtl1().setActiveTab(tab);
        module.VS().setRow(module.VS().Row() == 2 ? 3 : 2);
        QCoreApplication::processEvents();
        EXPECT_EQ(child<FlexGridView>(QStringLiteral("VS")).geometry(), place) << "the list stays";
        for (const DetailField &each : detailFields()) {
            const auto &field = child<QLineEdit>(QStringLiteral("qzFcTxt_%1").arg(each.number));
            SCOPED_TRACE(field.objectName().toStdString() + " on tab " + std::to_string(tab));
            ASSERT_EQ(field.isVisible(), each.tab == tab);
            EXPECT_EQ(captionOf(field), each.tab == tab ? each.caption.toString() : QString());
            EXPECT_EQ(field.text(), detail.qzFcTxt(each.number).Text());
            EXPECT_TRUE(field.isReadOnly() && field.toolTip().isEmpty()) << "owners are told of in one place";
        }
        for (const DetailBox &each : detailBoxes()) {
            const auto &box = child<QPlainTextEdit>(QStringLiteral("Txt_%1").arg(each.number));
            EXPECT_TRUE(box.isVisible() == (tab == OwnerTab) && box.isReadOnly());
            EXPECT_EQ(box.toPlainText(), detail.Txt(each.number).Text());
        }
    }
    EXPECT_EQ(child<QLineEdit>(QStringLiteral("qzFcTxt_0")).text(), module.VS().TextMatrix(3, 1));
    const std::pair<int, QColor> inks[] = {{25, look::tokens().salePrice}, {26, look::tokens().salePrice},
                                           {29, look::tokens().rent},      {30, look::tokens().rent},
                                           {27, look::tokens().ink},       {50, look::tokens().ink}};
    for (const auto &[number, ink] : inks) {
        const auto &field = child<QLineEdit>(QStringLiteral("qzFcTxt_%1").arg(number));
        EXPECT_EQ(field.palette().color(QPalette::Text), ink) << number;
    }
    EXPECT_EQ(errors, QStringList());
}

TEST_F(ListingDetailViewTest, KeysGoToTheTabs)
{
    int programsKey = 0;
    QObject::connect(new QShortcut(Qt::Key_F6, &view), &QShortcut::activated, [&] { ++programsKey; });
    auto &list = child<FlexGridView>(QStringLiteral("VS"));
    list.setFocus();
    for (const int tab : {1, 4, 2, 5, 3}) {
        QTest::keyClick(&list, static_cast<Qt::Key>(Qt::Key_0 + tab), Qt::AltModifier);
        EXPECT_EQ(detail.qzVSTabCtl1().ActiveTab(), tab);
        EXPECT_EQ(focusName(), QStringLiteral("VS"));
    }
    QTest::keyClick(&list, Qt::Key_F6);
    EXPECT_EQ(focusName(), QStringLiteral("qzVSTabCtl1"));
    auto &tabs = child<QTabBar>(QStringLiteral("qzVSTabCtl1"));
    QTest::keyClick(&tabs, Qt::Key_Left);
    EXPECT_EQ(detail.qzVSTabCtl1().ActiveTab(), 2);
    QTest::keyClick(&tabs, Qt::Key_Tab);
    EXPECT_EQ(focusName(), QStringLiteral("qzFcTxt_2"));
    auto &field = child<QLineEdit>(QStringLiteral("qzFcTxt_2"));
    const QString text = field.text();
    QTest::keyClick(&field, Qt::Key_X);
    EXPECT_EQ(field.text(), text);
    EXPECT_EQ(programsKey, 0);
    QTest::keyClick(&field, Qt::Key_F6);
    EXPECT_EQ(programsKey, 1) << "from the detail it goes on to what the program has beside the page";
}

TEST_F(ListingDetailViewTest, GridsShowTheirRowsAndTellNothingFromFailed)
{
    struct Case
    {
        int tab;
        QString grid;
        const char *table;
    };
    const Case cases[] = {{FollowUpsTab, QStringLiteral("VsGj"), "fygj"},
                          {CustomersTab, QStringLiteral("VsP"), "fykh"}};
    for (const Case &c : cases) {
        detail.qzVSTabCtl1().setActiveTab(c.tab);
        auto &grid = child<FlexGridView>(c.grid);
        EXPECT_TRUE(grid.isVisible());
        int mostRows = 0;
        for (int row = module.VS().Rows() - 1; row > 0; --row) {
            module.VS().setRow(row);
            mostRows = std::max(mostRows, grid.model()->rowCount());
        }
        EXPECT_GT(mostRows, 0) << c.table;
        connection->execute(QStringLiteral("delete from %1").arg(QLatin1String(c.table)));
        module.VS().setRow(2);
        const QImage nothing = grid.viewport()->grab().toImage();
        EXPECT_EQ(grid.model()->rowCount(), 0);
        connection->executeNative(QByteArray("drop table ") + c.table);
        module.VS().setRow(3);
        EXPECT_EQ(errors.size(), 1);
        EXPECT_NE(grid.viewport()->grab().toImage(), nothing);
        errors.clear();
    }
}

} // namespace
