#include "library/controls/tree_view.h"

#include "library/controls/search_box.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

std::weak_ptr<Node> weak(Node *node)
{
    return node && node->isInTree() ? node->weak_from_this() : std::weak_ptr<Node>();
}

} // namespace

TreeView::TreeView(const QString &name, int index)
    : Control(u"TreeView"_s, name, index)
    , m_nodes(*this)
    , m_sight(m_nodes)
{}

void TreeView::setImages(const ImageList *images)
{
    m_images = images;
    Q_EMIT stateChanged();
}

void TreeView::setRedraw(bool on)
{
    if (m_isDrawn == on)
        return;
    m_isDrawn = on;
    Q_EMIT redrawChanged();
}

void TreeView::setSelectedItem(Node *node)
{
    m_selected = weak(node);
    if (node && node->isInTree())
        ensureVisible(*node);
    Q_EMIT selectionChanged();
}

QString TreeView::SelectedText() const
{
    const Node *selected = SelectedItem();
    return selected ? selected->Text() : QString();
}

void TreeView::setSelectedText(const QString &text)
{
    for (int index = 1; index <= m_nodes.Count(); ++index) {
        Node *node = m_nodes.Item(index);
        if (node->Text().compare(text, Qt::CaseInsensitive) == 0)
            return setSelectedItem(node);
    }
}

void TreeView::setDropHighlight(Node *node)
{
    Node *before = DropHighlight();
    if (before == node)
        return;
    m_dropHighlight = weak(node);
    Q_EMIT dropHighlightChanged(before);
}

void TreeView::setFilter(const QString &text)
{
    if (text == Filter())
        return;
    Q_EMIT rowsAboutToChange();
    m_sight.setFilter(text);
    if (text.isEmpty() && SelectedItem())
        ensureVisible(*SelectedItem());
}

void TreeView::filterBy(const SearchBox &box)
{
    connect(&box, &SearchBox::Search, this, &TreeView::setFilter);
    connect(&box, &SearchBox::Clear, this, [this] { setFilter({}); });
}

void TreeView::setCounted(std::function<bool(const Node &)> isCounted)
{
    Q_EMIT rowsAboutToChange();
    m_sight.setCounted(std::move(isCounted));
}

void TreeView::beginChange()
{
    Q_EMIT rowsAboutToChange();
    m_sight.invalidate();
}

void TreeView::reportOpening()
{
    m_sight.invalidate();
    Q_EMIT sightChanged();
}

// Place

/// A node that a filter hides is shown all the same: whoever asks for it wants to see it.
void TreeView::ensureVisible(Node &node)
{
    if (!Filter().isEmpty()) {
        beginChange();
        m_sight.pin(&node);
    }
    const bool wasWanted = !m_wanted.expired(); // and nobody has asked for rows since
    const bool isOpened = openAbove(node);
    m_wanted = weak(&node);
    if (isOpened || !wasWanted)
        Q_EMIT sightChanged();
}

bool TreeView::openAbove(Node &node)
{
    bool isOpened = false;
    for (Node *parent = node.Parent(); parent; parent = parent->Parent()) {
        if (m_sight.isOpen(*parent))
            continue;
        m_sight.setOpen(*parent, true);
        isOpened = true;
    }
    return isOpened;
}

int TreeView::TopRow()
{
    if (const auto top = m_top.lock(); top && top->isInTree()) {
        Node *shown = top.get();
        while (m_sight.rowOf(*shown) < 0 && shown->Parent())
            shown = shown->Parent();
        if (const int row = m_sight.rowOf(*shown); row >= 0)
            m_topRow = row;
    }
    scrollToWanted();
    m_topRow = std::clamp(m_topRow, 0, lastTopRow());
    return m_topRow;
}

void TreeView::scrollToWanted()
{
    const auto wanted = std::exchange(m_wanted, {}).lock();
    const int row = wanted ? m_sight.rowOf(*wanted) : -1;
    if (row < 0)
        return;
    const int lastSeen = m_topRow + std::max(1, GetVisibleCount()) - 1;
    if (row < m_topRow)
        setTopRow(row);
    else if (row > lastSeen)
        setTopRow(m_topRow + row - lastSeen);
}

int TreeView::lastTopRow()
{
    return std::max(0, static_cast<int>(m_sight.rows().size()) - std::max(1, GetVisibleCount()));
}

void TreeView::setTopRow(int row)
{
    const int before = m_topRow;
    m_topRow = std::clamp(row, 0, lastTopRow());
    const auto &rows = m_sight.rows();
    m_top = weak(rows.empty() ? nullptr : rows[static_cast<size_t>(m_topRow)]);
    m_wanted.reset();
    if (m_topRow != before)
        Q_EMIT sightChanged();
}

void TreeView::setViewport(float width, float height, float rowHeight)
{
    m_width = width;
    m_height = height;
    m_rowHeight = rowHeight;
}

Node *TreeView::HitTest(float x, float y)
{
    if (m_rowHeight <= 0 || x < 0 || y < 0 || x >= m_width || y >= m_height)
        return nullptr;
    const auto row = static_cast<size_t>(TopRow()) + static_cast<size_t>(y / m_rowHeight);
    const auto &rows = m_sight.rows();
    return row < rows.size() ? rows[row] : nullptr;
}

// Dragging

void TreeView::Drag(DragAction action, float x, float y)
{
    const bool isBegin = action == BeginDrag;
    if (m_isDragging == isBegin)
        return;
    m_isDragging = isBegin;
    Q_EMIT dragChanged();
    if (action == EndDrag)
        Q_EMIT DragDrop(x, y);
    else if (action == CancelDrag)
        Q_EMIT DragCancelled();
}

// The user

void TreeView::click(Node &node)
{
    m_selected = weak(&node);
    Q_EMIT selectionChanged();
    Q_EMIT NodeClick(&node);
}

void TreeView::open(Node &node, bool open)
{
    m_sight.setOpen(node, open);
    Q_EMIT sightChanged();
    if (!open && node.isAbove(SelectedItem()))
        click(node);
}

} // namespace ebtq
