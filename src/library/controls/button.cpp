#include "library/controls/button.h"

using namespace Qt::StringLiterals;

namespace ebtq {

Button::Button(const QString &name, int index)
    : Control(u"CommandButton"_s, name, index)
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
