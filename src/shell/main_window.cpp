#include "shell/main_window.h"

#include "screens/look/look.h"
#include "shell/message_bar.h"
#include "shell/module_catalog.h"
#include "shell/module_page.h"
#include "shell/navigation.h"
#include "shell/notice_bar.h"
#include "shell/panels/popup.h"
#include "shell/reminders/reminder_watch.h"
#include "shell/status_line.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QShortcut>
#include <QStackedWidget>
#include <QSystemTrayIcon>
#include <QTabBar>
#include <QThread>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace ebtq::shell {

namespace {

constexpr int untilReturned = 20;        // milliseconds
constexpr int betweenDateLooks = 60'000; // the same
/// Narrower than this, the navigation would take room that a list needs.
constexpr int collapseBelow = 1180;

QWidget *barOfKind(const QString &kind)
{
    auto *bar = new QWidget;
    bar->setProperty("kind", kind);
    bar->setAttribute(Qt::WA_StyledBackground);
    return bar;
}

/// To the widget last used in the page; at first, to the view's own choice.
void giveFocus(QWidget &page)
{
    QWidget *lastUsed = page.focusWidget();
    (lastUsed ? lastUsed : &page)->setFocus(Qt::OtherFocusReason);
}

QString reminderNotice()
{
    return QStringLiteral("ReminderNotice");
}

QString sessionText(const SessionFacts &facts)
{
    const QString who = facts.department.isEmpty()
                            ? facts.userName
                            : facts.department + QStringLiteral(" · ") + facts.userName;
    return QStringLiteral("%1 · 业务日期 %2").arg(who, facts.date.toString(Qt::ISODate));
}

} // namespace

MainWindow::MainWindow(ComponentLibrary &library, HostApp &app, const SessionFacts &facts)
    : m_library(library)
    , m_app(app)
    , m_navigation(new Navigation(library.classNames()))
    , m_tabs(new QTabBar)
    , m_notices(new NoticeBar)
    , m_messages(new MessageBar)
    , m_pages(new QStackedWidget)
    , m_status(new StatusLine(facts.database, app.Db().ReadOnly()))
    , m_session(new QToolButton)
    , m_businessDate(facts.date)
{
    setObjectName(QStringLiteral("MainWindow"));
    setProperty("kind", QStringLiteral("page"));
    setAttribute(Qt::WA_StyledBackground);
    setWindowTitle(QStringLiteral("房源管理 - %1").arg(facts.userName));
    setUpLayout(facts);
    setUpShortcuts();
    connect(m_navigation, &Navigation::opened, this, [this](host::ModuleId module) {
        module == host::ReminderModule ? openReminders() : openModule(module);
    });
    connect(m_tabs, &QTabBar::currentChanged, this, &MainWindow::changePage);
    connect(m_tabs, &QTabBar::tabMoved, this, [this](int from, int to) {
        QWidget *moved = m_pages->widget(from);
        m_pages->removeWidget(moved);
        m_pages->insertWidget(to, moved);
        showCurrentPage();
    });
    auto *dates = new QTimer(this);
    connect(dates, &QTimer::timeout, this, [this] { noticeDate(QDate::currentDate()); });
    dates->start(betweenDateLooks);
}

MainWindow::~MainWindow() = default;

void MainWindow::setUpLayout(const SessionFacts &facts)
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(topBar(facts));
    column->addWidget(m_notices);
    column->addWidget(m_messages);
    column->addWidget(m_pages, 1);
    auto *sides = new QHBoxLayout;
    sides->setSpacing(0);
    sides->addWidget(m_navigation);
    sides->addLayout(column, 1);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->addLayout(sides, 1);
    whole->addWidget(m_status);
}

