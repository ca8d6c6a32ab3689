#pragma once

#include "contracts/host_contracts.h"
#include "host/users.h"

#include <QDate>
#include <QPointer>

namespace ebtq::host {

/// What the program around the host decides.
struct Settings
{
    QString appPath; ///< working folder below the user's data directory; made when missing
    QDate loginDate; ///< business date of the session
};

class UserSession : public HostSession
{
public:
    /// Makes the working folder. Throws Failure when it cannot be made.
    UserSession(User user, Settings settings);

    [[nodiscard]] const User &user() const { return m_user; }
    [[nodiscard]] QString UserName() const override { return m_user.name; }
    [[nodiscard]] QString UserID() const override;
    [[nodiscard]] QString AppPath() const override { return m_settings.appPath; }
    [[nodiscard]] QDate LoginDate() const override { return m_settings.loginDate; }

private:
    User m_user;
    Settings m_settings;
};

/// The print engine is the program's: this room has no paper and no dialogs.
class PrintEnvironment : public HostPrintEnv
{
public:
    explicit PrintEnvironment(const HostSession &session)
        : m_session(session)
    {}
    [[nodiscard]] QObject *PrintContext() override { return m_context; }
    /// nullptr for none; a context that ends before the host is forgotten.
    void setPrintContext(QObject *context) { m_context = context; }
    [[nodiscard]] QString PrintFolder() const override { return m_session.AppPath(); }

private:
    const HostSession &m_session;
    QPointer<QObject> m_context;
};

} // namespace ebtq::host
