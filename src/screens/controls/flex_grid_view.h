#pragma once

#include "screens/controls/exchange.h"
#include "screens/controls/flex_grid_delegate.h"

#include <QTableView>

#include <functional>

namespace ebtq {

class FlexGridColumns;
class FlexGridModel;
class FrozenColumns;
class MouseWheel;
class VSFlexGrid;

/// The widget of a VSFlexGrid: its first fixed row is the header, its current row is marked over the whole
/// width. Rows all have one height, so a list of any length opens at once.
class FlexGridView : public QTableView
{
    Q_OBJECT

public:
    FlexGridView(VSFlexGrid &grid, QWidget *parent);

    void setColumnLook(int column, const ColumnLook &look);
    /// Placeholder shown while the list is empty.
    void setEmptyHint(const QString &text);
    /// Asked at each turn of the wheel; a wheel that is bound to the grid takes it instead of the scroll bar.
    void setMouseWheel(std::function<MouseWheel *()> wheel) { m_wheel = std::move(wheel); }

    /// Rows are chosen by moving, not by typing their first letters.
    void keyboardSearch(const QString &search) override;
    [[nodiscard]] QModelIndex indexAt(const QPoint &place) const override;
    [[nodiscard]] QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    [[nodiscard]] FlexGridColumns &columns() const { return *m_columns; }

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
    void followHeights();
    void followRows();
    void followColumns();
    void followCurrent();
    void markCurrent();
    void showCurrent();
    [[nodiscard]] bool isCurrentSeen() const;
    void followTopRow();
    void reportTopRow(int position);
    /// Text shown instead of rows; empty for none.
    [[nodiscard]] QString hint() const;
    void reportPress(const QMouseEvent &press, QPointF place);
    [[nodiscard]] double scale() const { return logicalDpiX() / 96.0; }

    VSFlexGrid &m_grid;
    FlexGridModel *m_model;
    FlexGridDelegate *m_delegate;
    FlexGridColumns *m_columns = nullptr;
    FrozenColumns *m_frozen = nullptr;
    std::function<MouseWheel *()> m_wheel;
    QString m_emptyHint;
    bool m_isMerged = false; ///< some column shows equal neighbours as one cell
    int m_wheelAngle = 0;
    Exchange m_exchange;
    bool m_currentSeen = false; ///< before the rows are reset
};

} // namespace ebtq
