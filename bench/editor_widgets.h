#pragma once

#include <QCoreApplication>

#include <memory>

namespace ebtq {
class FrmFx;
class frmKh;
class TreeView;
class TreeViewWidget;
} // namespace ebtq

namespace ebtq::bench {

/// One that can have widgets where this program is built with them.
[[nodiscard]] std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv);
/// Builds the editor's screen, shows it and takes it away again; nothing in a program without widgets.
void buildEditorWidgets(FrmFx &form);
void buildEditorWidgets(frmKh &form);

/// A tree that is shown; nothing in a program without widgets.
class ShownTree
{
public:
    explicit ShownTree(TreeView &tree);
    ~ShownTree();
    /// Returns when the screen shows what has become of the tree.
    void settle();

private:
    TreeView &m_tree;
    std::unique_ptr<TreeViewWidget> m_widget;
};

} // namespace ebtq::bench
