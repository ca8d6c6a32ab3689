#include "shell/reminders/reminder_watch.h"

#include "host/module_ids.h"
#include "shell/lists/list_rows.h"
#include "shell/module_catalog.h"
#include "shell/module_events.h"

#include <chrono>
#include <exception>

namespace ebtq::shell {

namespace {

using namespace std::chrono_literals;

constexpr auto betweenLooks = 5min;
constexpr auto untilIdle = 2s;

} // namespace

ReminderWatch::ReminderWatch(ComponentLibrary &library, HostApp &app, std::function<bool()> isBusy)
    : m_app(app)
    , m_isBusy(std::move(isBusy))
    , m_module(library.create(moduleEntry(host::ReminderModule).className.toString()))
{
    m_report = qobject_cast<IReportUI *>(m_module.get());
    if (!m_report)
        return;
    auto *events = new ModuleEvents(*m_module);
    events->setParent(this);
    connect(events, &ModuleEvents::ErrMessage, this, &ReminderWatch::told);
    m_poll.setInterval(betweenLooks);
    m_soon.setSingleShot(true);
    connect(&m_poll, &QTimer::timeout, this, &ReminderWatch::look);
    connect(&m_soon, &QTimer::timeout, this, &ReminderWatch::refresh);
}

ReminderWatch::~ReminderWatch()
{
    if (m_report)
        m_report->IReportUI_Clear();
}

void ReminderWatch::begin()
{
    if (!m_report)
        return;
    m_poll.start();
    refresh();
}

void ReminderWatch::look()
{
    if (m_report)
        m_soon.start(0ms);
}

void ReminderWatch::refresh()
{
    if (m_isBusy()) {
        m_soon.start(untilIdle);
        return;
    }
    try {
        m_isReady = m_isReady || m_report->IReportUI_Init(m_app, host::ReminderModule);
        if (!m_isReady || !m_report->IReportUI_Refresh())
            return;
    } catch (const std::exception &failure) {
        return told(QString::fromUtf8(failure.what()));
    }
    m_isFailing = false;
    const QStringList keys = ListRows(m_report->IReportUI_oTable()).column(u"跟进ID");
    const QSet<QString> due(keys.begin(), keys.end());
    const auto added = static_cast<int>((due - m_due).size());
    m_due = due;
    Q_EMIT counted(static_cast<int>(due.size()), added);
}

void ReminderWatch::told(const QString &text)
{
    if (!std::exchange(m_isFailing, true))
        Q_EMIT failed(text);
}

} // namespace ebtq::shell
