#include "screens/controls/tree_view_widget.h"

#include "library/controls/tree_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/tree_delegate.h"
#include "screens/controls/tree_model.h"
#include "screens/look/look.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

namespace ebtq {

namespace {

constexpr int scrollInterval = 60; ///< ms a row
constexpr int dragIconSize = 16;

float across(QPointF place)
{
    return static_cast<float>(place.x());
}

float down(QPointF place)
{
    return static_cast<float>(place.y());
}

} // namespace

TreeViewWidget::TreeViewWidget(TreeView &tree, QWidget *parent)
    : QTreeView(parent)
    , m_tree(tree)
    , m_model(new TreeModel(tree, this))
{
    bindControl(tree, *this);
    setModel(m_model);
    setItemDelegate(new TreeDelegate(this));
    setUpLook();
    follow();
}

void TreeViewWidget::setUpLook()
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
}

void TreeViewWidget::follow()
{
    m_later.setSingleShot(true);
    connect(&m_later, &QTimer::timeout, this, &TreeViewWidget::settle);
    for (const auto change :
         {&TreeView::rowsAboutToChange, &TreeView::sightChanged, &TreeView::selectionChanged})
        connect(&m_tree, change, this, &TreeViewWidget::later);
    connect(&m_tree, &TreeView::redrawChanged, this, &TreeViewWidget::followRedraw);
    connect(&m_tree, &TreeView::dragChanged, this, &TreeViewWidget::followDrag);
    connect(&m_tree, &Control::stateChanged, viewport(), qOverload<>(&QWidget::update));
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { reportOpening(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { reportOpening(index, false); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int row) {
        if (!m_exchange.isFollowing() && !m_isStale)
            m_tree.setTopRow(row);
    });
    reportViewport();
    later();
}

// Following the tree

void TreeViewWidget::later()
{
    if (m_exchange.isFollowing())
        return;
    m_isStale = true;
    if (!m_later.isActive())
        m_later.start(0);
}

bool TreeViewWidget::settle()
{
    if (!m_tree.Redraw())
        return false;
    if (!m_isStale || m_exchange.isFollowing())
        return true;
    const auto following = m_exchange.follow();
    m_isStale = false;
    m_model->settle();
    followOpening();
    followSelection();
    followTopRow();
    return true;
}

/// More than one at a time would each lay the rows out; a pending layout takes them all.
void TreeViewWidget::followOpening()
{
    QList<QPair<QModelIndex, bool>> changed;
    for (int number = 1; number <= m_tree.nodes().Count(); ++number) {
        const Node &node = *m_tree.nodes().Item(number);
        if (node.Children() == 0)
            continue;
        const QModelIndex index = m_model->indexOf(&node);
        const bool isOpen = m_tree.sight().isOpen(node);
        if (index.isValid() && isExpanded(index) != isOpen)
            changed.append({index, isOpen});
    }
    if (changed.size() > 1)
        scheduleDelayedItemsLayout();
    for (const auto &[index, isOpen] : std::as_const(changed))
        setExpanded(index, isOpen);
}

void TreeViewWidget::followSelection()
{
    const QModelIndex index = m_model->indexOf(m_tree.SelectedItem());
    if (index == currentIndex())
        return;
    setAutoScroll(false);
    if (index.isValid())
        setCurrentIndex(index);
    else
        selectionModel()->clear();
    setAutoScroll(true);
}

/// The tree learns where the view has ended.
void TreeViewWidget::followTopRow()
{
    executeDelayedItemsLayout();
    updateGeometries();
    reportViewport();
    verticalScrollBar()->setValue(m_tree.TopRow());
    m_tree.setTopRow(verticalScrollBar()->value());
}

void TreeViewWidget::followRedraw()
{
    viewport()->setUpdatesEnabled(m_tree.Redraw());
    later();
}

void TreeViewWidget::reportViewport()
{
    const int row = TreeDelegate::rowHeight(*this);
    m_tree.setViewport(static_cast<float>(viewport()->width()), static_cast<float>(viewport()->height()),
                       static_cast<float>(row));
}

void TreeViewWidget::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    reportViewport();
    later();
}

// What the user does

