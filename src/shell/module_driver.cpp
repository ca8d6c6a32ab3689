#include "shell/module_driver.h"

#include <exception>

namespace ebtq::shell {

bool ModuleDriver::guarded(const std::function<void()> &call)
{
    try {
        call();
        return true;
    } catch (const std::exception &failure) {
        Q_EMIT failed(QString::fromUtf8(failure.what()));
        return false;
    }
}

bool ModuleDriver::initialise()
{
    m_isReady = init();
    return m_isReady;
}

void ModuleDriver::end()
{
    if (m_isReady) // else the layout that the person left would be lost
        guarded([this] { saveLayout(); });
    guarded([this] { clear(); });
}

} // namespace ebtq::shell
