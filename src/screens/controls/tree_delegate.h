#pragma once

#include <QStyledItemDelegate>

class QTreeView;

namespace ebtq {

/// Paints a node: its icon, its text, and behind it in a paler colour how many nodes count below. All rows
/// have one height.
class TreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit TreeDelegate(QTreeView *view);

    [[nodiscard]] static int rowHeight(const QWidget &view);
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /// A cut text is shown whole.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace ebtq
