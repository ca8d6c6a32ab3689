#include "library/controls/check_box.h"

namespace ebtq {

CheckBox::CheckBox(const QString &name, int index)
    : TwoState(QStringLiteral("CheckBox"), name, index)
{}

} // namespace ebtq
