#include "shell/program.h"

#include "host/application.h"
#include "host/host_parameters.h"
#include "host/start/agency.h"
#include "screens/look/look.h"
#include "shell/component_loader.h"
#include "shell/first_paint.h"
#include "shell/guarded_application.h"
#include "shell/main_window.h"
#include "shell/panels/component_picker.h"
#include "shell/panels/widget_panel_presenter.h"
#include "shell/print/print_engine.h"
#include "shell/print/qt_print_desk.h"
#include "shell/reminders/reminder_watch.h"
#include "shell/session/password_dialog.h"
#include "shell/session/screen_lock.h"
#include "shell/session/session_menu.h"
#include "shell/sign_in.h"
#include "shell/start/choose_database.h"
#include "shell/start/recent_databases.h"
#include "shell/tour/tour.h"
#include "shell/tour/tour_database.h"

#include <QDate>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QScopeGuard>
#include <QScreen>
#include <QTemporaryDir>
#include <QTranslator>

#include <iostream>

namespace ebtq::shell {

namespace {

constexpr QSize preferredSize(1440, 840);
constexpr int signInAnew = -1; ///< instead of the program's result

void tellStartFailure(const QString &text, const Options &options)
{
    std::cerr << text.toStdString() << '\n';
    if (!options.tour.isEmpty())
        return;
    QMessageBox box(QMessageBox::Critical, QStringLiteral("房源管理"), text);
    box.setTextFormat(Qt::PlainText);
    box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.exec();
}

/// Qt's own dialogs, such as the one that chooses a printer, speak Chinese too.
void translateQt(QApplication &application)
{
    auto *translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(translator);
}

void showWindow(MainWindow &window)
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    window.resize(preferredSize.boundedTo(screen));
    window.show();
    window.openFirstModule();
    logFirstPaint();
}

/// Forms stand on the ground of the scheme in force.
void styleForm(QObject &form)
{
    auto *design = qobject_cast<IDesignUI *>(&form);
    if (!design)
        return;
    const QColor ground = look::tokens().window;
    DesignParameters parameters;
    parameters.Item(QStringLiteral("backcolor")).Value =
        ground.red() | ground.green() << 8 | ground.blue() << 16;
    design->IDesignUI_Parameters(&parameters);
}

constexpr int parameterGroup = 12;
const QString ownAgentParameter = QStringLiteral("ownagent");

int minutesUntilLock(host::Application &app)
{
    return qMax(0, app.UserParameter(parameterGroup, QStringLiteral("lockminutes")).Text.toInt());
}

/// The commands of the session; the menu belongs to the window.
SessionMenu *makeSessionMenu(MainWindow &window, db::Connection &connection, const host::User &user,
                             host::Application &app, ScreenLock &lock)
{
    const auto fillAgentIn = [&](bool on) {
        try {
            host::setParameter(connection, user.id, parameterGroup, ownAgentParameter,
                               QString::number(on ? 1 : 0));
        } catch (const std::exception &failure) {
            window.showFailure(QString::fromUtf8(failure.what()));
        }
    };
    const bool fillsAgentIn = app.UserParameter(parameterGroup, ownAgentParameter).Text == u"1";
    const auto changePassword = [&] { (void)changeOwnPassword(connection, user, {}, &window); };
    return new SessionMenu(window, {.changePassword = changePassword,
                                    .lock = [&lock] { lock.lock(); },
                                    .switchUser = [&window] { window.signInAnew(); },
                                    .about = [&window] { showAbout(window); },
                                    .fillAgentIn = fillAgentIn,
                                    .fillsAgentIn = fillsAgentIn});
}

int runSession(GuardedApplication &application, const Options &options, db::Connection &connection,
               const host::User &user, const Drive &drive)
{
    // A tour must look the same on every machine: it starts without saved layouts.
    const QTemporaryDir tourFolder;
    const QString appPath = options.tour.isEmpty() ? dataFolder() : tourFolder.path();
    const QDate today = QDate::currentDate();
    ComponentLibrary &library = loadComponentLibrary(
        options.library.isEmpty() ? componentLibraryPlaces() : QStringList(options.library));
    WidgetPanelPresenter presenter;
    host::Application app(connection, user, {.appPath = appPath, .loginDate = today}, presenter);
    QtPrintDesk printDesk;
    PrintEngine printEngine(printDesk);
    app.setPrintContext(&printEngine);
    app.setFormStyler(styleForm);
    app.setPickerFactory(componentPickers(library, app));
    const QString place = options.tour.isEmpty() ? databasePlace(connection) : QStringLiteral("演示副本");
    MainWindow window(library, app, {user.name, user.department, today, place});
    if (const QString agency = host::agencyName(connection); !agency.isEmpty())
        window.setWindowTitle(QStringLiteral("%1 - %2").arg(agency, window.windowTitle()));
    const auto report = [&window](const QString &text) { window.showFailure(text); };
    app.setFailureReport(report);
    application.setFailureReport(report);
    const auto endOfReports = qScopeGuard([&application] { application.setFailureReport({}); });
    ReminderWatch reminders(library, app, [&connection] { return connection.inTransaction(); });
    app.setChangeReport([&reminders](const QString &table) {
        if (table == u"fygj")
            reminders.look();
    });
    const auto endOfChanges = qScopeGuard([&app] { app.setChangeReport({}); });
    ScreenLock lock(user.name, place, std::chrono::minutes(minutesUntilLock(app)),
                    [&](const QString &name, const QString &password) {
                        (void)host::signIn(connection, name, password);
                    });
    window.setSessionMenu(*makeSessionMenu(window, connection, user, app, lock));
    showWindow(window);
    window.follow(reminders);
    if (!options.tour.isEmpty())
        return runTour(window, {options.tour, connection, app});
    const int result = drive ? drive(window) : QApplication::exec();
    return window.isForSignIn() ? signInAnew : result;
}

} // namespace

int runProgram(GuardedApplication &application, const Options &options, const Drive &drive)
{
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    translateQt(application);
    look::apply(application, options.dark ? look::Scheme::Dark : look::Scheme::Light);
    QApplication::setWindowIcon(look::icon(QStringLiteral("go-home"), &look::Tokens::brand));
    try {
        std::unique_ptr<db::Connection> connection = chooseDatabase(options);
        if (!connection)
            return 0;
        const QTemporaryDir tourFolder;
        if (!options.tour.isEmpty())
            connection = openTourDatabase(*connection, tourFolder.path());
        int result = signInAnew;
        while (result == signInAnew) {
            const SignInAnswer answer = signInUser(*connection, options);
            if (answer.wantsOtherDatabase) {
                if (auto other = askForDatabase())
                    connection = std::move(other);
                continue;
            }
            if (answer.user && options.tour.isEmpty())
                rememberDatabase(connection->location());
            result = answer.user ? runSession(application, options, *connection, *answer.user, drive) : 0;
        }
        return result;
    } catch (const std::exception &failure) {
        tellStartFailure(QString::fromUtf8(failure.what()), options);
        return 1;
    }
}

} // namespace ebtq::shell
