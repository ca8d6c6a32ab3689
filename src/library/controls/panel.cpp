#include "library/controls/panel.h"

namespace ebtq {

qzPanel::qzPanel(const QString &name, int index)
    : Control(QStringLiteral("qzPanel"), name, index)
{}

} // namespace ebtq
