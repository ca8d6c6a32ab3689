#pragma once

#include "library/controls/tree_view.h"

#include <QPointer>

#include <functional>
#include <optional>

namespace ebtq {

/// What NodeAdd adds.
struct NewNode
{
    QVariant relative = {}; ///< a node, its key or its number; nothing for the first level
    Node::Relationship relationship = Node::Child;
    QString key = {};
    QString text = {};
    QVariant tag = {};
    QVariant image = {};
    QVariant selectedImage = {};
    QVariant expandedImage = {};
    bool bold = false;
    bool checked = false;
    bool ensureVisible = false;
    bool expanded = false;
    int foreColor = 0; ///< 0 for the usual colours
    int backColor = 0;
};

/// What a module needs of its tree: nodes with one call, search, walking, branches copied and moved, drag and
/// drop, and an event when another node is selected. It never moves a node on a drop: the module decides in
/// Dropped. Without a tree, and for a node that is nullptr or of another tree, operations do nothing and give
/// false or nullptr.
class cTreeView : public QObject
{
    Q_OBJECT

public:
    /// Asks the user for a text, by prompt, title and preset; nothing when there is no answer.
    using AskText = std::function<std::optional<QString>(const QString &prompt, const QString &title,
                                                         const QString &preset)>;
    /// When ContextMenu is raised: as the right button goes down or up.
    enum ContextMenuModes { AtPress, AtRelease };

    explicit cTreeView(AskText ask);
    ~cTreeView() override;

    /// The images, if any, outlive the tree or UnHookCtrl.
    void HookCtrl(TreeView *tree, const ImageList *images);
    void UnHookCtrl();
    [[nodiscard]] TreeView *ctrl() const { return m_tree; }
    [[nodiscard]] int ContextMenuMode() const { return m_contextMenuMode; }
    void setContextMenuMode(int mode) { m_contextMenuMode = mode; }
    [[nodiscard]] bool DragEnabled() const { return m_isDragEnabled; }
    void setDragEnabled(bool enabled);

    // Nodes

    /// The new node is selected, without an event, and made visible. nullptr for a key that is taken or a
    /// missing relative.
    Node *NodeAdd(const NewNode &added);
    void ClearTreeView();
    /// Selects what stands beside the node, or above it, raises Selected for it, and then removes the node.
    /// The flag is part of the contract and changes nothing.
    bool NodeDelete(Node *node, bool flag);
    bool NodeRename(Node *node, const QString &text, bool select);
    /// Raises CopyNode for the node and, with `recursive`, for all below it as they stood before. What a
    /// handler adds below its target is the target of the node's children. False when cancelled.
    bool NodeCopy(Node *source, Node *target, bool recursive);
    /// To be called in CopyNode; false when nothing is being copied.
    bool CancelCopy();
    /// Moves the branch below target. When source stands above it, the children of source are first given to
    /// its parent; nothing happens to a root then.
    bool NodeMove(Node *source, Node *target, bool select);
    void Redraw(bool on);
    void CutIconState(bool on);

    void CollapseAll();
    void ExpandAll();
    void CollapseChildNodes(Node *node);
    void ExpandChildNodes(Node *node);

    // Questions

    [[nodiscard]] QString ParentNodeText(const Node *node) const;
    /// Whether child stands below node; `found` is the child of node that it is or stands below.
    [[nodiscard]] bool IsChildNode(const Node *node, Node *child, Node *&found) const;
    [[nodiscard]] bool IsParentNode(const Node *parent, const Node *node) const;
    [[nodiscard]] bool IsRootNode(const Node *node) const;
    [[nodiscard]] bool IsSelected() const;

    // Search, in the order of insertion, any part of the text, without regard to case

    /// Asks for the text when it is empty. With `select` the selection begins at node 1 and goes to what was
    /// found.
    bool NodeFind(Node *&found, QString &text, const QString &startText, bool select);
    /// The same behind the node of that number, without a question; nothing for an empty text.
    bool NodeFindNext(Node *&found, const QString &text, int index, bool select);
    /// Whether the text is in the node's or, with `children`, in one's below it.
    [[nodiscard]] bool NodeMatch(const Node *node, const QString &text, bool children) const;
    /// The key of the first node of the branch, or with nullptr of the tree, whose tag equals, without regard
    /// to case.
    bool NodeFindTag(Node *node, const QString &tag, QString &key);

    // Moves

    enum ScrollMode { Top, PageUp, RowUp, RowDown, PageDown, Bottom };
    /// The selection stays; nothing for a number that is no mode.
    void ScrollView(int mode);
    [[nodiscard]] Node *NodeFirstViewable() const;
    [[nodiscard]] Node *NodeLastViewable() const;
    /// To the next sibling, else the first child; to the previous sibling, else the parent. False where there
    /// is none.
    bool MoveNodeNext();
    bool MoveNodePrevious();
    /// Selects the node and raises Selected; with nullptr raises it for the selected node.
    bool ReSelectItem(Node *node);

Q_SIGNALS:
    void StartDrag(ebtq::Node *node);
    void Dragging(ebtq::Node *over, ebtq::Node *dragged);
    void Dropped(ebtq::Node *target, ebtq::Node *source);
    void ContextMenu(float x, float y, ebtq::Node *node);
    void Selected(ebtq::Node *node);
    void CopyNode(ebtq::Node *source, ebtq::Node *target);

private:
    struct Copied;
    [[nodiscard]] bool owns(const Node *node) const
    {
        return m_tree && node && m_tree->nodes().Item(node->Index()) == node;
    }
    [[nodiscard]] Node *nodeAt(float x, float y) const;
    void select(Node *node);
    void report(Node *node);
    /// Raises Selected unless the node was the last one reported.
    void reportChange(Node *node);
    void takeFocus();
    void setExpanded(const std::function<bool(const Node &)> &isMeant, bool expanded);
    bool copy(const Copied &copied, Node *&copyOfIt);
    bool find(Node *&found, const QString &text, int behind, bool select);
    void show(Node *&found);
    bool moveTo(Node *node);
    void showRow(int row);
    void showEnd(Node &node, int row);
    [[nodiscard]] Node *nodeInRow(int row) const;

    // Events of the tree
    void clicked(Node *node);
    void pressed(Qt::MouseButton button, float x, float y);
    void moved(Qt::MouseButtons buttons, float x, float y);
    void released(Qt::MouseButton button, float x, float y);
    void draggedOver(float x, float y);
    void dropped(float x, float y);
    void endDrag();
    void raiseContextMenu(float x, float y);

    AskText m_ask;
    QPointer<TreeView> m_tree;
    int m_contextMenuMode = AtPress;
    bool m_isDragEnabled = false;
    bool m_isDragging = false;
    bool m_isMouseHeld = false;
    bool m_isCopying = false;
    bool m_isCancelled = false;
    std::weak_ptr<Node> m_dragNode;
    std::weak_ptr<Node>
        m_current; ///< last reported by Selected; nothing when the selection has changed since
};

} // namespace ebtq
