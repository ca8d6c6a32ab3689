#include "screens/controls/tree_delegate.h"

#include "screens/controls/tree_model.h"
#include "screens/controls/whole_text.h"
#include "screens/look/look.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTreeView>

namespace ebtq {

namespace {

constexpr int spaceAroundText = 9;
constexpr int spaceBeforeCount = 8;
constexpr double opacityOfCut = 0.5;

QString countText(const QModelIndex &index)
{
    const int count = index.data(TreeModel::CountRole).toInt();
    return count < 0 ? QString() : QString::number(count);
}

} // namespace

TreeDelegate::TreeDelegate(QTreeView *view)
    : QStyledItemDelegate(view)
{}

int TreeDelegate::rowHeight(const QWidget &view)
{
    return view.fontMetrics().height() + spaceAroundText;
}

/// The row's colour shows where the current node is.
void TreeDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
}

void TreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    painter->save();
    if (index.data(TreeModel::CutRole).toBool())
        painter->setOpacity(opacityOfCut);
    QStyledItemDelegate::paint(painter, option, index);
    const int behindText = QStyledItemDelegate::sizeHint(option, index).width() + spaceBeforeCount;
    painter->setPen(look::tokens().muted);
    painter->drawText(option.rect.adjusted(behindText, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                      countText(index));
    painter->restore();
}

bool TreeDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                             const QModelIndex &index)
{
    const bool isCut = QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !isCut)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    showWholeText(index.data().toString(), event->globalPos(), *view->viewport(), option.rect);
    return true;
}

QSize TreeDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int width = QStyledItemDelegate::sizeHint(option, index).width() + 2 * spaceBeforeCount +
                      option.fontMetrics.horizontalAdvance(countText(index));
    return {width, option.widget ? rowHeight(*option.widget) : 0};
}

} // namespace ebtq
