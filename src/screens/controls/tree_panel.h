#pragma once

#include <QWidget>

namespace ebtq {

class SearchBox;
class TreeView;

/// A tree with the box above it that filters it: letters typed in the tree go to the box, Down goes back to
/// the tree.
class TreePanel : public QWidget
{
    Q_OBJECT

public:
    TreePanel(TreeView &tree, SearchBox &box, QWidget *parent);
};

} // namespace ebtq
