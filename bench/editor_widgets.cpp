#include "editor_widgets.h"

#include "measure.h"

#ifdef EBTQ_WIDGETS

#include "screens/controls/tree_view_widget.h"
#include "screens/customers/frm_kh_view.h"
#include "screens/listings/frm_fx_view.h"
#include "screens/look/look.h"

#include <QApplication>

namespace ebtq::bench {

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // nobody sits in front of it
    auto application = std::make_unique<QApplication>(argc, argv);
    look::apply(*application, look::Scheme::Light);
    return application;
}

namespace {

template<class View, class Form> void buildWidgets(Form &form)
{
    View view(form, nullptr);
    view.show();
    QCoreApplication::processEvents();
}

} // namespace

void buildEditorWidgets(FrmFx &form)
{
    buildWidgets<FrmFxView>(form);
}

void buildEditorWidgets(frmKh &form)
{
    buildWidgets<FrmKhView>(form);
}

ShownTree::ShownTree(TreeView &tree)
    : m_tree(tree)
    , m_widget(std::make_unique<TreeViewWidget>(tree, nullptr))
{
    m_widget->resize(300, 600);
    m_widget->show();
}

void ShownTree::settle()
{
    m_widget->settle();
    QCoreApplication::processEvents();
}

} // namespace ebtq::bench

#else

#include "library/controls/tree_view.h"

namespace ebtq {
class TreeViewWidget
{};
} // namespace ebtq

namespace ebtq::bench {

ShownTree::ShownTree(TreeView &tree)
    : m_tree(tree)
{}

void ShownTree::settle()
{
    keep(m_tree.sight().rows().size());
}

std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    return std::make_unique<QCoreApplication>(argc, argv);
}

void buildEditorWidgets(FrmFx &) {}
void buildEditorWidgets(frmKh &) {}

} // namespace ebtq::bench

#endif

namespace ebtq::bench {

ShownTree::~ShownTree() = default;

} // namespace ebtq::bench
