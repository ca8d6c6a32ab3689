#include "screens/controls/flex_grid_delegate.h"

#include "database/values/number_text.h"
#include "screens/controls/color_number.h"
#include "screens/controls/flex_grid_model.h"
#include "screens/controls/whole_text.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QTableView>

namespace ebtq {

namespace {

QString textOf(const QModelIndex &index)
{
    return index.data().toString();
}

/// The next visible column of the row; invalid at the end.
QModelIndex neighbour(const QModelIndex &index, const QTableView &view, int step)
{
    const QHeaderView &header = *view.horizontalHeader();
    int place = header.visualIndex(index.column()) + step;
    while (place >= 0 && place < header.count() && view.isColumnHidden(header.logicalIndex(place)))
        place += step;
    return place < 0 ? QModelIndex() : index.siblingAtColumn(header.logicalIndex(place));
}

int across(const QModelIndex &index)
{
    return index.data(Qt::TextAlignmentRole).toInt();
}

bool isEmpty(const QModelIndex &index)
{
    return textOf(index).isEmpty() && !index.data(Qt::DecorationRole).isValid();
}

/// In a row with sums all but the sums themselves is label: it runs on over empty cells.
bool isLabel(const QModelIndex &index)
{
    return index.data(FlexGridModel::IsSumLabel).toBool() ||
           (index.data(FlexGridModel::IsSubtotal).toBool() && isEmpty(index));
}

/// The cell with the label that extends into this one; invalid when there is none. The label of a column that
/// was hidden after the sums were made begins where that column was.
QModelIndex labelOf(const QModelIndex &index, const QTableView &view)
{
    for (QModelIndex cell = index; cell.isValid(); cell = neighbour(cell, view, -1)) {
        if (!isEmpty(cell))
            return cell;
    }
    const QHeaderView &header = *view.horizontalHeader();
    for (int place = header.visualIndex(index.column()) - 1; place >= 0; --place) {
        const QModelIndex hidden = index.siblingAtColumn(header.logicalIndex(place));
        if (isLabel(hidden) && !isEmpty(hidden))
            return hidden;
    }
    return {};
}

} // namespace

FlexGridDelegate::FlexGridDelegate(QTableView &view)
    : QStyledItemDelegate(&view)
    , m_view(view)
{}

QColor FlexGridDelegate::background(const QModelIndex &index, bool isSelected) const
{
    const look::Tokens &tokens = look::tokens();
    if (index.row() == m_view.currentIndex().row())
        return m_selectionColor.isValid() ? inScheme(m_selectionColor) : tokens.currentRow;
    if (isSelected)
        return tokens.brandSoft;
    if (const QVariant given = index.data(Qt::BackgroundRole); given.isValid())
        return inScheme(given.value<QColor>());
    return m_striped && index.row() % 2 == 1 && !isMerged(index) ? tokens.zebra : tokens.card;
}

QColor FlexGridDelegate::ink(const QModelIndex &index, const QString &text, const QColor &ground) const
{
    if (const QVariant given = index.data(Qt::ForegroundRole); given.isValid())
        return readable(given.value<QColor>(), ground);
    const bool says = leadingNumber(text) != 0.0;
    return readable(look::tokens().*(says ? m_columns.value(index.column()).ink : &look::Tokens::ink),
                    ground);
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    const auto *view = qobject_cast<const QTableView *>(option.widget);
    if (!view)
        return;
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    painter->fillRect(option.rect, background(index, option.state.testFlag(QStyle::State_Selected)));
    paintLines(painter, option.rect, index, *view);
    paintPicture(painter, option.rect, index);
    if (isLabel(index))
        paintLabel(painter, option, index, *view);
    else if (const QString text = textOf(index); !text.isEmpty())
        paintText(painter, option, index, text, mergedPlace(option.rect, index, *view));
    painter->restore();
}

/// In a row with sums a line would go through the label that runs on.
void FlexGridDelegate::paintLines(QPainter *painter, const QRect &cell, const QModelIndex &index,
                                  const QTableView &view) const
{
    painter->setPen(m_lineColor.isValid() ? m_lineColor : look::tokens().line);
    const QModelIndex next = neighbour(index, view, 1);
    if (!(index.data(FlexGridModel::IsSubtotal).toBool() && next.isValid() && isEmpty(next)))
        painter->drawLine(cell.topRight(), cell.bottomRight());
    if (!isMergedWith(index, index.row() + 1))
        painter->drawLine(cell.bottomLeft(), cell.bottomRight());
}

bool FlexGridDelegate::isMergedWith(const QModelIndex &index, int row) const
{
    if (!m_merged.contains(index.column()) || row < 0 || row >= index.model()->rowCount())
        return false;
    const QString text = textOf(index);
    return !text.isEmpty() && textOf(index.siblingAtRow(row)) == text;
}

bool FlexGridDelegate::isMerged(const QModelIndex &index) const
{
    return isMergedWith(index, index.row() - 1) || isMergedWith(index, index.row() + 1);
}

QRect FlexGridDelegate::mergedPlace(const QRect &cell, const QModelIndex &index, const QTableView &view) const
{
    QRect place = cell;
    for (int row = index.row(); isMergedWith(index, row - 1) && place.top() > 0; --row)
        place.setTop(place.top() - view.rowHeight(row - 1));
    for (int row = index.row(); isMergedWith(index, row + 1) && place.bottom() < view.viewport()->height();
         ++row)
        place.setBottom(place.bottom() + view.rowHeight(row + 1));
    return place;
}

/// The text may begin in a cell further left: then this one shows its part of it.
void FlexGridDelegate::paintLabel(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index, const QTableView &view) const
{
    const QModelIndex label = labelOf(index, view);
    if (!label.isValid() || (label != index && across(label) & Qt::AlignRight))
        return;
    QRect place = option.rect;
    place.setLeft(view.columnViewportPosition(label.column()));
    for (QModelIndex next = neighbour(label, view, 1); next.isValid() && isEmpty(next);
         next = neighbour(next, view, 1))
        place.setRight(view.columnViewportPosition(next.column()) + view.columnWidth(next.column()) - 1);
    paintText(painter, option, label, textOf(label), place);
}

void FlexGridDelegate::paintPicture(QPainter *painter, const QRect &cell, const QModelIndex &index) const
{
    const auto picture = index.data(Qt::DecorationRole).value<QIcon>();
    if (picture.isNull())
        return;
    QRect place(0, 0, pictureSize, pictureSize);
    place.moveCenter(cell.center());
    picture.paint(painter, place);
}

void FlexGridDelegate::paintText(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index, const QString &text, const QRect &place) const
{
    QFont font = option.font;
    font.setBold(index.data(Qt::FontRole).isValid());
    const QRect inner = place.adjusted(padding, 0, -padding, -1);
    const QColor ground = background(index, option.state.testFlag(QStyle::State_Selected));
    painter->setFont(font);
    painter->setPen(ink(index, text, ground));
    painter->drawText(inner, across(index) | (m_wraps ? Qt::TextWordWrap : Qt::TextSingleLine),
                      m_wraps ? text : QFontMetrics(font).elidedText(text, Qt::ElideRight, inner.width()));
}

int FlexGridDelegate::neededWidth(const QModelIndex &index, const QFontMetrics &metrics)
{
    constexpr int edges = 2 * padding + 2;
    return isLabel(index) ? 0 : metrics.horizontalAdvance(textOf(index)) + edges;
}

QSize FlexGridDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {neededWidth(index, option.fontMetrics), QStyledItemDelegate::sizeHint(option, index).height()};
}

bool FlexGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QString text = index.data().toString();
    const bool isCut =
        option.fontMetrics.horizontalAdvance(text) > option.rect.width() - 2 * padding && !text.isEmpty();
    if (event->type() == QEvent::ToolTip && isCut)
        showWholeText(text, event->globalPos(), *view->viewport(), option.rect);
    event->setAccepted(isCut);
    return isCut;
}

} // namespace ebtq
