#pragma once

#include "screens/look/look.h"

#include <QHash>
#include <QStyledItemDelegate>

namespace ebtq {

/// How the cells of a column differ from the others.
struct ColumnLook
{
    /// Colour of the cells that say more than nothing or 0.
    QColor look::Tokens::*ink = &look::Tokens::ink;
};

/// Paints a cell of a grid: the whole current row in its colour, every second row tinted, no box around the
/// cell that has the focus.
class FlexGridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit FlexGridDelegate(QAbstractItemView &view);

    void setColumnLook(int column, const ColumnLook &look) { m_columns.insert(column, look); }
    void setStriped(bool striped) { m_striped = striped; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /// The whole text of a cell that is too narrow for it; any other cell leaves the tip to the grid.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    /// Space at each side of a cell's text, in pixels.
    static constexpr int padding = 6;
    static constexpr int pictureSize = 16;

private:
    [[nodiscard]] const QColor &background(const QModelIndex &index, bool isSelected) const;
    void paintPicture(QPainter *painter, const QRect &cell, const QModelIndex &index) const;
    void paintText(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                   const QString &text) const;

    QAbstractItemView &m_view;
    QHash<int, ColumnLook> m_columns;
    bool m_striped = false;
};

} // namespace ebtq
