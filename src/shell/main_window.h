#pragma once

#include "component/component_library.h"
#include "contracts/host_contracts.h"
#include "host/followups/reminders.h"

#include <QDate>
#include <QPointer>
#include <QWidget>

#include <functional>

class QMenu;
class QStackedWidget;
class QSystemTrayIcon;
class QTabBar;
class QToolButton;

namespace ebtq::shell {

class MessageBar;
class ModulePage;
class Navigation;
class NoticeBar;
class ReminderWatch;
class StatusLine;

/// What the window shows about the session.
struct SessionFacts
{
    QString userName;
    QString department; ///< empty when in none
    QDate date;
    QString database; ///< where it lies, without a password
};

/// The main window: navigation, one tab a module, message bar and status line.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    /// `library` and `app` outlive the window.
    MainWindow(ComponentLibrary &library, HostApp &app, const SessionFacts &facts);
    ~MainWindow() override;

    /// Brings a module to the front and makes it when it is not open yet.
    void openModule(host::ModuleId module);
    /// Opens the first module of the navigation; shows a failure when the component library has none.
    void openFirstModule();
    /// Shows what it counts, from its beginning on. `watch` ends before the window.
    void follow(ReminderWatch &watch);
    /// Says once a day that the business date is not today's, and offers to sign in anew.
    void noticeDate(const QDate &today);
    /// Opens at the name of who is signed in.
    void setSessionMenu(QMenu &menu);
    /// Closes the window for another session, unless a module may not be left.
    void signInAnew();
    /// The window was closed for another session.
    [[nodiscard]] bool isForSignIn() const { return m_isForSignIn; }
    /// A failure that no module reported.
    void showFailure(const QString &text);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void setUpLayout(const SessionFacts &facts);
    [[nodiscard]] QWidget *topBar(const SessionFacts &facts);
    void setUpShortcuts();
    void bindPage(ModulePage &page);
    void addTab(ModulePage &page, const QString &caption);
    void closePage(ModulePage &page);
    void removePage(ModulePage &page);
    /// Whether a module waits for an answer in the middle of an operation and cannot be ended now. A list or
    /// calendar that it shows is closed, and `again` is called when the operation has returned; a form or
    /// message box stays open, and the request is dropped.
    [[nodiscard]] bool isWaitedFor(const std::function<void()> &again);
    void showReminders(int due, int added);
    void openReminders();
    void openSource(const host::FollowUpSource &source);
    void changePage();
    void leaveFor(const QPointer<ModulePage> &wanted);
    [[nodiscard]] bool mayLeaveShown();
    void turnTo(const ModulePage &wanted);
    void showCurrentPage();
    void showStatus();
    void stepTab(int step);
    void switchSide();
    void toggleScheme();
    void tell(const QString &text, int level, const QString &title);
    [[nodiscard]] ModulePage *page(int position) const;
    /// nullptr when the module is not open.
    [[nodiscard]] ModulePage *pageOf(host::ModuleId module) const;
    [[nodiscard]] ModulePage *currentPage() const;
    [[nodiscard]] int positionOf(const ModulePage &page) const;

    ComponentLibrary &m_library;
    HostApp &m_app;
    Navigation *m_navigation;
    QTabBar *m_tabs;
    NoticeBar *m_notices;
    MessageBar *m_messages;
    QStackedWidget *m_pages; ///< a page has the position of its tab
    QPointer<ModulePage> m_shown;
    StatusLine *m_status;
    QToolButton *m_session;
    QSystemTrayIcon *m_tray = nullptr; ///< where there is a tray, from the first notice on
    QDate m_businessDate;
    QDate m_toldDate; ///< of the last notice of another date
    bool m_isForSignIn = false;
};

} // namespace ebtq::shell
