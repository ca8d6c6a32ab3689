#pragma once

#include "screens/look/look.h"

#include <QHash>
#include <QSet>
#include <QStyledItemDelegate>

class QTableView;

namespace ebtq {

/// How the cells of a column differ from the others.
struct ColumnLook
{
    /// Colour of the cells that say more than nothing or 0.
    QColor look::Tokens::*ink = &look::Tokens::ink;
};

/// Paints a cell of a grid and the lines at its right and below: the whole current row in its colour, every
/// second row tinted, no box around the cell that has the focus.
///
/// Each cell is painted separately, also as a part of the label of a sum, which extends into empty cells to
/// its right, or of equal neighbours in a merged column, which look like one cell. So column order and
/// scrolling need no special case, and only visible rows cost anything.
class FlexGridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit FlexGridDelegate(QTableView &view);

    void setColumnLook(int column, const ColumnLook &look) { m_columns.insert(column, look); }
    void setStriped(bool striped) { m_striped = striped; }
    void setMergedColumns(const QSet<int> &columns) { m_merged = columns; }
    void setWordWrap(bool wraps) { m_wraps = wraps; }
    /// Background of the current row; an invalid colour for that of the scheme.
    void setSelectionColor(const QColor &color) { m_selectionColor = color; }
    /// Of the lines; an invalid one for the usual colour.
    void setLineColor(const QColor &color) { m_lineColor = color; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /// The whole text of a cell that is too narrow for it; any other cell leaves the tip to the grid.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    /// So that a double click on a column's edge fits the column to what the cells need.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// The width that a cell needs for its text and padding. The label of a sum extends into the empty cells
    /// beside it and needs none.
    [[nodiscard]] static int neededWidth(const QModelIndex &index, const QFontMetrics &metrics);
    /// Space at each side of a cell's text, in pixels.
    static constexpr int padding = 6;
    static constexpr int pictureSize = 16;

private:
    [[nodiscard]] QColor background(const QModelIndex &index, bool isSelected) const;
    [[nodiscard]] QColor ink(const QModelIndex &index, const QString &text, const QColor &ground) const;
    void paintLines(QPainter *painter, const QRect &cell, const QModelIndex &index,
                    const QTableView &view) const;
    void paintPicture(QPainter *painter, const QRect &cell, const QModelIndex &index) const;
    void paintText(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                   const QString &text, const QRect &place) const;
    void paintLabel(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                    const QTableView &view) const;
    [[nodiscard]] bool isMergedWith(const QModelIndex &index, int row) const;
    /// Whether it is part of a merged cell, which has one background.
    [[nodiscard]] bool isMerged(const QModelIndex &index) const;
    /// The rectangle of the visible part of the merged cell.
    [[nodiscard]] QRect mergedPlace(const QRect &cell, const QModelIndex &index,
                                    const QTableView &view) const;

    QTableView &m_view;
    QHash<int, ColumnLook> m_columns;
    QSet<int> m_merged;
    QColor m_lineColor;
    QColor m_selectionColor;
    bool m_striped = false;
    bool m_wraps = false;
};

} // namespace ebtq
