#include "library/controls/button.h"

namespace ebtq {

Button::Button(const QString &name, int index)
    : Control(QStringLiteral("CommandButton"), name, index)
{}

void Button::press()
{
    if (Enabled() && Visible())
        Q_EMIT Click();
}

void Button::setPlace(int left, int top)
{
    m_left = left;
    m_top = top;
}

} // namespace ebtq
