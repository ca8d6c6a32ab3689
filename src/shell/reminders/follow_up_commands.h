#pragma once

#include "contracts/host_contracts.h"
#include "host/followups/reminders.h"

#include <QObject>

namespace ebtq::shell {

class ListCommands;

/// What the program offers for the current row of a list of follow-ups: the record that it was written on,
/// and in the list of reminders what came of it, another day, and those that were missed.
class FollowUpCommands : public QObject
{
    Q_OBJECT

public:
    /// Adds its commands; all outlives it. `module` is the list's, `page` what dialogs belong to.
    FollowUpCommands(HostApp &app, host::ModuleId id, QObject &module, ListCommands &commands, QWidget &page);

Q_SIGNALS:
    void sourceWanted(const ebtq::host::FollowUpSource &source);
    /// The list is to be loaded again.
    void changed();

private:
    void addReminderCommands(ListCommands &commands);
    /// Throws Failure when no row is current.
    [[nodiscard]] host::Reminder current() const;
    template<class Dialog> void ask();

    HostApp &m_app;
    QObject &m_module;
    QWidget &m_page;
};

} // namespace ebtq::shell
