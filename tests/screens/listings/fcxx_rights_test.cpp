// What a refused right forbids cannot be done by any way that the screen has.

#include "library/followups/frm_gj.h"
#include "library/listings/fcxx_fixture.h"
#include "library/listings/listing_detail_fields.h"
#include "screens/listings/fcxx_view.h"
#include "screens/support/screen.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace ebtq;
using namespace ebtq::test;

namespace {

struct Command
{
    QString key;
    Qt::Key letter;
    int right; ///< 0 for a command that everybody may give
};
const Command commands[] = {{u"new"_qs, Qt::Key_N, RightNew},
                            {u"edit"_qs, Qt::Key_E, RightEdit},
                            {u"delete"_qs, Qt::Key_D, RightDelete},
                            {u"gj"_qs, Qt::Key_G, 0}};

/// The list on the screen for a user without some of the rights.
class FcxxRightsTest : public FcxxEditorTest
{
protected:
    void showWithout(int right)
    {
        connection->execute(u"update host_rights set allowed=1"_qs);
        connection->execute(u"update host_rights set allowed=0 where rightID=%1"_qs.arg(right));
        list.IReportUI_Clear();
        EXPECT_TRUE(list.IReportUI_Init(app, host::ListingModule) && list.IReportUI_Refresh());
        view = std::make_unique<FcxxView>(list, nullptr);
        view->resize(1280, 640);
        showActive(*view);
        list.VS().setRow(1);
    }
    [[nodiscard]] QToolButton &button(const Command &command) const
    {
        return *view->findChild<QToolButton *>(u"NavToolbar1_"_qs + command.key);
    }
    [[nodiscard]] QTableView &table() const { return *view->findChild<QTableView *>(u"VS"_qs); }
    void chooseFromMenu(const QString &command) const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&table(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        menu->setActiveAction(menu->findChild<QAction *>(command));
        QTest::keyClick(menu, Qt::Key_Return);
        menu->close();
        QCoreApplication::processEvents();
    }
    std::unique_ptr<FcxxView> view;
};

TEST_F(FcxxRightsTest, EachCommandIsGivenOrRefusedByEveryWay)
{
    for (const int refused : std::initializer_list<int>{0, RightNew, RightEdit, RightDelete}) {
        showWithout(refused);
        for (const Command &command : commands) {
            const bool allowed = refused == 0 || command.right != refused;
            const std::pair<const char *, std::function<void()>> ways[] = {
                {"mouse", [&] { QTest::mouseClick(&button(command), Qt::LeftButton); }},
                {"shortcut",
                 [&] {
                     showActive(*view);
                     QTest::keyClick(view.get(), command.letter, Qt::AltModifier);
                 }},
                {"menu", [&] { chooseFromMenu(command.key); }},
                {"key", [&] { list.NavToolbar1().press(command.key.toUpper()); }},
            };
            for (const auto &[what, act] : ways) {
                SCOPED_TRACE(command.key.toStdString() + " by " + what + " without " +
                             std::to_string(refused));
                if (allowed && command.key == u"delete")
                    desktop.willAnswer(Desktop::Answer::No);
                else if (allowed)
                    desktop.willShow([](QObject &) {});
                const qsizetype before = desktop.asked().size();
                act();
                EXPECT_TRUE(allowed || !button(command).isDown());
                EXPECT_TRUE(QTest::qWaitFor([&] {
                    return desktop.asked().size() - before == (allowed ? 1 : 0);
                })) << "a shortcut shows the button pressed first";
            }
        }
        EXPECT_EQ(rows(u"select 房源ID from fyxx"_qs).rowCount(), 3);
    }
}

TEST_F(FcxxRightsTest, WhatGoesOutOfTheListTellsNoOwner)
{
    const QString secret = u"秘密"_qs;
    for (const QString &column : {u"业主"_qs, u"联系人"_qs, u"手机"_qs, u"联系说明"_qs, u"备注"_qs})
        connection->execute(u"update fyxx set %1='%2'"_qs.arg(column, secret));
    showWithout(RightEdit);
    list.detail().qzVSTabCtl1().setActiveTab(OwnerTab);
    ASSERT_EQ(list.detail().qzFcTxt(53).Text(), secret);
    for (int column = 0; column < list.VS().Cols(); ++column)
        list.VS().setColWidth(column, 60); // as a layout may say
    table().setFocus();
    table().selectAll();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData &copied = *QApplication::clipboard()->mimeData();
    for (const QString &out : {copied.text(), copied.html()}) {
        EXPECT_TRUE(out.contains(u"东湖名苑"_qs)) << out.toStdString();
        EXPECT_FALSE(out.contains(secret) || out.contains(cell(1, ListingKey))) << out.toStdString();
    }
}

} // namespace
