#include "library/controls/two_state.h"

namespace ebtq {

void TwoState::setValue(int value)
{
    if (m_value == value)
        return;
    m_value = value;
    Q_EMIT Click();
}

} // namespace ebtq
