#include "library/controls/mouse_wheel.h"
#include "screens/controls/flex_grid_view_fixture.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

using namespace ebtq;
using namespace ebtq::test;

namespace {

TEST_F(FlexGridViewTest, KeysMoveTheCurrentRowOfTheGrid)
{
    const std::tuple<int, Qt::Key, Qt::KeyboardModifier, int> cases[] = {
        {5, Qt::Key_Down, Qt::NoModifier, 6},       {5, Qt::Key_Up, Qt::NoModifier, 4},
        {1, Qt::Key_Up, Qt::NoModifier, 1},         {100, Qt::Key_Down, Qt::NoModifier, 100},
        {50, Qt::Key_Home, Qt::ControlModifier, 1}, {50, Qt::Key_End, Qt::ControlModifier, 100},
        {50, Qt::Key_Home, Qt::NoModifier, 50},     {50, Qt::Key_Right, Qt::NoModifier, 50},
        {5, Qt::Key_7, Qt::NoModifier, 5}, // typing searches nothing
    };
    for (const auto &[from, key, modifier, to] : cases) {
        SCOPED_TRACE(testing::Message() << "key " << key << " from " << from);
        grid.setCurrent(from, 1);
        EXPECT_EQ(currentRow(), from);
        QTest::keyClick(&view, key, modifier);
        EXPECT_EQ(grid.Row(), to);
        EXPECT_EQ(currentRow(), to);
    }
    grid.setCurrent(1, 1);
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_GT(grid.Row(), 5);
    QTest::keyClick(&view, Qt::Key_PageUp);
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(FlexGridViewTest, OneMoveIsOneChangeOfRow)
{
    const QSignalSpy moves(&grid, &VSFlexGrid::AfterRowColChange);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middleOf(3, 1));
    ASSERT_EQ(moves.size(), 1);
    EXPECT_EQ(moves.at(0).at(2).toInt(), 3);
    grid.setCurrent(7, 2);
    EXPECT_EQ(moves.size(), 2);
    EXPECT_EQ(view.currentIndex(), view.model()->index(6, 2));
    const int last = view.rowAt(view.viewport()->height() - 2) + 1;
    ASSERT_FALSE(isWhole(last)) << "cut by the lower edge";
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(40, view.viewport()->height() - 2));
    EXPECT_EQ(grid.Row(), last);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "a row stays under the mouse that presses it";
}

TEST_F(FlexGridViewTest, TheGridAloneDecidesTheCurrentRowWhileRowsGo)
{
    grid.setCurrent(5, 1);
    const QSignalSpy moves(&grid, &VSFlexGrid::AfterRowColChange);
    grid.RemoveItem(5);
    EXPECT_EQ(moves.size(), 0);
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), u"6"_qs);
    EXPECT_EQ(view.currentIndex().siblingAtColumn(1).data().toString(), u"6"_qs);

    grid.insertRow(1);
    EXPECT_EQ(currentRow(), grid.Row());
    EXPECT_EQ(view.currentIndex().siblingAtColumn(1).data().toString(), u"6"_qs);

    grid.setRowHidden(grid.Row(), true);
    EXPECT_FALSE(view.currentIndex().isValid());
    grid.showAllRows();
    EXPECT_EQ(view.currentIndex().siblingAtColumn(1).data().toString(), u"6"_qs);

    grid.setRows(grid.FixedRows());
    EXPECT_FALSE(view.currentIndex().isValid());
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Return);
}

TEST_F(FlexGridViewTest, EnterAndDoubleClickOpenARowAndNothingElse)
{
    const QSignalSpy opened(&grid, &VSFlexGrid::DblClick);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middleOf(2, 1));
    EXPECT_EQ(opened.size(), 1);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Enter);
    EXPECT_EQ(opened.size(), 3);
    QTest::mouseDClick(view.viewport(), Qt::RightButton, {}, middleOf(2, 1));
    grid.setRows(2);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, QPoint(20, 200)); // below the last row
    EXPECT_EQ(opened.size(), 3);
}

TEST_F(FlexGridViewTest, ReportsMousePressAndFocus)
{
    QList<short> pressed;
    QPointF place;
    QObject::connect(&grid, &VSFlexGrid::MouseDown, &view,
                     [&](short &button, short &shift, float &x, float &y) {
                         pressed.append({button, shift});
                         place = QPointF(x, y);
                     });
    const QSignalSpy focused(&grid, &VSFlexGrid::GotFocus);
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::ControlModifier, middleOf(4, 1));
    EXPECT_EQ(pressed, QList<short>({2, 2}));
    EXPECT_EQ(place, QPointF(view.viewport()->mapTo(&view, middleOf(4, 1))));
    EXPECT_EQ(grid.Row(), 4);
    QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(30, 5));
    EXPECT_EQ(pressed, QList<short>({2, 2, 1, 0})) << "the header is a row of the grid";
    EXPECT_EQ(place, QPointF(30, 5));
    EXPECT_EQ(grid.Row(), 4);
    view.clearFocus();
    view.setFocus();
    EXPECT_EQ(focused.size(), 1);
}

