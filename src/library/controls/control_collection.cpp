#include "library/controls/control_collection.h"

namespace ebtq {

Control *ControlCollection::find(const QString &name, int index) const
{
    for (const auto &control : m_controls) {
        if (control->Index() == index && control->Name().compare(name, Qt::CaseInsensitive) == 0)
            return control.get();
    }
    return nullptr;
}

} // namespace ebtq
