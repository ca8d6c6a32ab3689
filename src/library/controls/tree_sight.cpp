#include "library/controls/tree_sight.h"

#include <ranges>

namespace ebtq {

TreeSight::TreeSight(Nodes &nodes)
    : m_nodes(nodes)
{}

const std::vector<Node *> &TreeSight::rows()
{
    refresh();
    return m_rows;
}

int TreeSight::rowOf(const Node &node)
{
    refresh();
    return node.m_row;
}

void TreeSight::setFilter(const QString &text)
{
    m_filter = text;
    pin(nullptr);
    for (const auto &node : m_nodes.m_nodes)
        node->m_isClosed = false;
    invalidate();
}

bool TreeSight::isOpen(const Node &node) const
{
    return m_filter.isEmpty() ? node.m_isExpanded : !node.m_isClosed;
}

void TreeSight::setOpen(Node &node, bool open)
{
    if (m_filter.isEmpty())
        node.m_isExpanded = open;
    else
        node.m_isClosed = !open;
    invalidate();
}

void TreeSight::setCounted(std::function<bool(const Node &)> isCounted)
{
    m_isCounted = std::move(isCounted);
    invalidate();
}

int TreeSight::countBelow(const Node &node)
{
    refresh();
    return m_isCounted ? node.m_count : -1;
}

const std::vector<Node *> &TreeSight::childrenOf(const Node *node)
{
    refreshKept();
    return keptChildren(node ? *node : m_nodes.m_root);
}

int TreeSight::positionOf(const Node &node)
{
    refreshKept();
    return m_filter.isEmpty() ? node.m_position : node.m_keptPosition;
}

Node *TreeSight::siblingOf(const Node &node, int step)
{
    refreshKept();
    return m_filter.isEmpty() || node.m_isKept ? keptSibling(node, step) : nullptr;
}

/// Without a filter all relatives are kept, and the rows need not be known.
void TreeSight::refreshKept()
{
    if (!m_filter.isEmpty())
        refresh();
}

void TreeSight::refresh()
{
    if (m_isValid)
        return;
    m_isValid = true;
    if (!m_filter.isEmpty() || m_isCounted)
        keepMatches();
    for (const auto &node : m_nodes.m_nodes)
        node->m_row = -1;
    m_rows.clear();
    const auto &first = keptChildren(m_nodes.m_root);
    for (Node *node = first.empty() ? nullptr : first.front(); node; node = nextRow(*node)) {
        node->m_row = static_cast<int>(m_rows.size());
        m_rows.push_back(node);
    }
}

void TreeSight::keepMatches()
{
    std::vector<Node *> order;
    order.reserve(m_nodes.m_nodes.size());
    for (Node *node = m_nodes.m_root.nextInBranch(m_nodes.m_root); node;
         node = node->nextInBranch(m_nodes.m_root))
        order.push_back(node);
    keepBranches(order);
    count(order);
}

/// `order` has parents before their children.
void TreeSight::keepBranches(const std::vector<Node *> &order)
{
    m_nodes.m_root.m_isKept = false;
    m_nodes.m_root.m_keptChildren.clear();
    for (Node *node : order) {
        const bool isBelowMatch = node->m_parent->m_isKept && node->m_parent->m_parent != &m_nodes.m_root;
        node->m_isKept = isBelowMatch || node->m_text.contains(m_filter, Qt::CaseInsensitive);
        node->m_keptChildren.clear();
    }
    if (const auto pinned = m_pinned.lock())
        pinned->m_isKept = true;
    for (Node *node : order | std::views::reverse)
        node->m_parent->m_isKept |= node->m_isKept;
    if (m_filter.isEmpty())
        return;
    for (Node *node : order) {
        if (!node->m_isKept)
            continue;
        node->m_keptPosition = static_cast<int>(node->m_parent->m_keptChildren.size());
        node->m_parent->m_keptChildren.push_back(node);
    }
}

void TreeSight::count(const std::vector<Node *> &order)
{
    m_nodes.m_root.m_count = 0;
    for (Node *node : order)
        node->m_count = 0;
    if (!m_isCounted)
        return;
    for (Node *node : order | std::views::reverse)
        node->m_parent->m_count += node->m_count + (node->m_isKept && m_isCounted(*node) ? 1 : 0);
}

const std::vector<Node *> &TreeSight::keptChildren(const Node &node) const
{
    return m_filter.isEmpty() ? node.m_children : node.m_keptChildren;
}

Node *TreeSight::keptSibling(const Node &node, int step) const
{
    const auto &siblings = keptChildren(*node.m_parent);
    const auto position =
        static_cast<size_t>((m_filter.isEmpty() ? node.m_position : node.m_keptPosition) + step);
    return position < siblings.size() ? siblings[position] : nullptr;
}

Node *TreeSight::nextRow(const Node &node) const
{
    if (const auto &children = keptChildren(node); isOpen(node) && !children.empty())
        return children.front();
    for (const Node *at = &node; at->m_parent; at = at->m_parent) {
        if (Node *next = keptSibling(*at, 1))
            return next;
    }
    return nullptr;
}

} // namespace ebtq
