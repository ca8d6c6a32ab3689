// What a refused right forbids cannot be done by any way that the screen has.

#include "library/followups/frm_gj.h"
#include "library/listings/fcxx_editor_fixture.h"
#include "screens/listings/fcxx_view.h"
#include "screens/support/screen.h"

#include <QApplication>
#include <QMenu>
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
    void chooseFromMenu(const Command &command) const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&table(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        auto *action = menu->findChild<QAction *>(command.key);
        ASSERT_TRUE(action) << command.key.toStdString();
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
        if (QApplication::activePopupWidget())
            QApplication::activePopupWidget()->close();
        QCoreApplication::processEvents();
    }
    std::unique_ptr<FcxxView> view;
};

TEST_F(FcxxRightsTest, EachCommandIsGivenOrRefusedByEveryWay)
{
    for (const int refused :
         {0, static_cast<int>(RightNew), static_cast<int>(RightEdit), static_cast<int>(RightDelete)}) {
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
                {"menu", [&] { chooseFromMenu(command); }},
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
        EXPECT_EQ(listings(), 3);
    }
}

} // namespace
