#include "library/controls/check_box.h"

using namespace Qt::StringLiterals;

namespace ebtq {

CheckBox::CheckBox(const QString &name, int index)
    : TwoState(u"CheckBox"_s, name, index)
{}

} // namespace ebtq
