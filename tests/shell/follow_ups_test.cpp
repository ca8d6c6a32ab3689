#include "component/component_library.h"
#include "database/connection.h"
#include "host/application.h"
#include "host/setup.h"
#include "shell/component_loader.h"
#include "shell/main_window.h"
#include "shell/message_bar.h"
#include "shell/panels/widget_panel_presenter.h"
#include "shell/reminders/reminder_watch.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

const QDate businessDate(2026, 11, 22);

/// The program's window over the real component library, with three reminders of a listing, a customer and a
/// listing that is gone, and one that was missed.
class FollowUpsTest : public ::testing::Test
{
protected:
    FollowUpsTest()
    {
        host::prepareDatabase(*m_connection);
        for (const char16_t *row :
             {u"fyxx(房源ID,房源编号,总面积,操作日期,制单日期) values('L1','FY1',80,#2026-1-2#,#2026-1-2#)",
              u"fyxx(房源ID,房源编号,总面积,操作日期,制单日期) values('L2','FY2',90,#2026-1-2#,#2026-1-2#)",
              u"fykh(客源ID,客源编号) values('C1','KY1')",
              u"%1('G1','L1',#2026-11-4#,'看房',#2026-11-22#,1,0,'U1','')",
              u"%1('G2','C1',#2026-11-3#,'谈价',#2026-11-22#,1,0,'U1','')",
              u"%1('G3','L9',#2026-11-2#,'看房',#2026-11-22#,1,0,'U1','')",
              u"%1('G4','L2',#2026-11-1#,'错过',#2026-11-20#,1,0,'U1','')"})
            execute(u"insert into "_qs + QString::fromUtf16(row).replace(u"%1"_qs, m_followUp));
        window.resize(1440, 840);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.follow(watch);
        QApplication::processEvents();
    }
    void execute(const QString &sql) { m_connection->execute(sql); }
    void open(host::ModuleId module)
    {
        window.openModule(module);
        QApplication::processEvents();
    }
    template<class Widget> Widget &see(const QString &name)
    {
        for (Widget *each : window.findChildren<Widget *>(name))
            if (each->isVisible())
                return *each;
        throw std::runtime_error("not in sight: " + name.toStdString());
    }
    void click(const QString &name)
    {
        QTest::mouseClick(&see<QWidget>(name), Qt::LeftButton);
        QApplication::processEvents();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    QTableView &list() { return see<QTableView>(u"VS"_qs); }
    int row() { return list().currentIndex().row(); }
    void goTo(int row)
    {
        list().setCurrentIndex(list().model()->index(row, 2));
        list().setFocus();
    }
    /// Does `act` in the dialog that `opens` shows.
    template<class Act> void inDialog(const QString &opens, Act act)
    {
        bool isShown = false;
        QTimer::singleShot(0, &window, [&] {
            QWidget *dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            isShown = true;
            act(*dialog);
            if (dialog->isVisible())
                dialog->close();
        });
        click(opens);
        EXPECT_TRUE(isShown);
        QApplication::processEvents(); // the watch looks
    }
    QString stored(const QString &column)
    {
        return m_connection->query(SqlText(u"select "_qs + column + u" from fygj where 跟进ID='G1'"_qs))
            .value(0, 0)
            .toString();
    }
    QString navigation() { return see<QToolButton>(u"Navigation_104"_qs).text().trimmed(); }
    QStringList messages() { return window.findChild<MessageBar *>(u"MessageBar"_qs)->shownTexts(); }
    QString status() { return see<QLabel>(u"StatusMessage"_qs).text(); }

private:
    const QString m_followUp =
        u"fygj(跟进ID,房源ID,操作日期,跟进内容,提醒日期,下次提醒,提醒范围,用户ID,处理结果) values"_qs;
    QTemporaryDir m_folder;
    std::unique_ptr<db::Connection> m_connection = db::Connection::open(u":memory:"_qs);
    WidgetPanelPresenter m_presenter;
    ComponentLibrary &m_library = loadComponentLibrary({QStringLiteral(EBTQ_COMPONENT_LIBRARY)});
    host::Application m_app{
        *m_connection, {u"U1"_qs, u"张敏"_qs, {}}, {m_folder.path(), businessDate}, m_presenter};

protected:
    MainWindow window{m_library, m_app, {u"张敏"_qs, {}, businessDate, u"本地"_qs}};
    ReminderWatch watch{m_library, m_app, [this] { return m_connection->inTransaction(); }};
};

TEST_F(FollowUpsTest, RemindersAreCountedAndToldOf)
{
    EXPECT_EQ(navigation(), u"预警提醒 (3)");
    EXPECT_EQ(see<QLabel>(u"ReminderNotice_text"_qs).text(), u"有3条跟进提醒到期");
    click(u"ReminderNotice_act"_qs);
    EXPECT_EQ(list().model()->rowCount(), 3);
    EXPECT_EQ(window.findChild<QWidget *>(u"ReminderNotice_text"_qs)->isVisible(), false);

    execute(u"update fygj set 处理结果='好' where 跟进ID='G2'"_qs);
    watch.look();
    QTest::qWait(1);
    EXPECT_EQ(navigation(), u"预警提醒 (2)");
    click(u"Command_overdue"_qs);
    EXPECT_EQ(list().model()->rowCount(), 3) << "and the one that was missed";
    click(u"Command_overdue"_qs);
    EXPECT_EQ(list().model()->rowCount(), 2);

    execute(u"update fygj set 提醒日期=#2026-11-22# where 跟进ID='G4'"_qs);
    watch.look();
    QTest::qWait(1);
    click(u"Navigation_104"_qs);
    EXPECT_EQ(window.findChild<QWidget *>(u"ReminderNotice"_qs), nullptr);
    EXPECT_EQ(list().model()->rowCount(), 3) << "an open list is loaded again";
    window.resize(1024, 700);
    QApplication::processEvents();
    EXPECT_EQ(window.width(), 1024) << "not as wide as the texts of all commands";
}

TEST_F(FollowUpsTest, AReminderIsSettledAndPutOff)
{
    open(host::ReminderModule);
    goTo(0);
    inDialog(u"Command_postpone"_qs, [&](QWidget &dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton *>(u"Days_3"_qs), Qt::LeftButton);
        QTest::mouseClick(dialog.findChild<QPushButton *>(u"Save"_qs), Qt::LeftButton);
    });
    EXPECT_EQ(stored(u"提醒日期"_qs), u"2026-11-25T00:00:00.000");
    EXPECT_EQ(list().model()->rowCount(), 2);
    execute(u"update fygj set 提醒日期=#2026-11-22# where 跟进ID='G1'"_qs);
    click(u"Command_refresh"_qs);
    goTo(0);
    inDialog(u"Command_settle"_qs, [&](QWidget &dialog) {
        auto *result = dialog.findChild<QPlainTextEdit *>(u"Result"_qs);
        result->setPlainText(u"it's"_qs);
        QTest::mouseClick(dialog.findChild<QPushButton *>(u"Save"_qs), Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible() && dialog.findChild<QLabel *>(u"Refusal"_qs)->isVisible());
        EXPECT_EQ(result->toPlainText(), u"it's");
        result->setPlainText(u"已签"_qs);
        QTest::mouseClick(dialog.findChild<QPushButton *>(u"Save"_qs), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(stored(u"处理结果"_qs), u"已签");
    EXPECT_EQ(list().model()->rowCount(), 2);
}

TEST_F(FollowUpsTest, TheRecordBehindAFollowUpIsShownInItsList)
{
    open(host::ListingModule);
    see<QLineEdit>(u"SearchBox1"_qs).setText(u"FY2"_qs);
    open(host::FollowUpModule);
    goTo(0);
    press(Qt::Key_O, Qt::AltModifier);
    const auto number = [&] { return list().model()->index(row(), 1).data().toString(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return number() == u"FY1"; })) << number().toStdString();
    open(host::FollowUpModule);
    goTo(2);
    click(u"Command_source"_qs);
    EXPECT_EQ(messages(), QStringList(u"跟进查询：这条跟进的来源已被删除！"_qs));
}

TEST_F(FollowUpsTest, FindBarGoesThroughTheListAndFiltersIt)
{
    open(host::FollowUpModule);
    auto &from = see<QLineEdit>(u"qzTxt_0"_qs);
    from.setFocus();
    from.insert(u"上周"_qs);
    click(u"Command_refresh"_qs);
    EXPECT_EQ(list().model()->rowCount(), 4) << "the field refuses, not the database";
    from.selectAll();
    press(Qt::Key_Delete);
    goTo(1);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"FindText");
    see<QLineEdit>(u"FindText"_qs).insert(u"看房"_qs);
    press(Qt::Key_Return);
    EXPECT_EQ(row(), 2);
    press(Qt::Key_F3);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(status(), u"“看房”：第1条，共2条（已到尽头，从另一端继续）");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(row(), 2);
    EXPECT_EQ(see<QLabel>(u"StatusCount"_qs).text(), u"共 4 条");
    click(u"FindFilters"_qs);
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_EQ(see<QLabel>(u"StatusCount"_qs).text(), u"2 / 4 条");
    press(Qt::Key_F5);
    QApplication::processEvents();
    EXPECT_EQ(list().model()->rowCount(), 2) << "also after loading";
    see<QLineEdit>(u"FindText"_qs).setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(list().model()->rowCount(), 4);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"VS");

