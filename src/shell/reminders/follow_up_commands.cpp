#include "shell/reminders/follow_up_commands.h"

#include "shell/lists/list_commands.h"
#include "shell/lists/list_rows.h"
#include "shell/reminders/reminder_dialog.h"

#include <QAction>

namespace ebtq::shell {

FollowUpCommands::FollowUpCommands(HostApp &app, host::ModuleId id, QObject &module, ListCommands &commands,
                                   QWidget &page)
    : QObject(&page)
    , m_app(app)
    , m_module(module)
    , m_page(page)
{
    if (id == host::ReminderModule)
        addReminderCommands(commands);
    commands.add(QStringLiteral("source"), QStringLiteral("document-open"), QStringLiteral("打开来源(&O)"),
                 [this] { Q_EMIT sourceWanted(host::sourceOf(m_app, current())); });
    const QList<QAction *> own = commands.actions(); // the common ones come later
    for (QAction *command : own)
        command->setPriority(QAction::HighPriority); // nobody knows them by their icons
}

void FollowUpCommands::addReminderCommands(ListCommands &commands)
{
    commands.add(QStringLiteral("settle"), QStringLiteral("checkmark"), QStringLiteral("处理(&H)…"),
                 [this] { ask<SettleDialog>(); });
    commands.add(QStringLiteral("postpone"), QStringLiteral("view-calendar-day"), QStringLiteral("推迟(&P)…"),
                 [this] { ask<PostponeDialog>(); });
    QAction &overdue =
        commands.add(QStringLiteral("overdue"), QStringLiteral("clock"), QStringLiteral("含逾期(&E)"), [] {});
    overdue.setCheckable(true);
    connect(&overdue, &QAction::toggled, this, [this](bool includes) {
        m_module.setProperty("IncludesOverdue", includes);
        Q_EMIT changed();
    });
}

host::Reminder FollowUpCommands::current() const
{
    auto *report = qobject_cast<IReportUI *>(&m_module);
    const QString key = ListRows(report->IReportUI_oTable()).current(u"跟进ID");
    if (key.isEmpty())
        throw Failure(QStringLiteral("请先在列表中选择一条跟进！"));
    return host::readReminder(m_app, key);
}

/// Who cannot change it is told before typing.
template<class Dialog> void FollowUpCommands::ask()
{
    const host::Reminder reminder = current();
    host::requireOpenReminder(m_app, reminder);
    Dialog dialog(m_app, reminder, &m_page);
    if (dialog.exec() == QDialog::Accepted)
        Q_EMIT changed();
}

} // namespace ebtq::shell
