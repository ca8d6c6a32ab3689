#include "library/controls/mouse_wheel.h"

#include <algorithm>

namespace ebtq {

void MouseWheel::turn(int steps)
{
    if (!m_grid)
        return;
    // The upper end lies below the lower one while a grid is empty; the lower one counts then.
    const qint64 turned = static_cast<qint64>(m_value) + steps;
    m_value = static_cast<int>(std::max<qint64>(m_min, std::min<qint64>(m_max, turned)));
    Q_EMIT Wheel(m_value);
    Q_EMIT Turned(steps);
}

} // namespace ebtq
