#pragma once

#include "screens/controls/flex_grid_delegate.h"

#include <QTableView>

#include <functional>
#include <vector>

namespace ebtq {

class FlexGridModel;
class MouseWheel;
class VSFlexGrid;

/// The widget of a VSFlexGrid: its first fixed row is the header, its current row is marked over the whole
/// width. Rows all have one height, so a list of any length opens at once. Columns are as wide as the grid
/// says; one that still has the width of its caption grows to what its first rows need and shares the room
/// that is left. A width set by the user goes to the grid.
class FlexGridView : public QTableView
{
    Q_OBJECT

public:
    FlexGridView(VSFlexGrid &grid, QWidget *parent);

    void setColumnLook(int column, const ColumnLook &look);
    /// What is told in the middle while there is no row; empty for nothing.
    void setEmptyHint(const QString &text);
    /// Asked at each turn of the wheel; a wheel that is bound to the grid takes it instead of the scroll bar.
    void setMouseWheel(std::function<MouseWheel *()> wheel) { m_wheel = std::move(wheel); }

    /// Rows are chosen by moving, not by typing their first letters.
    void keyboardSearch(const QString &search) override;

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpLook();
    void setUpHeaders();
    void follow();
    void followLook();
    void followRows();
    void followColumns();
    void followColumnOrder();
    void layOutColumns();
    void followCurrent();
    void markCurrent();
    void showCurrent();
    [[nodiscard]] bool isCurrentSeen() const;
    void followTopRow();
    void reportTopRow(int position);
    void columnResized(int column, int width);
    void reportPress(const QMouseEvent &press, QPointF place);
    void fitColumns();
    [[nodiscard]] int neededWidth(int column) const;
    /// How wide a column would be, how much of that it can do without, and its part of the room left over.
    struct Width
    {
        int wish = 0;
        int spare = 0;
        int grow = 0;
    };
    [[nodiscard]] Width widthOf(int column) const;
    [[nodiscard]] double scale() const { return logicalDpiX() / 96.0; }

    VSFlexGrid &m_grid;
    FlexGridModel *m_model;
    FlexGridDelegate *m_delegate;
    std::function<MouseWheel *()> m_wheel;
    QString m_emptyHint;
    /// Widths of the format string, to tell a column that nobody has set.
    QString m_format;
    std::vector<int> m_formatWidths;
    std::vector<int> m_neededWidths;
    int m_wheelAngle = 0;
    bool m_following = false;
    bool m_movedByUser = false;
    bool m_resizedByUser = false;
    bool m_currentSeen = false; ///< before the rows are reset
};

} // namespace ebtq
