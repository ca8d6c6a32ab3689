#include "shell/lists/list_driver.h"

#include "shell/lists/list_commands.h"
#include "shell/module_events.h"
#include "shell/reminders/follow_up_commands.h"

#include <QAbstractItemView>
#include <QDir>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QVBoxLayout>

namespace ebtq::shell {

ListDriver::ListDriver(IReportUI &report, const DrivenModule &driven)
    : m_report(report)
    , m_driven(driven)
{
    connect(&driven.events, &ModuleEvents::RefreshGetGridStatus, this, [this] {
        Q_EMIT statusChanged(true); // what was said of the rows before is past
        restoreLayout();
    });
    followRows();
    addCommands();
}

ListDriver::~ListDriver() = default;

bool ListDriver::init()
{
    return m_report.IReportUI_Init(m_driven.app, m_driven.entry.id);
}

void ListDriver::begin()
{
    restoreLayout();
    showFirstTab();
    refresh();
}

/// Of what is below the list, whichever the module begins with: the record itself is looked for first.
void ListDriver::showFirstTab()
{
    if (auto *tabs = m_driven.view.findChild<QTabBar *>())
        tabs->setCurrentIndex(0);
}

void ListDriver::refresh()
{
    guarded([this] { m_report.IReportUI_Refresh(); });
}

bool ListDriver::showRecord(const QString &key)
{
    bool isShown = false;
    guarded([&] {
        QMetaObject::invokeMethod(&m_driven.module, "ShowRecord", Q_RETURN_ARG(bool, isShown),
                                  Q_ARG(QString, key));
    });
    return isShown;
}

void ListDriver::followRows()
{
    const QObject *grid = m_report.IReportUI_oTable();
    const auto *view =
        grid ? m_driven.view.findChild<QAbstractItemView *>(grid->property("Name").toString()) : nullptr;
    if (!view)
        return;
    m_rows = view->model();
    // A number of records that the module has told of is no longer true.
    const auto tell = [this] { Q_EMIT statusChanged(true); };
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_rows, change, this, tell);
    connect(m_rows, &QAbstractItemModel::modelReset, this, [this] { Q_EMIT statusChanged(false); });
}

/// None is no number to tell: the load may have failed.
QString ListDriver::count() const
{
    const QObject *grid = m_rows ? m_report.IReportUI_oTable() : nullptr;
    const int all = grid ? grid->property("Records").toInt() : 0;
    const int shown = grid ? grid->property("RecordsInSight").toInt() : 0;
    if (all == 0)
        return {};
    return all == shown ? QStringLiteral("共 %1 条").arg(all)
                        : QStringLiteral("%1 / %2 条").arg(shown).arg(all);
}

/// "nomenu" says that the module has commands of its own.
void ListDriver::addCommands()
{
    constexpr int ownCommands = 99;
    if (m_report.IReportUI_Attributes(ownCommands) == QStringLiteral("nomenu"))
        return;
    m_commands = std::make_unique<ListCommands>(m_report, m_driven.view, m_driven.column);
    connect(m_commands.get(), &ListCommands::refreshWanted, this, &ListDriver::refresh);
    connect(m_commands.get(), &ListCommands::closeWanted, this, &ListDriver::closeWanted);
    connect(m_commands.get(), &ListCommands::findLeft, this, [this] { Q_EMIT statusChanged(true); });
    connect(m_commands.get(), &ListCommands::failed, this, &ListDriver::refused);
    // A refresh restores what was hidden as its last act, after it has told of it.
    connect(&m_driven.events, &ModuleEvents::RefreshGetGridStatus, m_commands.get(),
            &ListCommands::rowsLoaded, Qt::QueuedConnection);
    addFollowUpCommands();
    m_commands->addCommon();
}

void ListDriver::addFollowUpCommands()
{
    const host::ModuleId id = m_driven.entry.id;
    if (id != host::FollowUpModule && id != host::ReminderModule)
        return;
    auto *own =
        new FollowUpCommands(m_driven.app, id, m_driven.module, *m_commands, *m_driven.view.parentWidget());
    connect(own, &FollowUpCommands::sourceWanted, this, &ListDriver::sourceWanted, Qt::QueuedConnection);
    connect(own, &FollowUpCommands::changed, this, &ListDriver::refresh);
}

void ListDriver::restoreLayout()
{
    // Restoring can make a module load again, which would ask for its layout again.
    if (m_restoring)
        return;
    const QScopedValueRollback restoring(m_restoring, true);
    guarded([this] { m_report.IReportUI_DoGetFormStatus(layoutFile()); });
}

QString ListDriver::layoutFile() const
{
    const QString folder = m_driven.app.Session().AppPath() + QStringLiteral("/selfbb");
    // If this fails, the module reports it when it saves a layout, not at each load.
    QDir().mkpath(folder);
    const QStringView className = m_driven.entry.className;
    return QStringLiteral("%1/%2.txt").arg(folder, className.mid(className.lastIndexOf(u'.') + 1));
}

void ListDriver::saveLayout()
{
    m_report.IReportUI_DoSaveFormStatus(layoutFile());
}

void ListDriver::clear()
{
    if (m_rows) // emptied now, when the window may be gone
        m_rows->disconnect(this);
    m_rows = nullptr;
    m_report.IReportUI_Clear();
}

} // namespace ebtq::shell
