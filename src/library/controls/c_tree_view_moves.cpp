#include "library/controls/c_tree_view.h"

#include <QHash>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

// Copying and moving

/// A node to be copied and its target: the copy of its parent where there is one.
struct cTreeView::Copied
{
    std::shared_ptr<Node> source;
    Node *target;
};

bool cTreeView::CancelCopy()
{
    m_isCancelled = true;
    return m_isCopying;
}

/// The branch is written down first: a copy may come to stand in the branch itself, and would be copied
/// without end.
bool cTreeView::NodeCopy(Node *source, Node *target, bool recursive)
{
    if (!owns(source) || !owns(target) || m_isCopying)
        return false;
    std::vector<std::pair<std::shared_ptr<Node>, const Node *>> branch; // with their parents
    for (Node *node = source; node; node = recursive ? node->nextInBranch(*source) : nullptr)
        branch.emplace_back(node->shared_from_this(), node->Parent());
    const QScopedValueRollback copying(m_isCopying, true);
    m_isCancelled = false;
    QHash<const Node *, std::shared_ptr<Node>> copies;
    for (const auto &[node, parent] : branch) {
        const auto copyOfParent = copies.value(parent);
        Node *copyOfIt = copyOfParent ? copyOfParent.get() : target;
        if (!owns(node.get()) || !copy({node, copyOfIt}, copyOfIt))
            return false;
        copies.insert(node.get(), copyOfIt->shared_from_this());
    }
    return true;
}

bool cTreeView::copy(const Copied &copied, Node *&copyOfIt)
{
    if (copied.source.get() == copied.target || !owns(copied.target)) {
        m_isCancelled = true;
        return false;
    }
    const auto target = copied.target->shared_from_this();
    const Node *lastBefore = target->LastChild();
    copied.source->setExpanded(true);
    target->setExpanded(true);
    Q_EMIT CopyNode(copied.source.get(), target.get());
    copyOfIt = target->LastChild() != lastBefore && target->LastChild() ? target->LastChild() : target.get();
    return !m_isCancelled && owns(target.get());
}

bool cTreeView::NodeMove(Node *source, Node *target, bool isSelected)
{
    if (!owns(source) || !owns(target) || source == target)
        return false;
    if (IsParentNode(source, target)) {
        if (IsRootNode(source))
            return false;
        while (Node *child = source->FirstChild())
            child->setParent(source->Parent());
    }
    target->setExpanded(true);
    const bool isMoved = source->setParent(target);
    if (isSelected) {
        source->EnsureVisible();
        select(source);
    }
    return isMoved;
}

// Search

bool cTreeView::NodeFind(Node *&found, QString &text, const QString &startText, bool isSelected)
{
    if (text.isEmpty())
        text = m_ask(u"输入要查找的节点名称:"_s, u"查找记录"_s, startText).value_or(QString());
    return find(found, text, 0, isSelected);
}

bool cTreeView::NodeFindNext(Node *&found, const QString &text, int index, bool isSelected)
{
    return find(found, text, std::max(0, index), isSelected);
}

/// Without a hit Selected is raised only when the selection has gone to the first node.
bool cTreeView::find(Node *&found, const QString &text, int behind, bool isSelected)
{
    found = nullptr;
    if (!m_tree || text.isEmpty())
        return false;
    const Nodes &nodes = m_tree->nodes();
    for (int index = behind + 1; index <= nodes.Count() && !found; ++index) {
        if (NodeMatch(nodes.Item(index), text, false))
            found = nodes.Item(index);
    }
    Node *shown = found ? found : isSelected ? nodes.Item(1) : m_tree->SelectedItem();
    if (shown && shown != m_tree->SelectedItem())
        select(shown);
    if (!found && isSelected)
        reportChange(shown);
    else if (found)
        show(found);
    takeFocus();
    return found != nullptr;
}

/// A handler of Selected may remove the node.
void cTreeView::show(Node *&found)
{
    const auto held = found->shared_from_this();
    found->EnsureVisible();
    report(found);
    if (!owns(held.get()))
        found = nullptr;
}

bool cTreeView::NodeMatch(const Node *node, const QString &text, bool children) const
{
    for (const Node *at = node; at; at = children ? at->nextInBranch(*node) : nullptr) {
        if (at->Text().contains(text, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

bool cTreeView::NodeFindTag(Node *node, const QString &tag, QString &key)
{
    const int count = m_tree ? m_tree->nodes().Count() : 0;
    for (int index = 1; index <= count; ++index) {
        const Node *at = m_tree->nodes().Item(index);
        const bool isMeant = !node || node == at || node->isAbove(at);
        if (isMeant && at->Tag().toString().compare(tag, Qt::CaseInsensitive) == 0) {
            key = at->Key();
            return true;
        }
    }
    return false;
}

// Scrolling and walking

void cTreeView::ScrollView(int mode)
{
    const int count = m_tree ? static_cast<int>(m_tree->sight().rows().size()) : 0;
    if (count == 0)
        return;
    const int page = std::max(1, m_tree->GetVisibleCount() - 1);
    const int first = m_tree->TopRow();
    const int last = first + std::max(1, m_tree->GetVisibleCount()) - 1;
    switch (mode) {
    case Top:
        return showEnd(*m_tree->nodes().Item(1)->Root(), 0);
    case PageUp:
        return showRow(first - page);
    case RowUp:
        return showRow(first - 1);
    case RowDown:
        return showRow(last + 1);
    case PageDown:
        return showRow(last + page);
    case Bottom:
        return showEnd(*m_tree->nodes().Item(m_tree->nodes().Count()), count - 1);
    default:
        return;
    }
}

void cTreeView::showRow(int row)
{
    if (Node *node = nodeInRow(row))
        node->EnsureVisible();
}

/// A filter may hide the tree's first or last node; its first or last row is meant then.
void cTreeView::showEnd(Node &node, int row)
{
    if (m_tree->Filter().isEmpty())
        node.EnsureVisible();
    else
        showRow(row);
}

/// The first or the last row for one that is not there; nullptr in an empty tree.
Node *cTreeView::nodeInRow(int row) const
{
    const auto &rows = m_tree->sight().rows();
    const int last = static_cast<int>(rows.size()) - 1;
    return last < 0 ? nullptr : rows[static_cast<size_t>(std::clamp(row, 0, last))];
}

Node *cTreeView::NodeFirstViewable() const
{
    return m_tree ? nodeInRow(m_tree->TopRow()) : nullptr;
}

Node *cTreeView::NodeLastViewable() const
{
    return m_tree ? nodeInRow(m_tree->TopRow() + std::max(1, m_tree->GetVisibleCount()) - 1) : nullptr;
}

bool cTreeView::MoveNodeNext()
{
    Node *node = m_tree ? m_tree->SelectedItem() : nullptr;
    if (!node)
        return false;
    Node *sibling = m_tree->sight().siblingOf(*node, 1);
    const auto &children = m_tree->sight().childrenOf(node);
    return moveTo(sibling || children.empty() ? sibling : children.front());
}

bool cTreeView::MoveNodePrevious()
{
    Node *node = m_tree ? m_tree->SelectedItem() : nullptr;
    if (!node)
        return false;
    Node *sibling = m_tree->sight().siblingOf(*node, -1);
    return moveTo(sibling ? sibling : node->Parent());
}

bool cTreeView::moveTo(Node *node)
{
    if (node) {
        select(node);
        report(node);
    }
    takeFocus();
    return node != nullptr;
}

} // namespace ebtq
