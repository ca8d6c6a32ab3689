#include "library/controls/tree_node.h"

#include "library/controls/tree_view.h"

#include <algorithm>

namespace ebtq {

Node::Node(TreeView *tree, QString key, QString text)
    : m_tree(tree)
    , m_key(std::move(key))
    , m_text(std::move(text))
{}

void Node::reportLook()
{
    if (m_tree)
        m_tree->reportLook(*this);
}

void Node::setImage(QVariant Images::*state, const QVariant &image)
{
    if (!m_images && !image.isValid())
        return;
    if (!m_images)
        m_images = std::make_unique<Images>();
    change((*m_images).*state, image);
}

void Node::setExpanded(bool expanded)
{
    if (m_isExpanded == expanded)
        return;
    m_isExpanded = expanded;
    if (m_tree)
        m_tree->reportOpening();
}

void Node::EnsureVisible()
{
    if (m_tree)
        m_tree->ensureVisible(*this);
}

Node *Node::Parent() const
{
    return m_parent && m_parent->m_parent ? m_parent : nullptr;
}

Node *Node::Root()
{
    Node *root = this;
    while (Node *parent = root->Parent())
        root = parent;
    return root;
}

Node *Node::FirstSibling() const
{
    return siblingAt(0);
}

Node *Node::LastSibling() const
{
    return m_parent ? m_parent->LastChild() : nullptr;
}

Node *Node::NextSibling() const
{
    return siblingAt(m_position + 1);
}

Node *Node::PreviousSibling() const
{
    return siblingAt(m_position - 1);
}

Node *Node::siblingAt(int position) const
{
    if (!m_parent || position < 0 || position >= m_parent->Children())
        return nullptr;
    return m_parent->m_children[static_cast<size_t>(position)];
}

QString Node::FullPath() const
{
    QStringList texts;
    for (const Node *node = this; node; node = node->Parent())
        texts.prepend(node->Text());
    return texts.join(u'\\');
}

bool Node::setParent(Node *parent)
{
    return m_tree && parent && m_tree->nodes().move(*this, *parent);
}

bool Node::isAbove(const Node *node) const
{
    const Node *at = node ? node->m_parent : nullptr;
    while (at && at != this)
        at = at->m_parent;
    return at != nullptr;
}

Node *Node::nextInBranch(const Node &top) const
{
    if (Node *child = FirstChild())
        return child;
    for (const Node *node = this; node != &top; node = node->m_parent) {
        if (Node *next = node->NextSibling())
            return next;
    }
    return nullptr;
}

void Node::insertChild(Node &child, int position)
{
    m_children.insert(m_children.begin() + position, &child);
    child.m_parent = this;
    for (int at = position; at < Children(); ++at)
        m_children[static_cast<size_t>(at)]->m_position = at;
}

void Node::removeChild(const Node &child)
{
    const auto place = m_children.erase(m_children.begin() + child.m_position);
    for (auto sibling = place; sibling != m_children.end(); ++sibling)
        --(*sibling)->m_position;
}

} // namespace ebtq