TEST_F(FlexGridViewTest, ACutCellTellsItsWholeTextAndOthersTheTipOfTheGrid)
{
    const QString tip = u"提示：双击"_qs;
    grid.setToolTipText(tip);
    grid.setColWidth(2, 25);
    EXPECT_EQ(tipAt(middleOf(1, 2)), u"586万元"_qs);
    EXPECT_EQ(tipAt(middleOf(1, 1)), tip);
    EXPECT_EQ(tipAt(middleOf(1, 0)), tip) << "a cell without a text";
}

TEST_F(FlexGridViewTest, AMoveFromCodeBringsTheRowIntoSight)
{
    const auto undrawn = [this](int row) {
        grid.setRedraw(false);
        grid.setRow(row);
        grid.setRowHidden(2, !grid.RowHidden(2));
        grid.setRedraw(true);
    };
    const std::tuple<const char *, std::function<void()>, int> cases[] = {
        {"down", [&] { grid.setRow(80); }, 80},
        {"up", [&] { grid.setRow(3); }, 3},
        {"while nothing is drawn", [&] { undrawn(70); }, 70},
        {"and back", [&] { undrawn(1); }, 1},
        {"to the row it has, scrolled away",
         [&] {
             view.verticalScrollBar()->setValue(50);
             grid.setRow(1);
         },
         1},
        {"after a move of the top row",
         [&] {
             grid.setRedraw(false);
             grid.setTopRow(90);
             grid.setRow(40);
             grid.setRedraw(true);
         },
         40},
    };
    for (const auto &[what, act, row] : cases) {
        SCOPED_TRACE(what);
        act();
        EXPECT_EQ(grid.Row(), row);
        EXPECT_TRUE(isWhole(row));
        EXPECT_EQ(grid.TopRow(), grid.rowInSight(view.verticalScrollBar()->value()));
    }
}

TEST_F(FlexGridViewTest, RowsThatAreShownAgainLeaveTheCurrentOneInSight)
{
    grid.setRow(70);
    grid.setTopRow(1);
    grid.hideRowsWithout(u"7"_qs, {1});
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "one that was out of sight moves nothing";
    ASSERT_TRUE(isWhole(70));
    grid.showAllRows();
    EXPECT_TRUE(isWhole(70));
}

TEST_F(FlexGridViewTest, TopRowGoesBothWays)
{
    view.verticalScrollBar()->setValue(10);
    EXPECT_EQ(grid.TopRow(), 11);
    grid.setTopRow(40);
    EXPECT_EQ(view.verticalScrollBar()->value(), 39);
    for (const int row : {40, 41})
        grid.setRowHidden(row, true);
    EXPECT_EQ(view.verticalScrollBar()->value(), 39);
    EXPECT_EQ(grid.rowInSight(view.verticalScrollBar()->value()), 42) << "a hidden one gives way";
    view.verticalScrollBar()->setValue(20);
    EXPECT_EQ(grid.TopRow(), 21);
    grid.setRowHidden(1, true);
    view.verticalScrollBar()->setValue(20);
    EXPECT_EQ(grid.TopRow(), 22) << "hidden rows do not count on the scroll bar";
    grid.setRows(grid.FixedRows());
    EXPECT_EQ(grid.topInSight(), -1);
}

TEST_F(FlexGridViewTest, TheWheelGoesToTheBoundWheelInWholeSteps)
{
    MouseWheel wheel;
    wheel.setMin(1);
    wheel.setMax(20);
    wheel.setValue(5);
    const QSignalSpy turned(&wheel, &MouseWheel::Wheel);
    view.setMouseWheel([&] { return &wheel; });
    turnWheel(-120);
    EXPECT_EQ(turned.size(), 0) << "not bound yet";
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    wheel.bind(&grid);
    turnWheel(-60);
    EXPECT_EQ(turned.size(), 0);
    turnWheel(-60);
    EXPECT_EQ(wheel.Value(), 6);
    turnWheel(240);
    EXPECT_EQ(wheel.Value(), 4);
    grid.setTopRow(1);
    const qsizetype before = turned.size();
    grid.hideRowsWithout(u"586"_qs, {2});
    ASSERT_EQ(grid.visibleCount(), 50);
    turnWheel(-120);
    EXPECT_EQ(turned.size(), before) << "while rows are hidden it scrolls what is left";
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    EXPECT_EQ(grid.TopRow(), grid.rowInSight(view.verticalScrollBar()->value()));
    grid.showAllRows();
    turnWheel(-120);
    EXPECT_EQ(turned.size(), before + 1);
    view.setMouseWheel([]() -> MouseWheel * { return nullptr; });
    turnWheel(-120); // a module that was cleared has no wheel
}

} // namespace
