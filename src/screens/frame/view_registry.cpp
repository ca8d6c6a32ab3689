#include "screens/frame/view_registry.h"

namespace ebtq {

QWidget *ViewRegistry::createView(QObject &module, QWidget *parent) const
{
    const Maker maker = m_makers.value(module.metaObject());
    return maker ? maker(module, parent) : nullptr;
}

} // namespace ebtq
