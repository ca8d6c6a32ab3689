#include "shell/sign_in.h"

#include "contracts/host_contracts.h"
#include "database/private_arguments.h"
#include "database/schema/identity.h"
#include "shell/login_dialog.h"
#include "shell/session/password_dialog.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QStandardPaths>

namespace ebtq::shell {

namespace {

constexpr char passwordVariable[] = "EBTQ_PASSWORD";
const QString lastNameKey = QStringLiteral("login/name");

bool isUrl(const QString &location)
{
    return location.contains(QStringLiteral("://"));
}

SignInAnswer askForUser(db::Connection &connection, const QString &name)
{
    std::optional<host::User> user;
    const QString preset = name.isEmpty() ? userSettings().value(lastNameKey).toString() : name;
    LoginDialog dialog(preset, databasePlace(connection), [&](const QString &typed, const QString &password) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor); // a password is checked slowly, on purpose
        const auto waited = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
        user = host::signIn(connection, typed, password);
    });
    const int answer = dialog.exec();
    if (answer != QDialog::Accepted)
        return {std::nullopt, answer == LoginDialog::OtherDatabase};
    rememberUser(dialog.name());
    const QString reason = QStringLiteral("这是管理员设置的临时密码，请先换成自己的密码。");
    if (user->mustChangePassword && !changeOwnPassword(connection, *user, reason))
        return {};
    return {user};
}

} // namespace

QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

QSettings userSettings()
{
    return {dataFolder() + QStringLiteral("/ebtq.ini"), QSettings::IniFormat};
}

QString defaultDatabase()
{
    return dataFolder() + QStringLiteral("/ebtq.db");
}

bool isThere(const QString &location)
{
    return isUrl(location) || QFileInfo::exists(location);
}

void rememberUser(const QString &name)
{
    userSettings().setValue(lastNameKey, name);
}

std::unique_ptr<db::Connection> openDatabase(const QString &named)
{
    const QString location = named.isEmpty() ? defaultDatabase() : named;
    if (!isThere(location))
        throw Failure(QStringLiteral("还没有数据库：%1\n\n请不带 --db 启动以建立新机构，"
                                     "或先用 ebtq-admin init --db 文件 建立数据库。")
                          .arg(location));
    try {
        auto connection = db::Connection::open(location);
        db::requireCurrent(*connection);
        return connection;
    } catch (const db::DatabaseError &failure) {
        throw Failure(QStringLiteral("无法打开数据库：%1\n\n%2")
                          .arg(db::Connection::shownLocation(location), failure.message()));
    }
}

QString databasePlace(const db::Connection &connection)
{
    const QString location = connection.location();
    const QString kind = isUrl(location) ? QStringLiteral("服务器") : QStringLiteral("本地数据库");
    const QString closed = connection.isReadOnly() ? QStringLiteral("（只读，不能保存）") : QString();
    return QStringLiteral("%1%2 · %3").arg(kind, closed, location);
}

bool hasPassword()
{
    return qEnvironmentVariableIsSet(passwordVariable);
}

SignInAnswer signInUser(db::Connection &connection, const Options &options)
{
    if (const auto password = db::takeFromEnvironment(passwordVariable))
        return {host::signIn(connection, options.user, QString::fromLocal8Bit(*password))};
    if (!options.tour.isEmpty())
        throw Failure(QStringLiteral("自动演示需要用户名（--user）和环境变量 EBTQ_PASSWORD 中的密码。"));
    return askForUser(connection, options.user);
}

} // namespace ebtq::shell
