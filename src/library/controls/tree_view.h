#pragma once

#include "library/controls/control.h"
#include "library/controls/image_list.h"
#include "library/controls/tree_sight.h"

namespace ebtq {

class SearchBox;

/// A tree without a widget. Its view shows the rows of `sight()` from `TopRow` on and passes on what the user
/// does; a place is in pixels of the view. Whatever is done to the tree costs little until the view, or a
/// question about rows, asks for the outcome: 20,000 nodes may be added one by one, each selected and made
/// visible.
class TreeView : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString SelectedText READ SelectedText WRITE setSelectedText NOTIFY selectionChanged)

public:
    enum DragAction { CancelDrag, BeginDrag, EndDrag };

    explicit TreeView(const QString &name, int index = -1);

    [[nodiscard]] Nodes &nodes() { return m_nodes; }
    [[nodiscard]] TreeSight &sight() { return m_sight; }
    /// Not owned; nullptr for none.
    [[nodiscard]] const ImageList *Images() const { return m_images; }
    void setImages(const ImageList *images);
    /// Off while many changes are not to be shown.
    [[nodiscard]] bool Redraw() const { return m_isDrawn; }
    void setRedraw(bool on);

    [[nodiscard]] Node *SelectedItem() const { return m_selected.lock().get(); }
    /// Selects and makes visible, without an event of the user; nullptr for none.
    void setSelectedItem(Node *node);
    /// What a layout keeps: the first node whose text equals it, without regard to case, is selected.
    [[nodiscard]] QString SelectedText() const;
    void setSelectedText(const QString &text);
    [[nodiscard]] Node *DropHighlight() const { return m_dropHighlight.lock().get(); }
    void setDropHighlight(Node *node);

    // Filter and counts

    /// See TreeSight::setFilter.
    [[nodiscard]] const QString &Filter() const { return m_sight.filter(); }
    void setFilter(const QString &text);
    /// The box filters while the user types in it.
    void filterBy(const SearchBox &box);
    /// See TreeSight::setCounted; the view shows the counts behind the texts.
    void setCounted(std::function<bool(const Node &)> isCounted);

    // Place

    void ensureVisible(Node &node);
    /// Number of the first row in the view, from 0.
    [[nodiscard]] int TopRow();
    void setTopRow(int row);
    /// How many whole rows the view has room for.
    [[nodiscard]] int GetVisibleCount() const
    {
        return m_rowHeight > 0 ? static_cast<int>(m_height / m_rowHeight) : 0;
    }
    [[nodiscard]] float RowHeight() const { return m_rowHeight; }
    [[nodiscard]] float Height() const { return m_height; }
    /// The node whose row is there; nullptr beside the rows.
    [[nodiscard]] Node *HitTest(float x, float y);

    // Dragging

    /// The icon at the mouse while a node is dragged; empty for the plain pointer.
    [[nodiscard]] const QString &DragIcon() const { return m_dragIcon; }
    void setDragIcon(const QString &iconName) { m_dragIcon = iconName; }
    /// Without a drag, ending or cancelling one does nothing.
    void Drag(DragAction action, float x = 0, float y = 0);
    [[nodiscard]] bool isDragging() const { return m_isDragging; }

    // What the view passes on

    void setViewport(float width, float height, float rowHeight);
    /// The user has come to the node by mouse or key.
    void click(Node &node);
    /// The user has opened or closed the node. A selection that is closed away goes to the node.
    void open(Node &node, bool open);

    // What nodes tell

    void beginChange();
    void reportLook(Node &node) { Q_EMIT nodeChanged(&node); }
    void reportOpening();

Q_SIGNALS:
    void NodeClick(ebtq::Node *node);
    void MouseDown(Qt::MouseButton button, float x, float y);
    void MouseMove(Qt::MouseButtons buttons, float x, float y);
    void MouseUp(Qt::MouseButton button, float x, float y);
    void DragOver(float x, float y);
    void DragDrop(float x, float y);
    void DragCancelled();

    // For views
    void rowsAboutToChange();
    /// Nodes were opened or closed, or the top row changed.
    void sightChanged();
    void selectionChanged();
    void nodeChanged(ebtq::Node *node);
    void dropHighlightChanged(ebtq::Node *before);
    void redrawChanged();
    void dragChanged();

private:
    [[nodiscard]] int lastTopRow();
    void scrollToWanted();
    bool openAbove(Node &node);

    const ImageList *m_images = nullptr;
    Nodes m_nodes;
    TreeSight m_sight;
    std::weak_ptr<Node> m_selected;
    std::weak_ptr<Node> m_dropHighlight;
    std::weak_ptr<Node> m_top;
    std::weak_ptr<Node> m_wanted; ///< to be scrolled into sight
    QString m_dragIcon;
    int m_topRow = 0; ///< where m_top was last
    float m_width = 0;
    float m_height = 0;
    float m_rowHeight = 0;
    bool m_isDrawn = true;
    bool m_isDragging = false;
};

} // namespace ebtq
