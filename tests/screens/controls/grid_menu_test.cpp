#include "screens/controls/grid_menu.h"

#include "library/controls/flex_grid.h"
#include "library/controls/nav_toolbar.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/support/screen.h"
#include "support/scripted_desktop.h"

#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace ebtq;
using namespace ebtq::test;

namespace {

class GridMenuTest : public testing::Test
{
protected:
    GridMenuTest()
    {
        commands.setItems({{u"edit"_qs, u"修改"_qs, {}, true, true},
                           {u"delete"_qs, u"删除"_qs, {}, false, true},
                           {u"secret"_qs, u"隐藏"_qs, {}, true, false}});
        QObject::connect(&commands, &NavToolbar::ButtonClick, [this](const QString &key) {
            during();
            done.append(u"command "_qs + key);
        });
        grid.setFormatString(u" |编号      |城区      |键"_qs);
        grid.setColHidden(3, true);
        grid.LoadArray(
            textBlock({{"", "A1", "天河", "K"}, {"", "A2", "海珠", "K"}, {"", "A3", "=1+1", "K"}}));
        menu.setCommands(commands, toolBar);
        menu.setPrint([this](bool bPrint, bool bSetup) {
            during();
            done.append(u"print %1%2"_qs.arg(bPrint).arg(bSetup));
        });
        QObject::connect(&menu, &GridMenu::message, [this](const QString &text) { done.append(text); });
        QObject::connect(&menu, &GridMenu::failed,
                         [this](const QString &text) { done.append(u"failed "_qs + text); });
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&toolBar);
        layout->addWidget(&view);
        window.resize(500, 300);
        showActive(window);
        view.setFocus();
    }
    ~GridMenuTest() override
    {
        toolBar.setParent(nullptr);
        view.setParent(nullptr);
    }

    void askForMenu(QContextMenuEvent::Reason reason, QWidget &widget, QPoint place = {5, 5})
    {
        QContextMenuEvent request(reason, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &request);
        ASSERT_TRUE(open());
    }
    void rightClick(int row)
    {
        const QPoint place = view.visualRect(view.model()->index(row, 1)).center();
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
        askForMenu(QContextMenuEvent::Mouse, *view.viewport(), place);
    }
    [[nodiscard]] static QMenu *open() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
    void choose(const QString &beginning)
    {
        QMenu *shown = open();
        for (QAction *action : shown->actions()) {
            if (action->text().startsWith(beginning))
                action->trigger();
        }
        shown->close();
        QCoreApplication::sendPostedEvents();
    }
    [[nodiscard]] static QString copied() { return QApplication::clipboard()->text(); }

    ScriptedDesktop desktop;
    NavToolbar commands{u"Bar"_qs};
    VSFlexGrid grid{u"VS"_qs};
    QWidget window;
    ToolBarView toolBar{commands, &window};
    FlexGridView view{grid, &window};
    GridMenu &menu = *new GridMenu(view, grid, window, desktop);
    QStringList done;
    std::function<void()> during = [] {}; ///< what a command does while it works
};

