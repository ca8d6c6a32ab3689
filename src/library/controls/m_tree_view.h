#pragma once

namespace ebtq {

class Node;
class TreeView;

/// What goes straight to the tree, past its nodes.
namespace mTreeView {

void SetRedraw(TreeView &tree, bool on);
/// All at once: node by node would take much longer.
void DeleteAllItems(TreeView &tree);
/// The look of a node that was cut; nothing for no node.
void CutIconState(Node *node, bool on);

} // namespace mTreeView

} // namespace ebtq
