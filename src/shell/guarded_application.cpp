#include "shell/guarded_application.h"

#include <exception>

namespace ebtq::shell {

bool GuardedApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &failure) {
        const QString text = QString::fromUtf8(failure.what());
        if (m_report)
            m_report(QStringLiteral("程序内部错误：%1").arg(text));
        else
            qCritical("%s", qUtf8Printable(text));
    }
    return true;
}

} // namespace ebtq::shell