    QTimer::singleShot(0, &window, [] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QStringList names;
        for (const QAction *action : menu->actions())
            names += action->objectName();
        EXPECT_TRUE(
            names.join(u' ').startsWith(u"source  find findNext filter  preview print setup  refresh close"))
            << names.join(u' ').toStdString();
        menu->close();
    });
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&list(), &byKey);
    QApplication::processEvents();
    click(u"Command_close"_qs);
    EXPECT_EQ(window.findChildren<QTableView *>(u"VS"_qs).size(), 0);
}

TEST_F(FollowUpsTest, TheNextDayASignInIsOffered)
{
    window.noticeDate(businessDate);
    EXPECT_EQ(window.findChild<QWidget *>(u"DateNotice"_qs), nullptr);
    window.noticeDate(businessDate.addDays(1));
    QApplication::processEvents();
    EXPECT_TRUE(see<QLabel>(u"DateNotice_text"_qs).text().contains(u"业务日期仍是 2026-11-22"));
    click(u"DateNotice_close"_qs);
    window.noticeDate(businessDate.addDays(1));
    EXPECT_EQ(window.findChild<QWidget *>(u"DateNotice"_qs), nullptr) << "once a day";
    window.noticeDate(businessDate.addDays(2));
    QApplication::processEvents();
    click(u"DateNotice_act"_qs);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.isForSignIn());
}

} // namespace
} // namespace ebtq::shell