QWidget *MainWindow::topBar(const SessionFacts &facts)
{
    m_tabs->setObjectName(QStringLiteral("ModuleTabs"));
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    m_tabs->setMovable(true);
    auto *scheme = new QToolButton;
    scheme->setObjectName(QStringLiteral("SchemeToggle"));
    scheme->setIcon(look::icon(QStringLiteral("contrast")));
    scheme->setToolTip(QStringLiteral("浅色/深色 (Ctrl+Shift+D)"));
    scheme->setAccessibleName(QStringLiteral("切换浅色或深色"));
    connect(scheme, &QToolButton::clicked, this, &MainWindow::toggleScheme);

    m_session->setObjectName(QStringLiteral("Session"));
    m_session->setText(sessionText(facts));
    m_session->setPopupMode(QToolButton::InstantPopup);
    QWidget *bar = barOfKind(QStringLiteral("bar"));
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(8, 0, 8, 1); // keeps the bar's border visible below the tabs
    row->addWidget(m_navigation->makeFoldButton());
    row->addWidget(m_tabs, 0, Qt::AlignBottom);
    row->addStretch();
    row->addWidget(m_session);
    row->addWidget(scheme);
    return bar;
}

void MainWindow::setUpShortcuts()
{
    const std::pair<QKeySequence, std::function<void()>> shortcuts[] = {
        {Qt::Key_F5,
         [this] {
             if (ModulePage *current = currentPage())
                 current->refresh();
         }},
        {Qt::Key_F6, [this] { switchSide(); }},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_D, [this] { toggleScheme(); }},
        {Qt::CTRL | Qt::Key_W,
         [this] {
             if (ModulePage *current = currentPage())
                 closePage(*current);
         }},
        {Qt::CTRL | Qt::Key_Tab, [this] { stepTab(1); }},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, [this] { stepTab(-1); }},
    };
    for (const auto &[keys, act] : shortcuts)
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    for (int tab = 0; tab < 9; ++tab)
        connect(new QShortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + tab), this), &QShortcut::activated,
                this, [this, tab] { m_tabs->setCurrentIndex(std::min(tab, m_tabs->count() - 1)); });
}

void MainWindow::openModule(host::ModuleId module)
{
    if (m_shown && m_shown->module() == module)
        return showCurrentPage();
    if (!mayLeaveShown())
        return;
    if (const ModulePage *open = pageOf(module))
        return turnTo(*open);
    const host::ModuleEntry &entry = moduleEntry(module);
    auto *opened = new ModulePage(m_library, entry, m_app);
    bindPage(*opened);
    m_pages->addWidget(opened);
    addTab(*opened, entry.caption.toString());
    m_tabs->setCurrentIndex(m_tabs->count() - 1);
    if (!opened->open())
        return removePage(*opened);
    showCurrentPage();
}

void MainWindow::openFirstModule()
{
    const std::vector<host::ModuleId> modules = m_navigation->modules();
    if (modules.empty())
        return showFailure(QStringLiteral("组件库里没有可用的模块。"));
    openModule(modules.front());
}

void MainWindow::bindPage(ModulePage &page)
{
    connect(&page, &ModulePage::message, this, &MainWindow::showStatus);
    connect(&page, &ModulePage::errMessage, this, &MainWindow::tell);
    connect(&page, &ModulePage::closeRequested, this, [this, &page] { closePage(page); });
    connect(&page, &ModulePage::sourceWanted, this, &MainWindow::openSource);
}

void MainWindow::addTab(ModulePage &page, const QString &caption)
{
    const int position = m_tabs->addTab(caption);
    auto *close = new QToolButton;
    close->setProperty("kind", QStringLiteral("close"));
    close->setObjectName(QStringLiteral("CloseTab_%1").arg(static_cast<int>(page.module())));
    close->setText(QStringLiteral("×"));
    close->setToolTip(QStringLiteral("关闭%1 (Ctrl+W)").arg(caption));
    close->setAccessibleName(close->toolTip());
    close->setFocusPolicy(Qt::NoFocus);
    m_tabs->setTabButton(position, QTabBar::RightSide, close);
    connect(close, &QToolButton::clicked, &page, &ModulePage::closeRequested);
}

