#include "library/controls/c_tree_view.h"
#include "library/controls/panel.h"
#include "library/controls/search_box.h"
#include "library/controls/splitter.h"
#include "screens/controls/splitter_view.h"
#include "screens/controls/tree_model.h"
#include "screens/controls/tree_panel.h"
#include "screens/controls/tree_view_widget.h"
#include "screens/support/screen.h"

#include <QAbstractItemModelTester>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace ebtq;
using namespace ebtq::test;
using namespace Qt::StringLiterals;

namespace {

/// A tree of thirty buildings under one root, with its filter and a pane of fields beside it.
class TreeScreenTest : public testing::Test
{
protected:
    TreeScreenTest()
    {
        tv.HookCtrl(&tree, nullptr);
        tv.setDragEnabled(true);
        bar.setControlName1(u"TV"_s);
        bar.setControlName2(u"Fields"_s);
        fields->setObjectName(u"Fields"_s);
        screen.resize(800, 300);
        fill(30);
        showActive(screen);
        widget.setFocus();
        QObject::connect(&tv, &cTreeView::Selected,
                         [this](const Node *at) { events += at ? at->Key() + u';' : u"-;"_s; });
        QObject::connect(&tv, &cTreeView::Dropped, [this](const Node *target, const Node *source) {
            events += source->Key() + u" to "_s + target->Key() + u';';
        });
    }

    void fill(int buildings)
    {
        tv.ClearTreeView();
        tv.NodeAdd({.key = u"ROOT"_s, .text = u"全部"_s});
        for (int number = 1; number <= buildings; ++number)
            tv.NodeAdd(
                {.relative = u"ROOT"_s, .key = u"l%1"_s.arg(number), .text = u"%1 号楼"_s.arg(number)});
        tv.ReSelectItem(tree.nodes().Item(1));
    }
    [[nodiscard]] QPoint at(const QString &key)
    {
        widget.settle();
        return widget.visualRect(widget.treeModel().indexOf(tree.nodes().Item(key))).center();
    }
    void dragTo(const QString &from, QPoint to)
    {
        QTest::mousePress(widget.viewport(), Qt::LeftButton, {}, at(from));
        QTest::mouseMove(widget.viewport(), at(from) + QPoint(QApplication::startDragDistance(), 0));
        QTest::mouseMove(widget.viewport(), to);
    }
    void release(QPoint place) { QTest::mouseRelease(widget.viewport(), Qt::LeftButton, {}, place); }

    TreeView tree{u"TV"_s};
    cTreeView tv{{}};
    SearchBox box{u"SearchBox1"_s};
    Splitter bar{u"Sp"_s};
    QWidget screen;
    TreePanel *panel = new TreePanel(tree, box, &screen);
    QWidget *fields = new QWidget(&screen);
    SplitterView *barView = new SplitterView(bar, &screen);
    TreeViewWidget &widget = child<TreeViewWidget>(screen, u"TV"_s);
    QString events;
};

TEST_F(TreeScreenTest, ABuildingIsDraggedByTheMouse)
{
    dragTo(u"l2"_s, at(u"l4"_s));
    for (const auto key : {Qt::Key_Delete, Qt::Key_Down, Qt::Key_N})
        QTest::keyClick(&widget, key, key == Qt::Key_N ? Qt::ControlModifier : Qt::NoModifier);
    release(at(u"l4"_s));
    EXPECT_EQ(std::exchange(events, {}), u"l2;l2 to l4;"_s);

    dragTo(u"l2"_s, at(u"l5"_s));
    QTest::keyClick(&widget, Qt::Key_Escape);
    release(at(u"l5"_s));
    EXPECT_TRUE(widget.selectionModel()->isSelected(widget.currentIndex())) << "not where the drag ended";
    dragTo(u"l2"_s, QPoint(900, 50));
    release(QPoint(900, 50));
    dragTo(u"l2"_s, at(u"l5"_s));
    screen.setEnabled(false);
    EXPECT_FALSE(tree.isDragging());
    EXPECT_EQ(events, QString());
}

TEST_F(TreeScreenTest, TheTreeScrollsWhileTheMouseRestsAtItsEdge)
{
    tree.setTopRow(17);
    dragTo(u"l20"_s, QPoint(50, widget.viewport()->height() - 3));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.TopRow() == widget.verticalScrollBar()->maximum(); }));
    release(at(u"l29"_s));
    EXPECT_EQ(events, u"l20;l20 to l29;"_s);
    EXPECT_EQ(widget.verticalScrollBar()->value(), tree.TopRow());
}

TEST_F(TreeScreenTest, FollowsWhateverTheModuleDoes)
{
    const QAbstractItemModelTester tester(&widget.treeModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    QTest::keyClick(&widget, Qt::Key_End);
    tv.NodeDelete(tree.nodes().Item(u"l30"_s), true);
    QTest::keyClick(&widget, Qt::Key_Up);
    EXPECT_EQ(std::exchange(events, {}), u"l30;l29;l28;"_s);
    tv.CollapseAll();
    tv.Redraw(false);
    tv.ClearTreeView();
    tv.Redraw(false);
    fill(2);
    tv.Redraw(false);
    tree.nodes().Item(3)->setText(u"2 号大楼"_s);
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(std::exchange(events, {}), u"ROOT;"_s) << "nothing is pressed in a tree that is not drawn";
    tv.Redraw(true);
    QTest::keyClick(&widget, Qt::Key_Left);
    QTest::keyClick(&widget, Qt::Key_Right);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, at(u"l2"_s));
    QTest::keyClick(&widget, Qt::Key_Left);
    EXPECT_EQ(events, u"l2;ROOT;"_s);
    tv.ClearTreeView();
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(widget.treeModel().rowCount(), 0);
}

TEST_F(TreeScreenTest, TypingFiltersAndTheBarMovesThePanes)
{
    QTest::keyClick(&widget, Qt::Key_2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_9);
    EXPECT_EQ(box.Text(), u"29"_s);
    box.searchNow();
    EXPECT_EQ(tree.sight().rows().size(), 2U);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(std::exchange(events, {}), u"l29;"_s);

    const QRect before = barView->geometry();
    EXPECT_EQ(before.width(), 5);
    QTest::mousePress(barView, Qt::LeftButton, {}, QPoint(2, 50));
    QTest::mouseMove(barView, QPoint(62, 50));
    QTest::mouseRelease(barView, Qt::LeftButton, {}, QPoint(2, 50));
    EXPECT_EQ(barView->x(), before.x() + 60);
    EXPECT_EQ(panel->geometry().right() + 1, barView->x());
    EXPECT_EQ(fields->x(), barView->geometry().right() + 1);
    bar.setControlVisible1(false);
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(fields->width(), screen.width());
}

} // namespace
