#include "library/controls/m_tree_view.h"

#include "library/controls/tree_view.h"

namespace ebtq::mTreeView {

void SetRedraw(TreeView &tree, bool on)
{
    tree.setRedraw(on);
}

void DeleteAllItems(TreeView &tree)
{
    tree.nodes().Clear();
}

void CutIconState(Node *node, bool on)
{
    if (node)
        node->setCut(on);
}

} // namespace ebtq::mTreeView
