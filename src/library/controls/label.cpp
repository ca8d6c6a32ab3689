#include "library/controls/label.h"

using namespace Qt::StringLiterals;

namespace ebtq {

Label::Label(const QString &name, int index)
    : Control(u"Label"_s, name, index)
{}

} // namespace ebtq
