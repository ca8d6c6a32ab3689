#include "library/controls/tree_nodes.h"

#include "library/controls/tree_view.h"

#include <algorithm>

namespace ebtq {

Nodes::Nodes(TreeView &tree)
    : m_tree(tree)
    , m_root(&tree, {}, {})
{}

Nodes::~Nodes()
{
    for (const auto &node : m_nodes)
        forget(*node);
}

Node *Nodes::Item(int index) const
{
    return index >= 1 && index <= Count() ? m_nodes[static_cast<size_t>(index - 1)].get() : nullptr;
}

Node *Nodes::Item(const QString &key) const
{
    return m_byKey.value(key);
}

Node *Nodes::Item(const QVariant &nodeKeyOrIndex) const
{
    if (nodeKeyOrIndex.typeId() == qMetaTypeId<Node *>())
        return nodeKeyOrIndex.value<Node *>();
    if (nodeKeyOrIndex.typeId() == QMetaType::QString)
        return Item(nodeKeyOrIndex.toString());
    return Item(nodeKeyOrIndex.toInt());
}

Node *Nodes::Add(const QVariant &relative, Node::Relationship relationship, const QString &key,
                 const QString &text)
{
    Node *beside = Item(relative);
    const bool isMissing = relative.isValid() && (!beside || beside->m_tree != &m_tree);
    if (isMissing || m_byKey.contains(key))
        return nullptr;
    m_tree.beginChange();
    Node &node = *m_nodes.emplace_back(std::make_shared<Node>(&m_tree, key, text));
    node.m_index = Count();
    if (!key.isEmpty())
        m_byKey.insert(key, &node);
    place(node, beside, relationship);
    return &node;
}

void Nodes::place(Node &node, Node *relative, Node::Relationship relationship)
{
    if (!relative)
        return m_root.insertChild(node, m_root.Children());
    if (relationship == Node::Child)
        return relative->insertChild(node, relative->Children());
    Node &parent = *relative->m_parent;
    switch (relationship) {
    case Node::First:
        return parent.insertChild(node, 0);
    case Node::Next:
        return parent.insertChild(node, relative->m_position + 1);
    case Node::Previous:
        return parent.insertChild(node, relative->m_position);
    default:
        return parent.insertChild(node, parent.Children());
    }
}

bool Nodes::move(Node &node, Node &parent)
{
    if (&node == &parent || parent.m_tree != &m_tree || node.isAbove(&parent))
        return false;
    m_tree.beginChange();
    node.m_parent->removeChild(node);
    parent.insertChild(node, parent.Children());
    return true;
}

void Nodes::Remove(Node &node)
{
    if (node.m_tree != &m_tree)
        return;
    m_tree.beginChange();
    node.m_parent->removeChild(node);
    std::vector<Node *> branch;
    for (Node *at = &node; at; at = at->nextInBranch(node))
        branch.push_back(at);
    for (Node *at : branch) {
        m_byKey.remove(at->m_key);
        forget(*at);
    }
    std::erase_if(m_nodes, [](const auto &at) { return !at->isInTree(); });
    renumber();
}

/// A node that somebody still holds must lead nowhere.
void Nodes::forget(Node &node)
{
    node.m_tree = nullptr;
    node.m_parent = nullptr;
    node.m_children.clear();
    node.m_keptChildren.clear();
    node.m_index = 0;
}

void Nodes::renumber()
{
    int index = 0;
    for (const auto &node : m_nodes)
        node->m_index = ++index;
}

void Nodes::Clear()
{
    if (m_nodes.empty())
        return;
    m_tree.beginChange();
    m_byKey.clear();
    m_byKey.reserve(Count()); // a tree that is emptied is mostly filled again with about as many
    m_root.m_children.clear();
    for (const auto &node : m_nodes)
        forget(*node);
    m_nodes.clear();
}

} // namespace ebtq
