#include "shell/module_page.h"

#include "shell/forms/form_driver.h"
#include "shell/lists/list_driver.h"
#include "shell/module_events.h"

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

bool ModulePage::open()
{
    try {
        make();
        // A module that cannot be initialised raises its own error; that it is not opened is reported in any
        // case.
        if (!m_driver->initialise())
            throw Failure(QStringLiteral("模块初始化失败，未能打开。"));
    } catch (const std::exception &failure) {
        fail(QString::fromUtf8(failure.what()));
        return false;
    }
    m_driver->begin();
    return true;
}

void ModulePage::make()
{
    m_module = m_library.create(m_entry.className.toString());
    if (m_module)
        m_view.reset(m_library.createView(*m_module, this));
    if (m_view) {
        layout()->addWidget(m_view.get());
        setFocusProxy(m_view.get());
        bindEvents();
        m_driver = makeDriver();
    }
    if (!m_driver)
        throw Failure(QStringLiteral("组件库没有模块“%1”的界面。").arg(m_entry.className));
    bindDriver();
}

std::unique_ptr<ModuleDriver> ModulePage::makeDriver()
{
    auto &column = static_cast<QVBoxLayout &>(*layout());
    const DrivenModule driven{*m_module, *m_events, *m_view, column, m_entry, m_app};
    if (auto *report = qobject_cast<IReportUI *>(m_module.get()))
        return std::make_unique<ListDriver>(*report, driven);
    if (auto *form = qobject_cast<IFormUI *>(m_module.get()))
        return std::make_unique<FormDriver>(*form, driven);
    return nullptr;
}

void ModulePage::bindEvents()
{
    m_events = std::make_unique<ModuleEvents>(*m_module);
    connect(m_events.get(), &ModuleEvents::Message, this, &ModulePage::setStatus);
    connect(m_events.get(), &ModuleEvents::ErrMessage, this, &ModulePage::errMessage);
    connect(m_events.get(), &ModuleEvents::UnLoad, this, [this](const bool &close) {
        if (close)
            QMetaObject::invokeMethod(this, &ModulePage::closeRequested, Qt::QueuedConnection);
    });
}

void ModulePage::bindDriver()
{
    connect(m_driver.get(), &ModuleDriver::statusChanged, this,
            [this](bool isNew) { setStatus(isNew ? QString() : m_status); });
    connect(m_driver.get(), &ModuleDriver::failed, this, &ModulePage::fail);
    connect(m_driver.get(), &ModuleDriver::refused, this,
            [this](const QString &text) { Q_EMIT errMessage(text, Refusal, m_entry.caption.toString()); });
    connect(m_driver.get(), &ModuleDriver::closeWanted, this, &ModulePage::closeRequested,
            Qt::QueuedConnection);
    connect(m_driver.get(), &ModuleDriver::sourceWanted, this, &ModulePage::sourceWanted);
}

void ModulePage::fail(const QString &text)
{
    Q_EMIT errMessage(text, FailureLevel, m_entry.caption.toString());
}

QString ModulePage::status() const
{
    return m_status.isEmpty() && m_driver ? m_driver->status() : m_status;
}

QString ModulePage::count() const
{
    return m_driver ? m_driver->count() : QString();
}

void ModulePage::setStatus(const QString &text)
{
    m_status = text;
    Q_EMIT message();
}

bool ModulePage::showRecord(const QString &key)
{
    return m_driver && m_driver->showRecord(key);
}

void ModulePage::refresh()
{
    if (m_driver)
        m_driver->refresh();
}

bool ModulePage::isEditing() const
{
    return m_driver && m_driver->isEditing();
}

bool ModulePage::mayLeave()
{
    return !m_driver || m_driver->mayLeave();
}

void ModulePage::shut()
{
    if (m_driver)
        m_driver->end();
    m_driver.reset();
    m_events.reset();
    m_view.reset();
    m_module.reset();
}

} // namespace ebtq::shell
