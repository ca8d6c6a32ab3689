#include "shell/module_page.h"

#include "shell/lists/list_commands.h"
#include "shell/module_events.h"
#include "shell/reminders/follow_up_commands.h"

#include <QAbstractItemView>
#include <QDir>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <exception>

namespace ebtq::shell {

ModulePage::ModulePage(ComponentLibrary &library, const host::ModuleEntry &entry, HostApp &app,
                       QWidget *parent)
    : QWidget(parent)
    , m_library(library)
    , m_entry(entry)
    , m_app(app)
{
    setObjectName(entry.className.toString());
    setProperty("kind", QStringLiteral("page"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
}

ModulePage::~ModulePage()
{
    shut();
}

template<class Call> bool ModulePage::guarded(Call call)
{
    try {
        call();
        return true;
    } catch (const std::exception &failure) {
        Q_EMIT errMessage(QString::fromUtf8(failure.what()), FailureLevel, m_entry.caption.toString());
        return false;
    }
}

bool ModulePage::open()
{
    if (!guarded([this] { make(); }))
        return false;
    if (!guarded([this] { initialise(); }))
        return false;
    restoreLayout();
    refresh();
    return true;
}

/// A module that cannot be initialised raises its own error; that it is not opened is reported in any case.
void ModulePage::initialise()
{
    if (!m_report->IReportUI_Init(m_app, m_entry.id))
        throw Failure(QStringLiteral("模块初始化失败，未能打开。"));
    m_isReady = true;
}

void ModulePage::make()
{
    m_module = m_library.create(m_entry.className.toString());
    auto *report = qobject_cast<IReportUI *>(m_module.get());
    if (report)
        m_view.reset(m_library.createView(*m_module, this));
    if (!m_view)
        throw Failure(QStringLiteral("组件库没有模块“%1”的界面。").arg(m_entry.className));
    m_report = report;
    bindEvents();
    showView();
    addCommands();
}

void ModulePage::bindEvents()
{
    m_events = std::make_unique<ModuleEvents>(*m_module);
    connect(m_events.get(), &ModuleEvents::Message, this, &ModulePage::setStatus);
    connect(m_events.get(), &ModuleEvents::ErrMessage, this, &ModulePage::errMessage);
    connect(m_events.get(), &ModuleEvents::RefreshGetGridStatus, this, [this] {
        setStatus({}); // that of the rows before
        restoreLayout();
    });
    connect(m_events.get(), &ModuleEvents::UnLoad, this, [this](const bool &close) {
        if (close)
            QMetaObject::invokeMethod(this, &ModulePage::closeRequested, Qt::QueuedConnection);
    });
}

void ModulePage::showView()
{
    layout()->addWidget(m_view.get());
    setFocusProxy(m_view.get());
    followRows();
}

void ModulePage::followRows()
{
    const QObject *grid = m_report->IReportUI_oTable();
    const auto *view =
        grid ? m_view->findChild<QAbstractItemView *>(grid->property("Name").toString()) : nullptr;
    if (!view)
        return;
    m_rows = view->model();
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_rows, change, this, &ModulePage::message);
    connect(m_rows, &QAbstractItemModel::modelReset, this, &ModulePage::message);
}

/// None is no number to tell: the load may have failed.
QString ModulePage::shownRows() const
{
    const int count = m_rows ? m_rows->rowCount() : 0;
    return count > 0 ? QStringLiteral("共 %1 条").arg(count) : QString();
}

void ModulePage::setStatus(const QString &text)
{
    m_status = text;
    Q_EMIT message();
}

/// "nomenu" says that the module has commands of its own.
void ModulePage::addCommands()
{
    constexpr int ownCommands = 99;
    if (m_report->IReportUI_Attributes(ownCommands) == QStringLiteral("nomenu"))
        return;
    m_commands = std::make_unique<ListCommands>(*m_report, *m_view, static_cast<QVBoxLayout &>(*layout()));
    connect(m_commands.get(), &ListCommands::refreshWanted, this, &ModulePage::refresh);
    connect(m_commands.get(), &ListCommands::closeWanted, this, &ModulePage::closeRequested,
            Qt::QueuedConnection);
    connect(m_commands.get(), &ListCommands::findLeft, this, [this] { setStatus({}); });
    connect(m_commands.get(), &ListCommands::failed, this,
            [this](const QString &text) { Q_EMIT errMessage(text, Refusal, m_entry.caption.toString()); });
    // A refresh restores what was hidden as its last act, after it has told of it.
    connect(m_events.get(), &ModuleEvents::RefreshGetGridStatus, m_commands.get(), &ListCommands::rowsLoaded,
            Qt::QueuedConnection);
    if (m_entry.id == host::FollowUpModule || m_entry.id == host::ReminderModule) {
        auto *own = new FollowUpCommands(m_app, m_entry.id, *m_module, *m_commands, *this);
        connect(own, &FollowUpCommands::sourceWanted, this, &ModulePage::sourceWanted, Qt::QueuedConnection);
        connect(own, &FollowUpCommands::changed, this, &ModulePage::refresh);
    }
    m_commands->addCommon();
}

bool ModulePage::showRecord(const QString &key)
{
    bool isShown = false;
    guarded([&] {
        QMetaObject::invokeMethod(m_module.get(), "ShowRecord", Q_RETURN_ARG(bool, isShown),
                                  Q_ARG(QString, key));
    });
    return isShown;
}

void ModulePage::refresh()
{
    if (!m_report)
        return;
    guarded([this] { m_report->IReportUI_Refresh(); });
}

void ModulePage::restoreLayout()
{
    // Restoring can make a module load again, which would ask for its layout again.
    if (m_restoring)
        return;
    const QScopedValueRollback restoring(m_restoring, true);
    guarded([this] { m_report->IReportUI_DoGetFormStatus(layoutFile()); });
}

QString ModulePage::layoutFile() const
{
    const QString folder = m_app.Session().AppPath() + QStringLiteral("/selfbb");
    // If this fails, the module reports it when it saves a layout, not at each load.
    QDir().mkpath(folder);
    const QStringView name = m_entry.className.mid(m_entry.className.lastIndexOf(u'.') + 1);
    return QStringLiteral("%1/%2.txt").arg(folder, name);
}

void ModulePage::shut()
{
    if (m_rows) // a list is emptied at its end, when the window may be gone
        m_rows->disconnect(this);
    m_rows = nullptr;
    if (m_report) {
        if (m_isReady) // else the layout that the person left would be lost
            guarded([this] { m_report->IReportUI_DoSaveFormStatus(layoutFile()); });
        guarded([this] { m_report->IReportUI_Clear(); });
    }
    m_report = nullptr;
    m_commands.reset();
    m_events.reset();
    m_view.reset();
    m_module.reset();
}

} // namespace ebtq::shell