void MainWindow::closePage(ModulePage &page)
{
    const QPointer<ModulePage> asked(&page);
    const auto again = [this, asked] {
        if (asked)
            closePage(*asked);
    };
    if (!isWaitedFor(again) && page.mayLeave())
        removePage(page);
}

bool MainWindow::isWaitedFor(const std::function<void()> &again)
{
    while (QWidget *open = QApplication::activePopupWidget()) {
        const bool isWaited = qobject_cast<Popup *>(open);
        // Such a popup is destroyed after its event loop has ended; a call queued then runs after the
        // module's operation has returned.
        if (isWaited)
            connect(open, &QObject::destroyed, this, again, Qt::QueuedConnection);
        open->hide();
        if (isWaited)
            return true;
    }
    if (QApplication::activeModalWidget())
        return true;
    // A dialog may be hidden already while the operation that has shown it is still in its event loop.
    const bool isReturning = QThread::currentThread()->loopLevel() > 1;
    if (isReturning)
        QTimer::singleShot(untilReturned, this, again);
    return isReturning;
}

void MainWindow::removePage(ModulePage &page)
{
    const int position = positionOf(page);
    if (position < 0)
        return;
    page.shut();
    m_pages->removeWidget(&page);
    page.deleteLater(); // the call may come from inside one of its signals
    m_tabs->removeTab(position);
    showCurrentPage();
}

// Reminders and the date

void MainWindow::follow(ReminderWatch &watch)
{
    connect(&watch, &ReminderWatch::counted, this, &MainWindow::showReminders);
    connect(&watch, &ReminderWatch::failed, this, [this](const QString &text) {
        tell(text, Refusal, moduleEntry(host::ReminderModule).caption.toString());
    });
    watch.begin();
}

/// New ones are told of once, where that takes nothing from what the person is doing.
void MainWindow::showReminders(int due, int added)
{
    m_navigation->setCount(host::ReminderModule, due);
    if (due == 0)
        m_notices->remove(reminderNotice());
    const QString text = QStringLiteral("有%1条跟进提醒到期").arg(due);
    m_notices->setText(reminderNotice(), text);
    if (added == 0)
        return;
    const auto open = [this] { openReminders(); };
    m_notices->add(reminderNotice(), text, QStringLiteral("查看提醒"), open);
    if (isActiveWindow() || !QSystemTrayIcon::isSystemTrayAvailable())
        return;
    if (!m_tray) {
        m_tray = new QSystemTrayIcon(windowIcon(), this);
        connect(m_tray, &QSystemTrayIcon::messageClicked, this, [this, open] {
            activateWindow();
            open();
        });
        m_tray->show();
    }
    m_tray->showMessage(windowTitle(), text);
}

/// A list that is open already may be older than the notice.
void MainWindow::openReminders()
{
    m_notices->remove(reminderNotice());
    ModulePage *open = pageOf(host::ReminderModule);
    openModule(host::ReminderModule);
    if (open)
        open->refresh();
}

void MainWindow::openSource(const host::FollowUpSource &source)
{
    openModule(source.module);
    ModulePage *opened = currentPage();
    if (!opened || opened->module() != source.module || !opened->showRecord(source.key))
        tell(QStringLiteral("列表中没有这条记录，可能已被他人删除！"), Refusal,
             moduleEntry(source.module).caption.toString());
}

/// The business date stays what it was at sign-in: it is the date of documents, and today of the reminders.
void MainWindow::noticeDate(const QDate &today)
{
    if (today == m_businessDate || today == m_toldDate)
        return;
    m_toldDate = today;
    m_notices->add(QStringLiteral("DateNotice"),
                   QStringLiteral("今天是 %1，业务日期仍是 %2，单据和提醒按业务日期处理。")
                       .arg(today.toString(Qt::ISODate), m_businessDate.toString(Qt::ISODate)),
                   QStringLiteral("重新登录"), [this] { signInAnew(); });
}

void MainWindow::setSessionMenu(QMenu &menu)
{
    m_session->setMenu(&menu);
}

void MainWindow::signInAnew()
{
    m_isForSignIn = true;
    m_isForSignIn = close();
}

