#pragma once

#include "library/frame/desktop.h"

namespace ebtq {

/// The wait cursor for one scope.
class WaitCursor
{
public:
    explicit WaitCursor(Desktop &desktop)
        : m_desktop(desktop)
    {
        m_desktop.setWaitCursor(true);
    }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
    ~WaitCursor() { m_desktop.setWaitCursor(false); }

private:
    Desktop &m_desktop;
};

} // namespace ebtq
