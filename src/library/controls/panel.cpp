#include "library/controls/panel.h"

using namespace Qt::StringLiterals;

namespace ebtq {

qzPanel::qzPanel(const QString &name, int index)
    : Control(u"qzPanel"_s, name, index)
{}

} // namespace ebtq
