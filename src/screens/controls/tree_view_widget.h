#pragma once

#include "screens/controls/exchange.h"

#include <QBasicTimer>
#include <QTimer>
#include <QTreeView>

namespace ebtq {

class TreeModel;
class TreeView;

/// The widget of a TreeView. It follows the tree when control returns to the event loop, or with the next
/// event of its own, however much was changed. A drag is the mouse held down: the tree decides what becomes
/// of it. While it runs, Esc or losing the keyboard ends it without a drop, and other keys do nothing.
class TreeViewWidget : public QTreeView
{
    Q_OBJECT

public:
    TreeViewWidget(TreeView &tree, QWidget *parent);

    [[nodiscard]] TreeModel &treeModel() const { return *m_model; }
    /// Takes over what has changed; false while the tree is not redrawn.
    bool settle();
    /// Letters go to whoever filters the tree.
    void keyboardSearch(const QString &search) override { Q_EMIT typed(search); }

Q_SIGNALS:
    void typed(const QString &text);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void setUpLook();
    void follow();
    void later();
    void followOpening();
    void followSelection();
    void followTopRow();
    void followDrag();
    void followRedraw();
    void reportViewport();
    void reportOpening(const QModelIndex &index, bool isOpen);
    [[nodiscard]] bool isFarFromPress(QPointF place) const;
    void cancelDrag();

    TreeView &m_tree;
    TreeModel *m_model;
    QTimer m_later;
    QBasicTimer m_dragging; ///< the tree scrolls on while the mouse rests near an edge
    QPointF m_pressed;
    QPointF m_mouse;
    bool m_isStale = true;
    Exchange m_exchange;
};

} // namespace ebtq