TEST_F(GridMenuTest, OffersTheCommandsInTheirStateAtTheRowOfThePress)
{
    toolBar.setShortcuts({{u"edit"_qs, QKeySequence(Qt::ALT | Qt::Key_E)}});
    rightClick(2);
    EXPECT_EQ(grid.Row(), 3);
    QStringList offered;
    for (const QAction *action : open()->actions()) {
        if (!action->isSeparator())
            offered.append((action->isEnabled() ? u""_qs : u"-"_qs) + action->text());
    }
    EXPECT_EQ(offered, (QStringList{u"修改\tAlt+E"_qs, u"-删除\t"_qs, u"复制(&C)\tCtrl+C"_qs,
                                    u"导出 Excel(&L)…"_qs, u"导出 CSV(&S)…"_qs, u"打印预览(&V)"_qs,
                                    u"打印(&P)…\tCtrl+P"_qs, u"页面设置(&U)…"_qs}));
    choose(u"删除"_qs);
    EXPECT_TRUE(done.isEmpty()) << "a right that is refused on the tool bar is refused here";
    for (const QString &each : {u"修改"_qs, u"打印预览"_qs, u"打印(&P)"_qs, u"页面设置"_qs}) {
        rightClick(0);
        choose(each);
    }
    QTest::keyClick(&view, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(done, (QStringList{u"command edit"_qs, u"print 00"_qs, u"print 10"_qs, u"print 01"_qs,
                                 u"print 10"_qs}));
}

TEST_F(GridMenuTest, TheKeyOpensItAtTheCurrentRowAndTheHeaderHasItsOwn)
{
    grid.setRow(2);
    askForMenu(QContextMenuEvent::Keyboard, view);
    const QRect row = view.visualRect(view.model()->index(1, 1));
    EXPECT_EQ(open()->pos().y(), view.viewport()->mapToGlobal(row.bottomLeft()).y());
    EXPECT_EQ(grid.Row(), 2);
    open()->close();
    askForMenu(QContextMenuEvent::Mouse, *view.horizontalHeader()->viewport());
    EXPECT_EQ(open()->objectName(), u"ColumnMenu"_qs);
    open()->close();
}

/// The mouse chooses an action that waits in an event loop, as every dialog does.
TEST_F(GridMenuTest, AnActionBeginsOnceTheMenuIsGone)
{
    for (const QString &chosen : {u"打印预览"_qs, u"页面设置"_qs, u"修改"_qs}) {
        done.clear();
        rightClick(0);
        const QPointer<QMenu> shown = open();
        during = [&] {
            EXPECT_FALSE(shown) << chosen.toStdString();
            QTest::qWait(1);
        };
        const auto actions = shown->actions();
        const auto action =
            std::ranges::find_if(actions, [&](QAction *each) { return each->text().startsWith(chosen); });
        QTest::mouseClick(shown, Qt::LeftButton, {}, shown->actionGeometry(*action).center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !done.isEmpty(); }));
    }
}

TEST_F(GridMenuTest, CopiesTheRowOrTheChosenRowsAndNeverKeys)
{
    grid.setRow(1);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), u"编号\t城区\r\nA1\t天河\r\n"_qs);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(grid.Row(), 2);
    rightClick(0);
    EXPECT_EQ(grid.Row(), 1) << "the press moves the current row within the chosen ones";
    choose(u"复制"_qs);
    EXPECT_EQ(copied(), u"编号\t城区\r\nA1\t天河\r\nA2\t海珠\r\n"_qs);
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains(u">A2</td>"_qs));
    EXPECT_EQ(done, (QStringList{u"已复制1行"_qs, u"已复制2行"_qs}));
    done.clear();
    grid.setRowHidden(2, true);
    grid.setRow(3);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), u"编号\t城区\r\nA3\t=1+1\r\n"_qs);
    grid.setRows(5003);
    view.selectAll();
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
    EXPECT_TRUE(copied().startsWith(u"编号\t城区\r\nA1\t天河\r\nA3\t'=1+1\r\n"_qs)) << "no table marks texts";
    grid.setRows(1);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(done, (QStringList{u"已复制1行"_qs, u"已复制5001行"_qs}))
        << "nothing is copied of an empty list";
}

TEST_F(GridMenuTest, ExportsWhatIsShownWhereThePersonSays)
{
    const QTemporaryDir folder;
    menu.setListName(u"房源"_qs);
    const QString csv = folder.filePath(u"a.csv"_qs);
    desktop.willChooseFile(QString());
    desktop.willChooseFile(csv);
    desktop.willChooseFile(folder.filePath(u"none/b.xlsx"_qs));
    grid.setRowHidden(1, true);
    for (const QString &each : {u"导出 CSV"_qs, u"导出 CSV"_qs, u"导出 Excel"_qs}) {
        rightClick(0);
        choose(each);
    }
    QFile file(csv);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("\xEF\xBB\xBF编号,城区\r\nA2,海珠\r\nA3,'=1+1\r\n"));
    EXPECT_TRUE(desktop.asked()[0].endsWith(u"/房源 2026-11-25.csv"_qs));
    EXPECT_EQ(desktop.asked()[2], u"导出列表|"_qs + folder.filePath(u"房源 2026-11-25.xlsx"_qs));
    ASSERT_EQ(done.size(), 2);
    EXPECT_EQ(done[0], u"已导出2行到 "_qs + csv);
    EXPECT_TRUE(done[1].startsWith(u"failed 无法写入文件“"_qs));
}

} // namespace
