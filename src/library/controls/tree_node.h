#pragma once

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

namespace ebtq {

class TreeView;

/// One entry of a tree. Its tree owns it; a shared pointer that somebody holds beside it keeps a removed node
/// readable, outside of any tree and without relatives.
class Node : public std::enable_shared_from_this<Node>
{
public:
    /// Where a new node goes, seen from its relative.
    enum Relationship { First, Last, Next, Previous, Child };
    /// System colours: those of the theme.
    static constexpr int usualForeColor = static_cast<int>(0x80000008U);
    static constexpr int usualBackColor = static_cast<int>(0x80000005U);

    /// Nodes::Add makes nodes.
    Node(TreeView *tree, QString key, QString text);
    Q_DISABLE_COPY_MOVE(Node)

    [[nodiscard]] const QString &Key() const { return m_key; }
    [[nodiscard]] const QString &Text() const { return m_text; }
    void setText(const QString &text) { change(m_text, text); }
    [[nodiscard]] const QVariant &Tag() const { return m_tag; }
    void setTag(const QVariant &tag) { m_tag = tag; }
    /// Key or number in the tree's image list; nothing for no image.
    [[nodiscard]] QVariant Image() const { return images().usual; }
    void setImage(const QVariant &image) { setImage(&Images::usual, image); }
    [[nodiscard]] QVariant SelectedImage() const { return images().selected; }
    void setSelectedImage(const QVariant &image) { setImage(&Images::selected, image); }
    [[nodiscard]] QVariant ExpandedImage() const { return images().expanded; }
    void setExpandedImage(const QVariant &image) { setImage(&Images::expanded, image); }
    [[nodiscard]] bool Bold() const { return m_isBold; }
    void setBold(bool bold) { change(m_isBold, bold); }
    [[nodiscard]] bool Checked() const { return m_isChecked; }
    void setChecked(bool checked) { change(m_isChecked, checked); }
    /// Shown pale, as what was cut and waits for its new place.
    [[nodiscard]] bool isCut() const { return m_isCut; }
    void setCut(bool cut) { change(m_isCut, cut); }
    [[nodiscard]] int ForeColor() const { return m_foreColor; }
    void setForeColor(int color) { change(m_foreColor, color); }
    [[nodiscard]] int BackColor() const { return m_backColor; }
    void setBackColor(int color) { change(m_backColor, color); }
    [[nodiscard]] bool Expanded() const { return m_isExpanded; }
    void setExpanded(bool expanded);
    /// Opens what stands above and scrolls the node into sight.
    void EnsureVisible();

    /// Place in the order of insertion, from 1; 0 for a removed node.
    [[nodiscard]] int Index() const { return m_index; }
    [[nodiscard]] bool isInTree() const { return m_index > 0; }
    /// How many nodes stand directly below.
    [[nodiscard]] int Children() const { return static_cast<int>(m_children.size()); }
    /// Relatives: nullptr where there is none. `Root` is the node itself on the first level.
    [[nodiscard]] Node *Parent() const;
    [[nodiscard]] Node *Root();
    [[nodiscard]] Node *FirstChild() const { return m_children.empty() ? nullptr : m_children.front(); }
    [[nodiscard]] Node *LastChild() const { return m_children.empty() ? nullptr : m_children.back(); }
    [[nodiscard]] Node *FirstSibling() const;
    [[nodiscard]] Node *LastSibling() const;
    [[nodiscard]] Node *NextSibling() const;
    [[nodiscard]] Node *PreviousSibling() const;
    /// Texts from the root down, separated by "\".
    [[nodiscard]] QString FullPath() const;
    /// Moves the node with its branch below `parent`, as its last child; false, and nothing moves, when that
    /// is nothing, in another tree, the node itself or below it.
    bool setParent(Node *parent);
    /// Whether this node stands somewhere above `node`.
    [[nodiscard]] bool isAbove(const Node *node) const;
    /// The next node of the branch of `top`, parents before their children; nullptr after the last.
    [[nodiscard]] Node *nextInBranch(const Node &top) const;

private:
    friend class Nodes;
    friend class TreeSight;
    template<class T> void change(T &member, const T &value)
    {
        if (member == value)
            return;
        member = value;
        reportLook();
    }
    void reportLook();
    struct Images
    {
        QVariant usual;
        QVariant selected;
        QVariant expanded;
    };
    [[nodiscard]] Images images() const { return m_images ? *m_images : Images(); }
    void setImage(QVariant Images::*state, const QVariant &image);
    [[nodiscard]] Node *siblingAt(int position) const;
    void insertChild(Node &child, int position);
    void removeChild(const Node &child);

    TreeView *m_tree; ///< nullptr for a removed node
    QString m_key;
    QString m_text;
    QVariant m_tag;
    std::unique_ptr<Images> m_images; ///< few nodes have any
    Node *m_parent = nullptr;         ///< on the first level the tree's invisible root
    std::vector<Node *> m_children;
    int m_position = 0; ///< among the children of m_parent
    int m_index = 0;
    int m_foreColor = usualForeColor;
    int m_backColor = usualBackColor;
    bool m_isBold = false;
    bool m_isChecked = false;
    bool m_isCut = false;
    bool m_isExpanded = false;

    // What TreeSight works out
    std::vector<Node *> m_keptChildren; ///< while a filter is set
    int m_keptPosition = 0;
    int m_row = -1;
    int m_count = 0;
    bool m_isKept = false;
    bool m_isClosed = false; ///< by the user, while a filter opens everything
};

} // namespace ebtq

Q_DECLARE_METATYPE(ebtq::Node *)
