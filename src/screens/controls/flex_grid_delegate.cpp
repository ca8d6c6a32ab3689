#include "screens/controls/flex_grid_delegate.h"

#include "database/values/number_text.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace ebtq {

FlexGridDelegate::FlexGridDelegate(QAbstractItemView &view)
    : QStyledItemDelegate(&view)
    , m_view(view)
{}

const QColor &FlexGridDelegate::background(const QModelIndex &index, bool isSelected) const
{
    const look::Tokens &tokens = look::tokens();
    if (index.row() == m_view.currentIndex().row())
        return tokens.currentRow;
    if (isSelected)
        return tokens.brandSoft;
    return m_striped && index.row() % 2 == 1 ? tokens.zebra : tokens.card;
}

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    painter->fillRect(option.rect, background(index, option.state.testFlag(QStyle::State_Selected)));
    paintPicture(painter, option.rect, index);
    const QString text = index.data().toString();
    if (!text.isEmpty())
        paintText(painter, option, index, text);
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
                                 const QModelIndex &index, const QString &text) const
{
    const ColumnLook look = m_columns.value(index.column());
    const bool says = leadingNumber(text) != 0.0;
    const int across = index.data(Qt::TextAlignmentRole).toInt();
    const QRect place = option.rect.adjusted(padding, 0, -padding, 0);
    painter->setFont(option.font);
    painter->setPen(look::tokens().*(says ? look.ink : &look::Tokens::ink));
    painter->drawText(place, across | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
}

bool FlexGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QString text = index.data().toString();
    const bool isCut =
        option.fontMetrics.horizontalAdvance(text) > option.rect.width() - 2 * padding && !text.isEmpty();
    if (event->type() == QEvent::ToolTip && isCut)
        QToolTip::showText(event->globalPos(), text, view->viewport(), option.rect);
    event->setAccepted(isCut);
    return isCut;
}

} // namespace ebtq