/// Nothing may reach rows that are not there any more.
bool TreeViewWidget::viewportEvent(QEvent *event)
{
    const bool isSettled = settle();
    const bool isInput = dynamic_cast<QInputEvent *>(event) || event->type() == QEvent::ToolTip;
    return (!isSettled && (isInput || event->type() == QEvent::Paint)) || QTreeView::viewportEvent(event);
}

bool TreeViewWidget::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && m_tree.isDragging()) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

void TreeViewWidget::keyPressEvent(QKeyEvent *event)
{
    if (m_tree.isDragging() && event->key() == Qt::Key_Escape)
        cancelDrag();
    else if (!m_tree.isDragging() && settle())
        QTreeView::keyPressEvent(event);
}

void TreeViewWidget::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_exchange.isFollowing() || m_model->isChanging())
        return;
    if (Node *node = m_model->nodeOf(current))
        m_tree.click(*node);
}

void TreeViewWidget::reportOpening(const QModelIndex &index, bool isOpen)
{
    if (m_exchange.isFollowing() || m_model->isChanging())
        return;
    if (Node *node = m_model->nodeOf(index))
        m_tree.open(*node, isOpen);
}

/// A right press selects nothing by itself: whoever offers a menu does. The tree learns of the press first,
/// since what a selection does may change the rows.
void TreeViewWidget::mousePressEvent(QMouseEvent *event)
{
    if (m_tree.isDragging())
        return;
    m_pressed = event->position();
    Q_EMIT m_tree.MouseDown(event->button(), across(m_pressed), down(m_pressed));
    if (event->button() != Qt::LeftButton || !settle())
        return;
    const QPersistentModelIndex pressed = indexAt(m_pressed.toPoint());
    const bool isAgain = pressed.isValid() && pressed == currentIndex();
    QTreeView::mousePressEvent(event);
    if (Node *node = isAgain ? m_model->nodeOf(pressed) : nullptr)
        m_tree.click(*node);
}

/// With the button down the base class would select what the mouse passes.
void TreeViewWidget::mouseMoveEvent(QMouseEvent *event)
{
    m_mouse = event->position();
    if (m_tree.isDragging())
        Q_EMIT m_tree.DragOver(across(m_mouse), down(m_mouse));
    else if (event->buttons() == Qt::NoButton)
        QTreeView::mouseMoveEvent(event);
    else if (isFarFromPress(m_mouse))
        Q_EMIT m_tree.MouseMove(event->buttons(), across(m_mouse), down(m_mouse));
}

bool TreeViewWidget::isFarFromPress(QPointF place) const
{
    return (place - m_pressed).manhattanLength() >= QApplication::startDragDistance();
}

/// The base class would select the row where a drag ends.
void TreeViewWidget::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointF place = event->position();
    if (event->button() == Qt::LeftButton && m_tree.isDragging())
        m_tree.Drag(TreeView::EndDrag, across(place), down(place));
    Q_EMIT m_tree.MouseUp(event->button(), across(place), down(place));
    if (event->button() == Qt::LeftButton && settle() && indexAt(place.toPoint()) == currentIndex())
        QTreeView::mouseReleaseEvent(event);
}

// A drag

void TreeViewWidget::followDrag()
{
    if (!m_tree.isDragging()) {
        m_dragging.stop();
        viewport()->unsetCursor();
        return;
    }
    m_dragging.start(scrollInterval, this);
    const QString icon = m_tree.DragIcon();
    viewport()->setCursor(icon.isEmpty() ? QCursor(Qt::DragMoveCursor)
                                         : QCursor(look::icon(icon).pixmap(dragIconSize)));
}

void TreeViewWidget::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_dragging.timerId())
        return QTreeView::timerEvent(event);
    settle();
    Q_EMIT m_tree.DragOver(across(m_mouse), down(m_mouse));
}

void TreeViewWidget::cancelDrag()
{
    m_tree.Drag(TreeView::CancelDrag);
}

void TreeViewWidget::focusOutEvent(QFocusEvent *event)
{
    cancelDrag();
    QTreeView::focusOutEvent(event);
}

void TreeViewWidget::hideEvent(QHideEvent *event)
{
    cancelDrag();
    QTreeView::hideEvent(event);
}

void TreeViewWidget::changeEvent(QEvent *event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        cancelDrag();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        later();
}

} // namespace ebtq
