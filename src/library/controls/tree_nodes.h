#pragma once

#include "library/controls/tree_node.h"

#include <QHash>

namespace ebtq {

/// The nodes of a tree, numbered from 1 in the order of insertion. Nothing here throws: what cannot be done
/// gives nullptr or false and changes nothing.
class Nodes
{
public:
    /// `tree` owns this collection.
    explicit Nodes(TreeView &tree);
    ~Nodes();
    Q_DISABLE_COPY_MOVE(Nodes)

    [[nodiscard]] int Count() const { return static_cast<int>(m_nodes.size()); }
    /// nullptr for a number or a key that is not there; keys are compared exactly.
    [[nodiscard]] Node *Item(int index) const;
    [[nodiscard]] Node *Item(const QString &key) const;
    /// By a node, a key (a text) or a number.
    [[nodiscard]] Node *Item(const QVariant &nodeKeyOrIndex) const;
    /// Adds a node: without a relative as the last one of the first level. nullptr for a key that is taken
    /// and a relative that is missing. Any number of nodes may have the empty key.
    Node *Add(const QVariant &relative, Node::Relationship relationship, const QString &key,
              const QString &text);
    /// Removes the node with its branch.
    void Remove(Node &node);
    void Clear();

private:
    friend class Node;
    friend class TreeSight;
    bool move(Node &node, Node &parent);
    void place(Node &node, Node *relative, Node::Relationship relationship);
    void forget(Node &node);
    void renumber();

    TreeView &m_tree;
    Node m_root; ///< invisible, above the first level
    std::vector<std::shared_ptr<Node>> m_nodes;
    QHash<QString, Node *> m_byKey;
};

} // namespace ebtq
