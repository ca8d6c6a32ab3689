#include "library/controls/c_tree_view.h"

#include "library/controls/m_tree_view.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// 0 stands for the usual colour.
int colorOr(int color, int usual)
{
    return color == 0 ? usual : color;
}

void setLook(Node &node, const NewNode &added)
{
    node.setImage(added.image);
    node.setSelectedImage(added.selectedImage);
    node.setExpandedImage(added.expandedImage);
    node.setTag(added.tag);
    node.setBold(added.bold);
    node.setChecked(added.checked);
    node.setForeColor(colorOr(added.foreColor, Node::usualForeColor));
    node.setBackColor(colorOr(added.backColor, Node::usualBackColor));
}

/// The node and all below it.
auto branchOf(const Node *node)
{
    return [node](const Node &at) { return &at == node || (node && node->isAbove(&at)); };
}

} // namespace

cTreeView::cTreeView(AskText ask)
    : m_ask(std::move(ask))
{}

cTreeView::~cTreeView()
{
    UnHookCtrl();
}

void cTreeView::HookCtrl(TreeView *tree, const ImageList *images)
{
    UnHookCtrl();
    m_tree = tree;
    if (!tree)
        return;
    tree->setImages(images);
    tree->setDragIcon(images ? images->Picture(u"DRAGICON"_s) : QString());
    connect(tree, &TreeView::NodeClick, this, &cTreeView::clicked);
    connect(tree, &TreeView::MouseDown, this, &cTreeView::pressed);
    connect(tree, &TreeView::MouseMove, this, &cTreeView::moved);
    connect(tree, &TreeView::MouseUp, this, &cTreeView::released);
    connect(tree, &TreeView::DragOver, this, &cTreeView::draggedOver);
    connect(tree, &TreeView::DragDrop, this, &cTreeView::dropped);
    connect(tree, &TreeView::DragCancelled, this, &cTreeView::endDrag);
}

void cTreeView::UnHookCtrl()
{
    if (m_tree) {
        m_tree->Drag(TreeView::CancelDrag);
        m_tree->disconnect(this);
        m_tree->setImages(nullptr);
    }
    m_tree = nullptr;
    m_current.reset();
}

void cTreeView::setDragEnabled(bool enabled)
{
    m_isDragEnabled = enabled;
    if (!enabled && m_tree)
        m_tree->Drag(TreeView::CancelDrag);
}

// Nodes

Node *cTreeView::NodeAdd(const NewNode &added)
{
    Node *node =
        m_tree ? m_tree->nodes().Add(added.relative, added.relationship, added.key, added.text) : nullptr;
    if (!node)
        return nullptr;
    setLook(*node, added);
    if (added.ensureVisible)
        node->EnsureVisible();
    node->setExpanded(added.expanded);
    select(node);
    return node;
}

void cTreeView::ClearTreeView()
{
    if (!m_tree || m_tree->nodes().Count() == 0)
        return;
    m_tree->Drag(TreeView::CancelDrag);
    Redraw(false);
    mTreeView::DeleteAllItems(*m_tree);
    Redraw(true);
}

/// A handler of Selected may remove nodes, too.
bool cTreeView::NodeDelete(Node *node, bool)
{
    if (!owns(node))
        return false;
    const auto held = node->shared_from_this();
    Node *beside = node->NextSibling() ? node->NextSibling() : node->PreviousSibling();
    Node *next = beside ? beside : node->Parent();
    select(next);
    report(next);
    if (!owns(node))
        return true;
    if (Node *selected = m_tree->SelectedItem())
        selected->EnsureVisible();
    m_tree->nodes().Remove(*node);
    takeFocus();
    return true;
}

bool cTreeView::NodeRename(Node *node, const QString &text, bool isSelected)
{
    if (!owns(node))
        return false;
    node->setText(text);
    node->EnsureVisible();
    if (isSelected)
        select(node);
    return true;
}

void cTreeView::Redraw(bool on)
{
    if (m_tree)
        mTreeView::SetRedraw(*m_tree, on);
}

void cTreeView::CutIconState(bool on)
{
    if (m_tree)
        mTreeView::CutIconState(m_tree->SelectedItem(), on);
}

void cTreeView::CollapseAll()
{
    setExpanded([](const Node &) { return true; }, false);
}

void cTreeView::ExpandAll()
{
    setExpanded([](const Node &) { return true; }, true);
}

void cTreeView::CollapseChildNodes(Node *node)
{
    setExpanded(branchOf(node), false);
}

void cTreeView::ExpandChildNodes(Node *node)
{
    setExpanded(branchOf(node), true);
}

void cTreeView::setExpanded(const std::function<bool(const Node &)> &isMeant, bool expanded)
{
    const int count = m_tree ? m_tree->nodes().Count() : 0;
    for (int index = 1; index <= count; ++index) {
        Node &node = *m_tree->nodes().Item(index);
        if (node.Children() > 0 && isMeant(node))
            node.setExpanded(expanded);
    }
}

// Questions

QString cTreeView::ParentNodeText(const Node *node) const
{
    const Node *parent = node ? node->Parent() : nullptr;
    return parent ? parent->Text() : QString();
}

bool cTreeView::IsChildNode(const Node *node, Node *child, Node *&found) const
{
    if (!IsParentNode(node, child))
        return false;
    found = child;
    while (found->Parent() != node)
        found = found->Parent();
    return true;
}

bool cTreeView::IsParentNode(const Node *parent, const Node *node) const
{
    return parent && parent->isAbove(node);
}

bool cTreeView::IsRootNode(const Node *node) const
{
    return node && node->FullPath() == node->Text();
}

bool cTreeView::IsSelected() const
{
    return m_tree && m_tree->SelectedItem();
}

// Selection

void cTreeView::select(Node *node)
{
    if (m_tree->SelectedItem() != node)
        m_current.reset();
    m_tree->setSelectedItem(node);
}

void cTreeView::report(Node *node)
{
    m_current = node ? node->weak_from_this() : std::weak_ptr<Node>();
    Q_EMIT Selected(node);
}

void cTreeView::reportChange(Node *node)
{
    if (m_current.lock().get() != node)
        report(node);
}

void cTreeView::takeFocus()
{
    if (m_tree)
        m_tree->SetFocus();
}

bool cTreeView::ReSelectItem(Node *node)
{
    if (!m_tree)
        return false;
    if (owns(node))
        select(node);
    report(m_tree->SelectedItem());
    return true;
}

void cTreeView::clicked(Node *node)
{
    if (!m_isDragging)
        reportChange(node);
}

} // namespace ebtq
