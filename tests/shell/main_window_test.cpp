#include "shell/main_window.h"

#include "database/connection.h"
#include "host/application.h"
#include "screens/look/look.h"
#include "shell/message_bar.h"
#include "shell/navigation.h"
#include "shell/panels/widget_panel_presenter.h"
#include "test_module.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace ebtq::shell {
namespace {

using host::BuildingModule;
using host::CustomerModule;
using host::ListingModule;
using ::testing::ElementsAre;

class MainWindowTest : public ::testing::Test
{
protected:
    /// Made on first use, so that a test can prepare the library before.
    MainWindow &window()
    {
        if (!m_window) {
            m_window = std::make_unique<MainWindow>(
                library, app,
                SessionFacts{u"张敏"_qs, u"营业一部"_qs, QDate(2026, 11, 22), u"本地数据库 · a.db"_qs});
            m_window->resize(1280, 720);
            m_window->show();
            m_window->activateWindow();
            QApplication::processEvents();
        }
        return *m_window;
    }
    template<class Widget> Widget *child(const char *name)
    {
        return window().findChild<Widget *>(QLatin1String(name));
    }
    QTabBar &tabs() { return *child<QTabBar>("ModuleTabs"); }
    QStringList tabTexts()
    {
        QStringList texts;
        for (int tab = 0; tab < tabs().count(); ++tab)
            texts << tabs().tabText(tab);
        return texts;
    }
    QStringList messages() { return child<MessageBar>("MessageBar")->shownTexts(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *focus = window().focusWidget();
        QTest::keyClick(focus ? focus : &window(), key, modifiers);
        QApplication::processEvents();
    }

    QTemporaryDir folder;
    test::TestLibrary library{
        {u"EBTQ_S.Fcxx"_qs, u"EBTQ_S.khxx"_qs, u"EBTQ_S.selPdm"_qs, u"EBTQ_S.PdmLpzd"_qs}};

private:
    std::unique_ptr<db::Connection> m_connection = db::Connection::open(u":memory:"_qs);
    WidgetPanelPresenter m_presenter;

protected:
    host::Application app{*m_connection,
                          {u"1"_qs, u"张敏"_qs, u"营业一部"_qs},
                          {folder.path(), QDate(2026, 11, 22)},
                          m_presenter};

private:
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(MainWindowTest, AModuleLivesByTheContract)
{
    window().openFirstModule();
    EXPECT_EQ(library.log.join(u','), u"Init 101,DoGetFormStatus,Refresh");
    const QFileInfo layout(library.module->layoutFile);
    EXPECT_EQ(layout.fileName(), u"Fcxx.txt");
    EXPECT_EQ(layout.absolutePath(), folder.path() + u"/selfbb"_qs);
    EXPECT_TRUE(QFileInfo::exists(layout.absolutePath()));
    library.log.clear();

    press(Qt::Key_F5);
    EXPECT_EQ(library.log.join(u','), u"Refresh");
    library.log.clear();
    Q_EMIT library.module->Message(u"共加载3条记录"_qs);
    EXPECT_EQ(child<QLabel>("StatusMessage")->text(), u"共加载3条记录");

    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(library.log.join(u','), u"DoSaveFormStatus,Clear,view gone,module gone");
    EXPECT_TRUE(tabTexts().isEmpty());
}

TEST_F(MainWindowTest, AnOpenListIsPutAwayBeforeItsModuleEnds)
{
    const std::tuple<const char *, std::function<void()>, bool> ways[] = {
        {"the page", [&] { child<QToolButton>("CloseTab_101")->click(); }, false},
        {"the window", [&] { window().close(); }, true}};
    host::Panel panel;
    panel.rows = RowBlock({{u"名称"_qs, ColumnType::Text}});
    panel.rows.append("天河区");
    panel.rows.finish();
    panel.shown = {{0, u"名称"_qs}};
    for (const auto &[what, close, endsTheWindow] : ways) {
        SCOPED_TRACE(what);
        library.prepare = [&](test::TestModule &module) {
            module.duringRefresh = [&] {
                QTimer::singleShot(0, &window(), close);
                EXPECT_EQ(WidgetPanelPresenter().choose(panel), std::nullopt);
                library.log << u"Refreshed"_qs;
            };
        };
        library.log.clear();
        window().openModule(ListingModule);
        EXPECT_EQ(library.log.last(), u"Refreshed") << "the module is there as long as its work lasts";
        QApplication::processEvents();
        EXPECT_EQ(library.log.count(u"module gone"_qs), 1);
        EXPECT_EQ(window().isVisible(), !endsTheWindow);
    }
}

/// A dialog is gone from the screen before the operation that waits for it has returned.
TEST_F(MainWindowTest, AModuleOutlivesTheEventLoopsThatItHasBegun)
{
    library.prepare = [&](test::TestModule &module) {
        module.duringRefresh = [&] {
            QEventLoop outer;
            QTimer::singleShot(0, &window(), [&] {
                QEventLoop inner;
                QTimer::singleShot(0, &window(), [&] {
                    child<QToolButton>("CloseTab_101")->click();
                    EXPECT_EQ(library.log.count(u"module gone"_qs), 0);
                    inner.quit();
                });
                inner.exec();
                outer.quit();
            });
            outer.exec();
        };
    };
    window().openModule(ListingModule);
    EXPECT_TRUE(QTest::qWaitFor([&] { return library.log.count(u"module gone"_qs) == 1; }));
}

TEST_F(MainWindowTest, ClosingTheWindowEndsAllModulesButNotBehindAMessageBox)
{
    window().openModule(ListingModule);
    window().openModule(CustomerModule);
    library.log.clear();
    QDialog box(&window());
    box.setModal(true);
    box.show();
    window().close();
    EXPECT_TRUE(window().isVisible());
    box.close();
    window().close();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(library.log.count(u"Clear"_qs), 2);
    EXPECT_EQ(library.log.count(u"module gone"_qs), 2);
}

TEST_F(MainWindowTest, FailuresOfAModuleAreShown)
{
    const auto fails = [](test::TestModule &module) {
        module.duringRefresh = [] { throw std::runtime_error("数据库已关闭"); };
    };
    struct Case
    {
        std::function<void(test::TestModule &)> prepare;
        bool hasView;
        QString told;
        QString done;
    };
    const Case cases[] = {
        {[](test::TestModule &module) { module.isInitialised = false; }, true,
         u"房源信息：模块初始化失败，未能打开。"_qs, u"Init 101,Clear,view gone,module gone"_qs},
        {[](test::TestModule &) {}, false, u"EBTQ_S.Fcxx"_qs, u"module gone"_qs},
        {fails, true, u"房源信息：数据库已关闭"_qs, u"Init 101,DoGetFormStatus,Refresh"_qs},
    };
    for (const Case &c : cases) {
        library.log.clear();
        library.prepare = c.prepare;
        library.hasViews = c.hasView;
        window().openModule(ListingModule);
        EXPECT_TRUE(messages().front().contains(c.told)) << messages().front().toStdString();
        EXPECT_EQ(library.log.join(u','), c.done);
    }
    EXPECT_EQ(tabTexts().size(), 1);
    press(Qt::Key_F5);
    EXPECT_EQ(messages().front(), u"房源信息：数据库已关闭（2 次）");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait cursor must go after a failure, too";
    EXPECT_EQ(messages().size(), 3);
}

TEST_F(MainWindowTest, TheLayoutIsRestoredWhenTheModuleAsks)
{
    library.prepare = [](test::TestModule &module) {
        module.duringRefresh = [&module] { Q_EMIT module.RefreshGetGridStatus(); };
        // A module that loads itself again while its layout is restored must not run in a circle.
        module.duringRestore = [&module] { Q_EMIT module.RefreshGetGridStatus(); };
    };
    window().openModule(ListingModule);
    EXPECT_EQ(library.log.join(u','), u"Init 101,DoGetFormStatus,Refresh,DoGetFormStatus");
}

TEST_F(MainWindowTest, OneTabAModule)
{
    window().openModule(ListingModule);
    window().openModule(CustomerModule);
    window().openModule(ListingModule);
    EXPECT_EQ(tabTexts(), QStringList({u"房源信息"_qs, u"客源信息"_qs}));
    EXPECT_EQ(tabs().currentIndex(), 0);

    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> moves[] = {
        {Qt::Key_Tab, Qt::ControlModifier, 1},
        {Qt::Key_Tab, Qt::ControlModifier, 0},
        {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 1},
        {Qt::Key_1, Qt::ControlModifier, 0},
        {Qt::Key_2, Qt::ControlModifier, 1}};
    for (const auto &[key, modifiers, current] : moves) {
        press(key, modifiers);
        EXPECT_EQ(tabs().currentIndex(), current);
        EXPECT_TRUE(child<QToolButton>(current == 0 ? "Navigation_101" : "Navigation_102")->isChecked());
    }
    tabs().moveTab(0, 1);
    tabs().setCurrentIndex(0);
    EXPECT_TRUE(child<QToolButton>("Navigation_102")->isChecked()) << "a moved tab keeps its module";
    QTest::mouseClick(child<QToolButton>("CloseTab_101"), Qt::LeftButton);
    EXPECT_EQ(tabTexts(), QStringList(u"客源信息"_qs));
}

TEST_F(MainWindowTest, AViewWithoutAMenuOfItsOwnHasThatOfTheCommands)
{
    window().openModule(ListingModule);
    QWidget *view = child<QLineEdit>("first")->parentWidget();
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, QPoint(1, 1), view->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(view, &byMouse);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), 10);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().last()).center());
    QApplication::processEvents();
    EXPECT_EQ(tabs().count(), 0) << "the last one closes the module";
}

