#pragma once

#include "library/controls/flex_grid.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/support/screen.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace ebtq::test {

inline RowBlock numbered(int rows)
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

/// A grid of a hundred numbered rows on the screen, its key hidden.
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

} // namespace ebtq::test
