#pragma once

#include "component/component_library.h"
#include "contracts/host_contracts.h"

#include <QObject>
#include <QSet>
#include <QTimer>

#include <functional>
#include <memory>

namespace ebtq::shell {

/// Looks for reminders that are due, apart from any page: a list of reminders that nobody sees is refreshed
/// when it is told to and every five minutes. One statement each time.
class ReminderWatch : public QObject
{
    Q_OBJECT

public:
    /// `library` and `app` outlive it. While `isBusy` a look waits: the end of a module's operation rolls
    /// back what another one has not committed yet. Without a list of reminders in the library it stays
    /// silent.
    ReminderWatch(ComponentLibrary &library, HostApp &app, std::function<bool()> isBusy);
    ~ReminderWatch() override;

    /// Looks now and from now on.
    void begin();
    /// Looks as soon as the program is back in its event loop and not busy.
    void look();

Q_SIGNALS:
    /// After each look: how many are due, and how many of them were not at the look before.
    void counted(int due, int added);
    /// Looking failed; once until it works again.
    void failed(const QString &text);

private:
    void refresh();
    void told(const QString &text);

    HostApp &m_app;
    std::function<bool()> m_isBusy;
    std::unique_ptr<QObject> m_module;
    IReportUI *m_report = nullptr; ///< the module by its contract
    QTimer m_poll;
    QTimer m_soon;
    QSet<QString> m_due; ///< keys
    bool m_isReady = false; ///< the module is initialised
    bool m_isFailing = false;
};

} // namespace ebtq::shell
