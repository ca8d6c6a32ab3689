#include "form_module.h"

#include "database/connection.h"
#include "host/application.h"
#include "host/rights.h"
#include "host/setup.h"
#include "shell/main_window.h"
#include "shell/message_bar.h"
#include "shell/panels/widget_panel_presenter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

namespace ebtq::shell {
namespace {

/// The window with a scripted data-entry module, which the person may do everything in, and a second one.
class FormPageTest : public ::testing::Test
{
protected:
    FormPageTest()
    {
        host::prepareDatabase(*m_connection);
        for (const int right : {RightNew, RightDelete, RightEdit})
            grant(right, true);
        window.resize(1280, 720);
        window.show();
        window.activateWindow();
        open();
        library.log.clear();
    }
    void open()
    {
        window.openModule(host::PropertyRightModule);
        window.openModule(host::BuildingModule);
        QApplication::processEvents();
    }
    void grant(int right, bool allowed)
    {
        host::setRight(*m_connection, u"1"_qs, host::BuildingModule, right, allowed);
    }
    template<class Widget = QToolButton> Widget &see(const QString &name)
    {
        for (Widget *each : window.findChildren<Widget *>(name))
            if (each->isVisible())
                return *each;
        throw std::runtime_error("not in sight: " + name.toStdString());
    }
    void click(const QString &name) { see(name).click(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *focus = window.focusWidget();
        QTest::keyClick(focus ? focus : &window, key, modifiers);
        QApplication::processEvents();
    }
    void type() { QTest::keyClicks(&see<QLineEdit>(u"field"_qs), u"typed"_qs); }
    /// What has been asked while `act` ran, answered by the button with that text.
    QString asked(const QString &answer, const std::function<void()> &act)
    {
        QString question;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            question = box->text();
            for (QAbstractButton *button : box->buttons())
                if (button->text().startsWith(answer))
                    return button->click();
            ADD_FAILURE() << "no such answer";
            box->close();
        });
        watch.start(0);
        act();
        QTest::qWait(1);
        EXPECT_TRUE(!window.isVisible() || QTest::qWaitForWindowActive(&window));
        return question;
    }
    QStringList usable()
    {
        QStringList names;
        for (const QToolButton *each : see<QWidget>(u"FormCommands"_qs).findChildren<QToolButton *>())
            if (each->isEnabled())
                names << each->objectName().section(u'_', 1);
        return names;
    }
    QString state() { return see<QLabel>(u"FormState"_qs).text(); }
    bool isNew()
    {
        const auto labels = window.findChildren<QLabel *>(u"FormState"_qs);
        return std::ranges::any_of(
            labels, [](const QLabel *each) { return each->isVisible() && each->text() == u"新建"; });
    }
    QString messages() { return window.findChild<MessageBar *>()->shownTexts().join(u'|'); }
    QString done() { return std::exchange(library.log, {}).join(u','); }