TEST_F(MainWindowTest, TheKeyboardGoesBetweenNavigationAndModule)
{
    window().openModule(ListingModule);
    EXPECT_EQ(window().focusWidget(), child<QLineEdit>("first"));
    child<QLineEdit>("second")->setFocus();
    press(Qt::Key_F6);
    EXPECT_EQ(window().focusWidget(), child<QToolButton>("Navigation_101"));
    press(Qt::Key_F6);
    EXPECT_EQ(window().focusWidget(), child<QLineEdit>("second")) << "back to where the person was";
    press(Qt::Key_F6);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(tabs().currentIndex(), 1);
    EXPECT_EQ(tabTexts().value(1), u"客源信息"_qs);
}

TEST_F(MainWindowTest, WhatFailsBehindAModalFormIsToldInTheForm)
{
    window().openModule(ListingModule);
    QDialog form(&window());
    auto *field = new QLineEdit;
    (new QVBoxLayout(&form))->addWidget(field);
    form.setModal(true);
    form.show();
    form.activateWindow();
    QApplication::processEvents();
    window().showFailure(u"数据库正被其他程序占用"_qs);
    Q_EMIT library.module->ErrMessage(u"读取失败"_qs, FailureLevel, u"EBTQ_S"_qs);
    const auto *bar = form.findChild<MessageBar *>();
    ASSERT_TRUE(bar && bar->isVisible());
    EXPECT_EQ(bar->shownTexts(), messages()) << "the window keeps them for when the form has gone";
    EXPECT_EQ(messages().size(), 2);
    EXPECT_LT(bar->y(), field->y());
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(bar->shownTexts(), QStringList(u"数据库正被其他程序占用"_qs));
    EXPECT_TRUE(form.isVisible()) << "Escape was for the message";
}

