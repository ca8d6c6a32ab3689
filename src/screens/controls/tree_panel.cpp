#include "screens/controls/tree_panel.h"

#include "library/controls/search_box.h"
#include "library/controls/tree_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/search_box_view.h"
#include "screens/controls/tree_view_widget.h"

#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

TreePanel::TreePanel(TreeView &tree, SearchBox &box, QWidget *parent)
    : QWidget(parent)
{
    auto *field = new SearchBoxView(box, this);
    field->setPlaceholderText(u"筛选"_s);
    field->setAccessibleName(field->placeholderText());
    auto *widget = new TreeViewWidget(tree, this);
    widget->setAccessibleName(u"目录"_s);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(field);
    column->addWidget(widget);
    setFocusProxy(widget);
    tree.filterBy(box);
    connect(widget, &TreeViewWidget::typed, field, [field](const QString &text) {
        field->setFocus(Qt::OtherFocusReason);
        field->setText(text);
    });
    const auto *down = new QShortcut(Qt::Key_Down, field, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, widget, [widget] { widget->setFocus(Qt::OtherFocusReason); });
}

} // namespace ebtq