    test::FormLibrary library;
    QTemporaryDir folder;

private:
    std::unique_ptr<db::Connection> m_connection = db::Connection::open(u":memory:"_qs);
    WidgetPanelPresenter m_presenter;
    host::Application m_app{*m_connection,
                            {.id = u"1"_qs, .name = u"张敏"_qs, .department = {}},
                            {folder.path(), QDate(2026, 11, 22)},
                            m_presenter};

protected:
    MainWindow window{library, m_app, {u"张敏"_qs, {}, QDate(2026, 11, 22), u"a.db"_qs}};
};

const QString browsing = u"first,previous,next,last,find,findNext,refresh,close"_qs;

TEST_F(FormPageTest, EachCommandIsThereInItsStateAndCallsTheModule)
{
    const std::tuple<std::function<void()>, const char *, const char *, bool> steps[] = {
        {[&] { press(Qt::Key_F5); }, "SaveStatus,Refresh,GetStatus", "浏览", false},
        {[&] { click(u"Command_next"_qs); }, "Next", "浏览", false},
        {[&] { press(Qt::Key_F3); }, "Find", "浏览", false},
        {[&] { press(Qt::Key_F3); }, "FindNext", "浏览", false},
        {[&] { click(u"Command_delete"_qs); }, "Delete", "浏览", false},
        {[&] { press(Qt::Key_N, Qt::ControlModifier); }, "New", "新建", true},
        {[&] { press(Qt::Key_F3); }, "", "新建", true},
        {[&] { press(Qt::Key_Escape); }, "Cancel", "浏览", false},
        {[&] { click(u"Command_edit"_qs); }, "Edit", "编辑", true},
        {[&] { press(Qt::Key_S, Qt::ControlModifier); }, "Save", "浏览", false},
        {[&] { library.module->beginByItself(); }, "", "编辑", true},
        {[&] { press(Qt::Key_Escape); }, "Cancel", "浏览", false}};
    for (const auto &[act, called, state, isEditing] : steps) {
        act();
        EXPECT_EQ(done(), QString::fromUtf8(called));
        EXPECT_EQ(this->state(), QString::fromUtf8(state));
        EXPECT_EQ(window.findChild<QLabel *>(u"StatusUnsaved"_qs)->isVisible(), isEditing);
        EXPECT_EQ(usable().join(u','),
                  isEditing ? u"save,cancel,close"_qs : u"new,edit,delete,"_qs + browsing);
    }
    click(u"Command_edit"_qs);
    press(Qt::Key_F5);
    EXPECT_EQ(messages(), u"楼盘字典：正在编辑，请先保存或取消！");
    press(Qt::Key_Escape);
    EXPECT_EQ(messages(), QString()) << "Escape was for the message";
    EXPECT_EQ(done(), u"Edit");
}

TEST_F(FormPageTest, RightsAreLookedAtWhenSomethingIsWritten)
{
    click(u"Command_edit"_qs);
    type();
    for (const int right : {RightEdit, RightDelete})
        grant(right, false);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(done(), u"Edit");
    EXPECT_EQ(state(), u"编辑");
    EXPECT_FALSE(library.module->isDragged) << "a drop begins an edit";
    EXPECT_EQ(see<QLineEdit>(u"field"_qs).text(), u"typed");
    EXPECT_EQ(asked(u"否"_qs, [&] { click(u"Command_cancel"_qs); }), u"数据已变动，是否保存！");
    EXPECT_EQ(usable().join(u','), u"new,"_qs + browsing);
    grant(RightNew, false);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(done(), u"Cancel");
    EXPECT_EQ(messages(), u"楼盘字典：您没有新建楼盘字典的权限！|楼盘字典：您没有修改楼盘字典的权限！");
}

TEST_F(FormPageTest, NothingTypedIsLeftWithoutAQuestion)
{
    const std::tuple<const char *, std::function<void()>, bool> ways[] = {
        {"another tab",
         [&] {
             auto &tabs = see<QTabBar>(u"ModuleTabs"_qs);
             QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
         },
         true},
        {"its key", [&] { press(Qt::Key_Tab, Qt::ControlModifier); }, true},
        {"the navigation", [&] { click(u"Navigation_202"_qs); }, true},
        {"the module's end", [&] { press(Qt::Key_W, Qt::ControlModifier); }, true},
        {"its button", [&] { click(u"Command_close"_qs); }, true},
        {"cancel", [&] { press(Qt::Key_Escape); }, false},
        {"another user", [&] { window.close(); }, true}};
    for (const auto &[what, leave, leaves] : ways) {
        for (const auto &[answer, saves, called] : {std::tuple(u"取消"_qs, true, ""),
                                                    {u"是"_qs, false, "Save"},
                                                    {u"是"_qs, true, "Save"},
                                                    {u"否"_qs, true, "Cancel"}}) {
            SCOPED_TRACE(std::string(what) + answer.toStdString());
            window.show();
            open();
            click(u"Command_new"_qs);
            type();
            library.module->saves = saves;
            done();
            EXPECT_EQ(asked(answer, leave), u"数据已变动，是否保存！");
            EXPECT_EQ(done().section(u',', 0, 0), QString::fromUtf8(called));
            const bool stays = !saves || answer == u"取消";
            EXPECT_EQ(isNew(), stays);
            EXPECT_EQ(window.findChild<QTabBar *>()->currentIndex() == 1, stays || !leaves);
            if (stays) {
                EXPECT_EQ(window.focusWidget(), &see<QLineEdit>(u"field"_qs)) << "where the person was";
                asked(u"否"_qs, [&] { press(Qt::Key_Escape); });
            }
        }
    }
}

TEST_F(FormPageTest, WhatAModuleThrowsEndsNothing)
{
    click(u"Command_edit"_qs);
    type();
    library.module->thrown = u"服务器没有响应"_qs;
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(state(), u"编辑");
    EXPECT_EQ(asked(u"是"_qs, [&] { window.close(); }), u"数据已变动，是否保存！");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(messages(), u"楼盘字典：服务器没有响应（2 次）");
    asked(u"否"_qs, [&] { window.close(); });
    EXPECT_FALSE(window.isVisible()) << "one that cannot be cancelled can still be left";
}

} // namespace
} // namespace ebtq::shell