TEST_F(MainWindowTest, AModuleThatUnloadsItselfIsClosedWhenControlIsBack)
{
    window().openModule(ListingModule);
    bool answer = true;
    Q_EMIT library.module->UnLoad(answer);
    EXPECT_EQ(tabTexts().size(), 1) << "the module is still in its own call";
    QApplication::processEvents();
    EXPECT_TRUE(tabTexts().isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(library.log.back(), u"module gone"_qs);
}

TEST_F(MainWindowTest, ShowsSessionAndModulesAndChangesItsLook)
{
    EXPECT_THAT(child<Navigation>("Navigation")->modules(),
                ElementsAre(ListingModule, CustomerModule, BuildingModule));
    EXPECT_EQ(child<QToolButton>("Session")->text(), u"营业一部 · 张敏 · 业务日期 2026-11-22");
    EXPECT_EQ(child<QLabel>("DatabasePlace")->text(), u"本地数据库 · a.db");
    EXPECT_FALSE(child<Navigation>("Navigation")->isCollapsed());
    EXPECT_LT(child<Navigation>("Navigation")->minimumWidth(), child<Navigation>("Navigation")->width())
        << "the window must be able to become narrow";
    window().resize(1000, 700);
    QApplication::processEvents();
    EXPECT_TRUE(child<Navigation>("Navigation")->isCollapsed());
    for (const auto scheme : {look::Scheme::Dark, look::Scheme::Light}) {
        press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(look::scheme(), scheme);
    }
}

} // namespace
} // namespace ebtq::shell
