#include "screens/frame/view_registry.h"

#include "library/frame/module.h"
#include "screens/frame/back_color.h"

#include <QWidget>

namespace ebtq {

QWidget *ViewRegistry::createView(QObject &module, QWidget *parent) const
{
    const Maker maker = m_makers.value(module.metaObject());
    QWidget *view = maker ? maker(module, parent) : nullptr;
    if (const auto *shown = qobject_cast<const Module *>(&module); view && shown)
        followBackColor(*shown, *view);
    return view;
}

} // namespace ebtq
