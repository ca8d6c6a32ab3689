#include "library/controls/c_tree_view.h"

namespace ebtq {

namespace {

constexpr int rowsOfMargin = 2;

} // namespace

Node *cTreeView::nodeAt(float x, float y) const
{
    return m_tree ? m_tree->HitTest(x, y) : nullptr;
}

void cTreeView::pressed(Qt::MouseButton button, float x, float y)
{
    Node *node = nodeAt(x, y);
    if (button == Qt::LeftButton && m_isDragEnabled && !m_isDragging)
        m_dragNode = node ? node->weak_from_this() : std::weak_ptr<Node>();
    else if (button == Qt::RightButton && m_contextMenuMode == AtPress)
        raiseContextMenu(x, y);
}

void cTreeView::moved(Qt::MouseButtons buttons, float x, float y)
{
    const auto node = m_dragNode.lock();
    if (!buttons.testFlag(Qt::LeftButton) || !m_isDragEnabled || m_isDragging || !owns(node.get()) ||
        !nodeAt(x, y))
        return;
    m_isMouseHeld = true;
    m_isDragging = true;
    m_tree->Drag(TreeView::BeginDrag);
    Q_EMIT StartDrag(node.get());
}

void cTreeView::released(Qt::MouseButton button, float x, float y)
{
    if (button == Qt::RightButton && m_contextMenuMode == AtRelease)
        raiseContextMenu(x, y);
    else if (button == Qt::LeftButton && !m_isDragging)
        m_dragNode.reset();
}

/// In the rows near the upper and the lower edge the tree scrolls. The node may go away at any event.
void cTreeView::draggedOver(float x, float y)
{
    const auto dragged = m_dragNode.lock();
    if (!m_isDragging || !m_isMouseHeld)
        return;
    if (!owns(dragged.get()))
        return m_tree->Drag(TreeView::CancelDrag);
    Node *over = nodeAt(x, y);
    m_tree->setDropHighlight(over);
    const float row = m_tree->RowHeight();
    const float bottomMargin = static_cast<float>(m_tree->GetVisibleCount() - rowsOfMargin) * row;
    if (y >= bottomMargin)
        ScrollView(RowDown);
    else if (y < rowsOfMargin * row)
        ScrollView(RowUp);
    else if (over)
        Q_EMIT Dragging(over, dragged.get());
}

/// What a handler does may end this drag, or begin another one: the state goes first.
void cTreeView::dropped(float x, float y)
{
    const auto source = m_dragNode.lock();
    const bool isDragging = m_isDragging;
    Node *target = nodeAt(x, y);
    endDrag();
    if (isDragging && target && owns(source.get()) && target != source.get())
        Q_EMIT Dropped(target, source.get());
}

void cTreeView::endDrag()
{
    if (m_tree)
        m_tree->setDropHighlight(nullptr);
    m_dragNode.reset();
    m_isMouseHeld = false;
    m_isDragging = false;
}

/// What the menu offers is for the node under the mouse, so its module must know of it.
void cTreeView::raiseContextMenu(float x, float y)
{
    Node *node = nodeAt(x, y);
    if (!node || m_isDragging)
        return;
    const auto held = node->shared_from_this();
    select(node);
    reportChange(node);
    if (owns(node))
        Q_EMIT ContextMenu(x, y, node);
}

} // namespace ebtq
