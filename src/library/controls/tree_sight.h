#pragma once

#include "library/controls/tree_nodes.h"

#include <functional>

namespace ebtq {

/// What can be seen of a tree: which nodes a filter keeps, which are open, and the rows that follow from it,
/// from the top of the tree to its end. Worked out anew, in one pass, when it is asked for after a change.
class TreeSight
{
public:
    explicit TreeSight(Nodes &nodes);

    void invalidate() { m_isValid = false; }
    [[nodiscard]] const std::vector<Node *> &rows();
    /// -1 for a node that is filtered out or stands below a closed one.
    [[nodiscard]] int rowOf(const Node &node);

    /// Keeps the nodes whose text contains this, without regard to case, with all that stands above them and
    /// below; a node of the first level keeps nothing below it. Everything kept is open. Empty for all nodes.
    void setFilter(const QString &text);
    [[nodiscard]] const QString &filter() const { return m_filter; }
    /// Kept whatever the filter says; nullptr for none.
    void pin(Node *node) { m_pinned = node ? node->weak_from_this() : std::weak_ptr<Node>(); }
    [[nodiscard]] bool isOpen(const Node &node) const;
    /// What the user opens and closes while a filter is set is forgotten with it.
    void setOpen(Node &node, bool open);

    /// Which nodes `countBelow` counts; nothing for none.
    void setCounted(std::function<bool(const Node &)> isCounted);
    /// -1 while nothing is counted. Only what the filter keeps counts.
    [[nodiscard]] int countBelow(const Node &node);
    [[nodiscard]] int count() { return countBelow(m_nodes.m_root); }

    /// The relatives that the filter keeps; nullptr for the parent above the first level.
    [[nodiscard]] const std::vector<Node *> &childrenOf(const Node *node);
    [[nodiscard]] int positionOf(const Node &node);
    [[nodiscard]] Node *siblingOf(const Node &node, int step);

private:
    void refresh();
    void refreshKept();
    void keepMatches();
    void keepBranches(const std::vector<Node *> &order);
    void count(const std::vector<Node *> &order);
    [[nodiscard]] const std::vector<Node *> &keptChildren(const Node &node) const;
    [[nodiscard]] Node *keptSibling(const Node &node, int step) const;
    [[nodiscard]] Node *nextRow(const Node &node) const;

    Nodes &m_nodes;
    QString m_filter;
    std::weak_ptr<Node> m_pinned;
    std::function<bool(const Node &)> m_isCounted;
    std::vector<Node *> m_rows;
    bool m_isValid = true;
};

} // namespace ebtq
