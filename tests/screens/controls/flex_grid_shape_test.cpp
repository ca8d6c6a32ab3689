// Columns, heights, colours and merged cells of a grid on the screen.

#include "screens/controls/flex_grid_columns.h"
#include "screens/controls/flex_grid_view_fixture.h"
#include "screens/controls/frozen_columns.h"
#include "screens/look/look.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QMenu>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalSpy>

using namespace ebtq;
using namespace ebtq::test;

namespace {

using FlexGridShapeTest = FlexGridViewTest;

TEST_F(FlexGridShapeTest, AColumnNobodySetGrowsAndShrinksWithItsContents)
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
    grid.setColWidth(1, 55);
    grid.LoadArray(numbered(3));
    EXPECT_EQ(view.columnWidth(1), 55) << "a width that was set outlasts a load";
}

TEST_F(FlexGridShapeTest, ANarrowWindowTakesOnlyTheRoomThatNobodyNeeds)
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

TEST_F(FlexGridShapeTest, AWideWindowIsFilledByTheColumnsThatNobodySet)
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

TEST_F(FlexGridShapeTest, PaintsCurrentRowStripesAndColouredColumns)
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
    grid.setSelectionColor(0xC0C000);
    grid.setBackColorAlternate(0);
    for (const auto &[row, background] : {std::pair(5, QColor(0, 192, 192)), {4, tokens.card}})
        EXPECT_EQ(pixel(row, 1, {2, 2}), background) << row;
    EXPECT_TRUE(isPainted(5, 2, QColor(tokens.salePrice.darker(250).rgb())))
        << "readable on the colour of the row";
    const QScopeGuard light([] { look::apply(*qApp, look::Scheme::Light); });
    look::apply(*qApp, look::Scheme::Dark);
    EXPECT_EQ(pixel(5, 1, {2, 2}), QColor(38, 89, 89));
}

QRgb rgb(int number)
{
    return qRgb(number & 255, number >> 8 & 255, number >> 16 & 255);
}

TEST_F(FlexGridShapeTest, SumsShowTheirColoursFormatsAndWholeLabel)
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
    EXPECT_GE(view.columnWidth(2), need(u"586万元"_qs)) << "the text with the space around it";
    view.resizeColumnToContents(0);
    EXPECT_LT(view.columnWidth(0), need(wanted[0].caption)) << "a label needs no room of its own";
    view.resize(160, 300); // no room to share
    grid.setColAlignment(1, VSFlexGrid::AlignRight);
    grid.setRows(1);
    grid.LoadArray(numbered(100));
    const Subtotal large[] = {{.totalColumn = 1, .format = u"0."_qs + QString(24, u'0')}};
    grid.setColFormat(1, {});
    grid.addSubtotals(large);
    EXPECT_GE(view.columnWidth(1), need(grid.TextMatrix(101, 1))) << "the sum of all, far below";
}

TEST_F(FlexGridShapeTest, EqualNeighboursOfAMergedColumnLookLikeOneCell)
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

TEST_F(FlexGridShapeTest, HeightsLinesAndWrappingAreThoseOfTheGrid)
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

TEST_F(FlexGridShapeTest, WhatAPersonDoesToColumnsGoesToTheGridOnce)
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

TEST_F(FlexGridShapeTest, FrozenColumnsStayInSightAndCanBeUsed)
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
