#include "library/controls/label.h"

namespace ebtq {

Label::Label(const QString &name, int index)
    : Control(QStringLiteral("Label"), name, index)
{}

} // namespace ebtq