/// Of the page in front: what another one has to say is seen when it comes to the front.
void MainWindow::showStatus()
{
    const ModulePage *current = currentPage();
    if (!current)
        return m_status->setTexts({}, {}, {});
    const bool isUnsaved = current->isEditing();
    m_status->setTexts(current->status(), current->count(), isUnsaved ? QStringLiteral("未保存") : QString());
}

/// A tab bar does not ask before it changes: what may not be left yet comes back until that is settled.
void MainWindow::changePage()
{
    ModulePage *wanted = currentPage();
    if (!m_shown || m_shown == wanted || !m_shown->isEditing())
        return showCurrentPage();
    {
        const QSignalBlocker unseen(m_tabs);
        m_tabs->setCurrentIndex(positionOf(*m_shown));
    }
    QMetaObject::invokeMethod(
        this, [this, later = QPointer(wanted)] { leaveFor(later); }, Qt::QueuedConnection);
}

void MainWindow::leaveFor(const QPointer<ModulePage> &wanted)
{
    if (wanted && !isWaitedFor([this, wanted] { leaveFor(wanted); }) && mayLeaveShown())
        turnTo(*wanted);
}

/// A notice of the desktop can lead elsewhere while a message box is open: it must not ask in front of it.
bool MainWindow::mayLeaveShown()
{
    return !m_shown || !m_shown->isEditing() || (!QApplication::activeModalWidget() && m_shown->mayLeave());
}

/// Without asking.
void MainWindow::turnTo(const ModulePage &wanted)
{
    {
        const QSignalBlocker unseen(m_tabs);
        m_tabs->setCurrentIndex(positionOf(wanted));
    }
    showCurrentPage();
}

void MainWindow::showCurrentPage()
{
    ModulePage *current = currentPage();
    m_shown = current;
    showStatus();
    if (!current)
        return m_navigation->clearCurrent();
    m_pages->setCurrentWidget(current);
    m_navigation->setCurrent(current->module());
    giveFocus(*current);
}

void MainWindow::stepTab(int step)
{
    if (m_tabs->count() > 0)
        m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + m_tabs->count()) % m_tabs->count());
}

void MainWindow::switchSide()
{
    ModulePage *current = currentPage();
    if (current && (m_navigation->isHidden() || m_navigation->isAncestorOf(QApplication::focusWidget())))
        giveFocus(*current);
    else
        m_navigation->focusEntry();
}

void MainWindow::toggleScheme()
{
    look::apply(*qApp, look::scheme() == look::Scheme::Light ? look::Scheme::Dark : look::Scheme::Light);
}

void MainWindow::showFailure(const QString &text)
{
    tell(text, FailureLevel, {});
}

/// Also in an open modal form, which covers the window's bar. The window keeps the message, since a save can
/// close the form just when its failure is reported.
void MainWindow::tell(const QString &text, int level, const QString &title)
{
    m_messages->add(text, level, title);
    if (MessageBar *bar = MessageBar::ofModalForm())
        bar->add(text, level, title);
}

ModulePage *MainWindow::page(int position) const
{
    return static_cast<ModulePage *>(m_pages->widget(position));
}

ModulePage *MainWindow::pageOf(host::ModuleId module) const
{
    for (int position = 0; position < m_pages->count(); ++position) {
        if (page(position)->module() == module)
            return page(position);
    }
    return nullptr;
}

ModulePage *MainWindow::currentPage() const
{
    return m_tabs->count() > 0 ? page(m_tabs->currentIndex()) : nullptr;
}

int MainWindow::positionOf(const ModulePage &page) const
{
    return m_pages->indexOf(const_cast<ModulePage *>(&page));
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_navigation->setCollapsed(width() < collapseBelow);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (isWaitedFor([this] { close(); }))
        return event->ignore();
    // Only the page in front can have something to ask.
    if (!mayLeaveShown())
        return event->ignore();
    while (m_pages->count() > 0)
        removePage(*page(0));
    event->accept();
}

} // namespace ebtq::shell
