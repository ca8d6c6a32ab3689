#include "library/controls/check_box.h"

namespace ebtq {

CheckBox::CheckBox(const QString &name, int index)
    : Control(QStringLiteral("CheckBox"), name, index)
{}

void CheckBox::setValue(int value)
{
    if (m_value == value)
        return;
    m_value = value;
    Q_EMIT Click();
}

} // namespace ebtq
