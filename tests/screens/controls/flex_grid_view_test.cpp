#include "screens/controls/flex_grid_view.h"

#include "library/controls/flex_grid.h"
#include "library/controls/mouse_wheel.h"
#include "screens/controls/flex_grid_columns.h"
#include "screens/controls/frozen_columns.h"
#include "screens/look/look.h"
#include "screens/support/screen.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace ebtq;
using namespace ebtq::test;

namespace {

RowBlock numbered(int rows)
{
    RowBlock block(std::vector<Column>(4));
    for (int row = 1; row <= rows; ++row) {
        block.append("");
        block.appendInteger(row);
        block.append(row % 2 == 1 ? "586万元" : "0万元");
        block.append("key");
    }
    block.finish();
    return block;
}

class FlexGridViewTest : public testing::Test
{
protected:
    FlexGridViewTest()
    {
        grid.setFormatString(u" |编号    |售总价      |ID"_qs);
        grid.setColHidden(3, true);
        grid.setBackColorAlternate(0xC0FFFF);
        grid.LoadArray(numbered(100));
        view.resize(400, 300);
        showActive(view);
        view.setFocus();
    }

    [[nodiscard]] QPoint middleOf(int row, int column) const
    {
        return view.visualRect(view.model()->index(row - 1, column)).center();
    }
    [[nodiscard]] int currentRow() const { return view.currentIndex().row() + 1; }
    QColor pixel(int row, int column, QPoint offset)
    {
        const QRect cell = view.visualRect(view.model()->index(row - 1, column));
        return view.viewport()->grab().toImage().pixelColor(cell.topLeft() + offset);
    }
    /// Whether any pixel of the cell, or of its upper part, has that colour.
    bool isPainted(int row, int column, const QColor &colour, int height = INT_MAX)
    {
        const QRect cell = view.visualRect(view.model()->index(row - 1, column));
        const QImage image = view.viewport()->grab(cell).toImage();
        for (int at = 0; at < image.width() * std::min(height, image.height()); ++at) {
            if (image.pixelColor(at % image.width(), at / image.width()) == colour)
                return true;
        }
        return false;
    }
    [[nodiscard]] bool isWhole(int row) const
    {
        return view.viewport()->rect().contains(
            view.visualRect(view.model()->index(grid.positionInSight(row), 1)));
    }
    [[nodiscard]] int shownWidth() const
    {
        int width = 0;
        for (int column = 0; column < grid.Cols(); ++column)
            width += view.columnWidth(column);
        return width;
    }
    [[nodiscard]] QString tipAt(const QPoint &place)
    {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &event);
        return QToolTip::text();
    }
    void turnWheel(int angle)
    {
        const QPointF place(100, 100);
        QWheelEvent event(place, view.viewport()->mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
    }

    VSFlexGrid grid{u"VS"_qs};
    FlexGridView view{grid, nullptr};
};

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
    EXPECT_EQ(grid.Row(), 2);
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

TEST_F(FlexGridViewTest, ColumnsFollowTheGridAndTheUsersWidthGoesBack)
{
    EXPECT_TRUE(view.isColumnHidden(3));
    grid.setColHidden(3, false);
    EXPECT_FALSE(view.isColumnHidden(3));
    view.horizontalHeader()->resizeSection(1, 137);
    EXPECT_EQ(grid.ColWidth(1), 137);
    grid.setColWidth(1, 55);
    EXPECT_EQ(view.columnWidth(1), 55);
    grid.LoadArray(numbered(3));
    EXPECT_EQ(view.columnWidth(1), 55) << "a width that was set outlasts a load";
}

TEST_F(FlexGridViewTest, AColumnNobodySetGrowsAndShrinksWithItsContents)
{
    view.resize(200, 300);
    grid.LoadArray(textBlock({{"", "1", "586万元", ""}}));
    const int before = view.columnWidth(1);
    grid.LoadArray(textBlock({{"", "FY2026112400-with-a-long-tail", "586万元", ""}}));
    EXPECT_GT(view.columnWidth(1), before);
    EXPECT_GE(view.columnWidth(1), view.fontMetrics().horizontalAdvance(grid.TextMatrix(1, 1)));
    EXPECT_LT(grid.ColWidth(1), view.columnWidth(1)) << "what the view needs is not the grid's width";
    grid.LoadArray(textBlock({{"", "1", "586万元", ""}}));
    EXPECT_EQ(view.columnWidth(1), before);
}

TEST_F(FlexGridViewTest, ANarrowWindowTakesOnlyTheRoomThatNobodyNeeds)
{
    grid.setFormatString(u" |编号                    |售总价                    |ID"_qs);
    grid.setColHidden(3, true);
    grid.setColWidth(0, 40);
    view.resize(600, 300);
    const int given = grid.ColWidth(1);
    EXPECT_GE(view.columnWidth(1), given) << "as wide as the caption while there is room";
    view.resize(300, 300);
    ASSERT_GT(40 + given + grid.ColWidth(2), view.viewport()->width());
    EXPECT_LE(shownWidth(), view.viewport()->width());
    EXPECT_GT(shownWidth(), view.viewport()->width() - 4);
    EXPECT_EQ(view.columnWidth(0), 40) << "a width that was set is kept";
    view.resize(120, 300);
    EXPECT_GE(view.columnWidth(2), view.fontMetrics().horizontalAdvance(u"586万元"_qs));
    view.resize(600, 300);
    EXPECT_GE(view.columnWidth(1), given);
    EXPECT_EQ(grid.ColWidth(1), given) << "none of it is the user's width";
}

TEST_F(FlexGridViewTest, AWideWindowIsFilledByTheColumnsThatNobodySet)
{
    const int icons = view.columnWidth(0);
    const int price = view.columnWidth(2);
    const int given = grid.ColWidth(2);
    for (const int width : {900, 1920, 3840}) {
        SCOPED_TRACE(width);
        view.resize(width, 300);
        EXPECT_EQ(shownWidth(), view.viewport()->width());
        EXPECT_EQ(view.columnWidth(0), icons);
        EXPECT_GT(view.columnWidth(2), price);
    }
    EXPECT_EQ(grid.ColWidth(2), given);
    grid.setColWidth(1, 100);
    EXPECT_EQ(view.columnWidth(1), 100);
    EXPECT_EQ(shownWidth(), view.viewport()->width()) << "the others take what it leaves";
    const int others = shownWidth() - 100;
    view.horizontalHeader()->resizeSection(1, 150);
    EXPECT_EQ(shownWidth(), others + 150) << "they stay while the user draws its edge";
    grid.setColWidth(2, 100);
    EXPECT_EQ(shownWidth(), icons + 150 + 100) << "no width that was set is changed";
}

TEST_F(FlexGridViewTest, ACutCellTellsItsWholeTextAndOthersTheTipOfTheGrid)
{
    const QString tip = u"提示：双击"_qs;
    grid.setToolTipText(tip);
    grid.setColWidth(2, 25);
    EXPECT_EQ(tipAt(middleOf(1, 2)), u"586万元"_qs);
    EXPECT_EQ(tipAt(middleOf(1, 1)), tip);
    EXPECT_EQ(tipAt(middleOf(1, 0)), tip) << "a cell without a text";
    grid.setRows(2);
    EXPECT_EQ(tipAt({20, 200}), tip) << "below the last row";
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

TEST_F(FlexGridViewTest, ARowStaysUnderTheMouseThatPressesIt)
{
    const int last = view.rowAt(view.viewport()->height() - 2) + 1;
    ASSERT_FALSE(isWhole(last)) << "cut by the lower edge";
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(40, view.viewport()->height() - 2));
    EXPECT_EQ(grid.Row(), last);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
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

TEST_F(FlexGridViewTest, PaintsCurrentRowStripesAndColouredColumns)
{
    view.setColumnLook(2, {&look::Tokens::salePrice});
    grid.setCurrent(5, 1);
    const look::Tokens &tokens = look::tokens();
    for (const auto &[row, background] :
         {std::pair(5, tokens.currentRow), {3, tokens.card}, {4, tokens.zebra}}) {
        EXPECT_EQ(pixel(row, 1, {2, 2}), background) << row;
        EXPECT_EQ(pixel(row, 2, {2, 2}), background) << "the whole row " << row;
    }
    EXPECT_TRUE(isPainted(3, 2, tokens.salePrice));
    EXPECT_FALSE(isPainted(4, 2, tokens.salePrice)) << "0万元 says nothing";
    EXPECT_TRUE(isPainted(4, 2, tokens.ink));
}

TEST_F(FlexGridViewTest, TellsWhyItIsEmptyOnlyWhileItIs)
{
    view.setEmptyHint(u"没有"_qs);
    const QImage filled = view.viewport()->grab().toImage();
    view.setEmptyHint(QString());
    EXPECT_EQ(view.viewport()->grab().toImage(), filled);
    grid.setRows(grid.FixedRows());
    const QImage blank = view.viewport()->grab().toImage();
    view.setEmptyHint(u"没有"_qs);
    EXPECT_NE(view.viewport()->grab().toImage(), blank);
}

TEST_F(FlexGridViewTest, AMillionRowsKeepTheirHeightAndCanBeReached)
{
    grid.LoadArray(numbered(1'000'000));
    EXPECT_EQ(view.model()->rowCount(), 1'000'000);
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(grid.Row(), 1'000'000);
    EXPECT_EQ(view.rowHeight(999'999), view.rowHeight(0));
    EXPECT_TRUE(view.viewport()->rect().contains(middleOf(1'000'000, 1)));
}

// Shape

QRgb rgb(int number)
{
    return qRgb(number & 255, number >> 8 & 255, number >> 16 & 255);
}

TEST_F(FlexGridViewTest, SumsShowTheirColoursFormatsAndWholeLabel)
{
    const QAbstractItemModelTester tester(view.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid.setRows(4);
    grid.setColFormat(1, u"#,##0.0"_qs);
    const Subtotal wanted[] = {
        {.totalColumn = 1, .backColor = 0xFFFF80, .foreColor = 128, .caption = u"合计三行房源的编号"_qs}};
    grid.setFixedCols(0);
    grid.addSubtotals(wanted);
    ASSERT_EQ(view.model()->rowCount(), 4);
    EXPECT_EQ(view.model()->index(3, 1).data().toString(), u"6.0"_qs);
    EXPECT_EQ(pixel(4, 2, {2, 2}).rgb(), rgb(0xFFFF80));
    EXPECT_EQ(pixel(3, 2, {2, 2}), look::tokens().card);
    grid.setTextMatrix(4, 1, QString());
    EXPECT_TRUE(isPainted(4, 1, QColor(rgb(128)))) << "the narrow first column's label goes on here";
    grid.setColWidth(0, 0);
    EXPECT_TRUE(isPainted(4, 1, QColor(rgb(128)))) << "or begins here when that column is hidden";
    grid.setColWidth(0, 14);
    grid.setTextMatrix(4, 1, u"6"_qs);
    EXPECT_TRUE(isPainted(4, 1, QColor(rgb(128))));
    EXPECT_FALSE(isPainted(4, 2, QColor(rgb(128)))) << "a number ends the label";
    const auto need = [&](const QString &text) { return view.fontMetrics().horizontalAdvance(text) + 12; };
    view.resizeColumnToContents(2);
    EXPECT_GE(view.columnWidth(2), need(QStringLiteral("586万元"))) << "the text with the space around it";
    view.resizeColumnToContents(0);
    EXPECT_LT(view.columnWidth(0), need(wanted[0].caption)) << "a label needs no room of its own";
    view.resize(160, 300); // no room to share
    grid.setColAlignment(1, VSFlexGrid::AlignRight);
    grid.setRows(1);
    grid.LoadArray(numbered(100));
    const Subtotal large[] = {{.totalColumn = 1, .format = QStringLiteral("0.") + QString(24, u'0')}};
    grid.setColFormat(1, {});
    grid.addSubtotals(large);
    EXPECT_GE(view.columnWidth(1), need(grid.TextMatrix(101, 1))) << "the sum of all, far below";
}

TEST_F(FlexGridViewTest, EqualNeighboursOfAMergedColumnLookLikeOneCell)
{
    for (const int row : {2, 3, 4})
        grid.setTextMatrix(row, 1, u"同"_qs);
    grid.setCurrent(10, 1);
    const QColor line = look::tokens().line;
    const auto lineBelow = [&](int row) { return pixel(row, 1, {1, view.rowHeight(row - 1) - 1}); };
    EXPECT_EQ(lineBelow(2), line);
    grid.setMergeCol(1, true);
    EXPECT_NE(lineBelow(2), line);
    EXPECT_NE(lineBelow(3), line);
    EXPECT_EQ(lineBelow(4), line);
    EXPECT_EQ(pixel(2, 1, {1, 1}), pixel(3, 1, {1, 1})) << "without stripes";
    EXPECT_NE(pixel(2, 2, {1, 1}), pixel(3, 2, {1, 1}));
    EXPECT_FALSE(isPainted(2, 1, look::tokens().ink)) << "the text stands in the middle of the three";
    EXPECT_TRUE(isPainted(3, 1, look::tokens().ink));
    grid.setTopRow(3);
    EXPECT_TRUE(isPainted(3, 1, look::tokens().ink) || isPainted(4, 1, look::tokens().ink))
        << "and in sight when it is partly scrolled away";
}

TEST_F(FlexGridViewTest, HeightsLinesAndWrappingAreThoseOfTheGrid)
{
    const int usual = view.rowHeight(0);
    grid.setRowHeight(1, 60);
    EXPECT_EQ(view.rowHeight(0), 60);
    grid.setRowHeight(1, 8);
    EXPECT_GE(view.rowHeight(0), view.fontMetrics().height()) << "never lower than its text";
    grid.setRowHeight(0, 50);
    EXPECT_EQ(view.horizontalHeader()->height(), 50);
    grid.setRowHeight(0, VSFlexGrid::usualRowHeight);
    grid.setRowHeight(1, VSFlexGrid::usualRowHeight);
    EXPECT_EQ(view.rowHeight(0), usual);
    grid.setGridColor(0x0000FF);
    EXPECT_EQ(pixel(3, 1, {1, usual - 1}), QColor(255, 0, 0));
    grid.setGridColor(systemButtonFace);
    EXPECT_EQ(pixel(3, 1, {1, usual - 1}), look::tokens().line);
    grid.setColWidth(1, 60);
    grid.setRowHeight(1, 120);
    grid.setTextMatrix(3, 1, u"一二三四五六七八九十一二三四五六"_qs);
    const auto inkAbove = [&] { return isPainted(3, 1, look::tokens().ink, 40); };
    EXPECT_FALSE(inkAbove()) << "one line in the middle";
    grid.setWordWrap(true);
    EXPECT_TRUE(inkAbove());
}

TEST_F(FlexGridViewTest, WhatAPersonDoesToColumnsGoesToTheGridOnce)
{
    const QSignalSpy changed(&grid, &VSFlexGrid::layoutChanged);
    QHeaderView &header = *view.horizontalHeader();
    const auto headerPoint = [&](int x) { return QPoint(x, header.height() / 2); };
    const auto drag = [&](int from, int to) {
        QTest::mousePress(header.viewport(), Qt::LeftButton, {}, headerPoint(from));
        for (int step = 1; step <= 4; ++step) {
            const QPoint place = headerPoint(from + (to - from) * step / 4);
            QMouseEvent move(QEvent::MouseMove, place, header.viewport()->mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(header.viewport(), &move);
        }
        QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, headerPoint(to));
    };
    const int edge = view.columnViewportPosition(1) + view.columnWidth(1);
    const int before = grid.ColWidth(1);
    drag(edge - 1, edge + 29);
    EXPECT_GT(grid.ColWidth(1), before);
    EXPECT_EQ(changed.size(), 1) << "not once for every pixel";

    drag(view.columnViewportPosition(2) + 20, view.columnViewportPosition(1) + 5);
    EXPECT_EQ(grid.columnOrder(), std::vector<int>({0, 2, 1, 3}));
    EXPECT_EQ(changed.size(), 2);

    const auto choose = [&](const QString &text) {
        const auto menu = view.columns().makeMenu();
        for (QAction *action : menu->actions()) {
            if (action->text() == text)
                action->trigger();
        }
        QStringList texts;
        for (const QAction *action : menu->actions())
            texts.append((action->isChecked() ? u"+"_qs : QString()) + action->text());
        return texts.join(u' ').simplified();
    };
    EXPECT_EQ(choose(u"none"_qs), u"+售总价 +编号 恢复默认布局"_qs)
        << "in the order of sight, without what the screen hides";
    const int width = grid.ColWidth(1);
    choose(u"编号"_qs);
    EXPECT_TRUE(view.isColumnHidden(1));
    EXPECT_EQ(grid.ColWidth(1), 0);
    choose(u"编号"_qs);
    EXPECT_EQ(grid.ColWidth(1), width);
    grid.setColWidth(0, 0);
    choose(u"编号"_qs);
    choose(u"售总价"_qs);
    EXPECT_FALSE(view.isColumnHidden(2)) << "the last column stays";
    choose(u"恢复默认布局"_qs);
    EXPECT_EQ(grid.ColWidth(1), before);
    EXPECT_EQ(grid.columnOrder(), std::vector<int>({0, 1, 2, 3}));
    EXPECT_TRUE(view.isColumnHidden(3));
    EXPECT_EQ(changed.size(), 6);
    for (int column = 0; column < grid.Cols(); ++column)
        grid.setColWidth(column, 0);
    QApplication::processEvents();
    EXPECT_TRUE(header.height() > 0 && view.columns().makeMenu()->actions().constFirst()->isEnabled())
        << "the way back, also when a layout file hides everything";
}

TEST_F(FlexGridViewTest, FrozenColumnsStayInSightAndCanBeUsed)
{
    grid.setColWidth(1, 150);
    grid.setColWidth(2, 900);
    grid.setFrozenCols(1); // behind the one that is fixed
    auto &frozen = *view.findChild<FrozenColumns *>();
    EXPECT_FALSE(frozen.isVisible()) << "at the left end the list itself shows them";
    QApplication::processEvents(); // the scroll bar learns of the new widths
    view.horizontalScrollBar()->setValue(400);
    ASSERT_TRUE(frozen.isVisible());
    EXPECT_EQ(frozen.width(), view.columnWidth(0) + view.columnWidth(1));
    grid.setTopRow(20);
    const QPoint inside(frozen.width() - 10, 5);
    EXPECT_EQ(view.indexAt(inside).column(), 1);
    EXPECT_EQ(frozen.indexAt(inside), view.indexAt(inside)) << "both stand at the same row";
    QTest::mouseClick(frozen.viewport(), Qt::LeftButton, {}, inside);
    EXPECT_EQ(grid.Row(), view.indexAt(inside).row() + 1);
    EXPECT_EQ(grid.Col(), 1);
    const QSignalSpy opened(&grid, &VSFlexGrid::DblClick);
    QTest::mouseDClick(frozen.viewport(), Qt::LeftButton, {}, inside);
    EXPECT_EQ(opened.size(), 1);
    frozen.horizontalHeader()->resizeSection(1, 120);
    EXPECT_EQ(grid.ColWidth(1), 120);
    EXPECT_EQ(frozen.width(), view.columnWidth(0) + view.columnWidth(1));
    grid.setCurrent(grid.Row(), 2);
    EXPECT_GE(view.columnViewportPosition(2), frozen.isVisible() ? frozen.width() : 0);
    view.horizontalScrollBar()->setValue(400);
    ASSERT_TRUE(frozen.isVisible());
    const QSignalSpy changed(&grid, &VSFlexGrid::layoutChanged);
    frozen.horizontalHeader()->resizeSection(1, 500);
    EXPECT_EQ(changed.size(), 1) << "the mouse that draws is not let go in a header that is gone";
    EXPECT_FALSE(frozen.isVisible()) << "nothing else would ever be seen, nor the edge to draw back";
    grid.setColWidth(1, 120);
    grid.setFrozenCols(0);
    view.horizontalScrollBar()->setValue(400);
    EXPECT_FALSE(frozen.isVisible());
}

} // namespace
