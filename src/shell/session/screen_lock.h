#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace ebtq::shell {

/// Covers all windows of the program until the person who is signed in gives the password: when asked to, and
/// after some time in which nobody has used keyboard or mouse. What is open stays open below.
class ScreenLock : public QObject
{
    Q_OBJECT

public:
    /// Throws an exception with a text for the user when the password is wrong, host::WrongPassword for what
    /// is to be slowed down.
    using Check = std::function<void(const QString &name, const QString &password)>;

    /// `patience` of 0 never locks by itself.
    ScreenLock(const QString &userName, const QString &place, std::chrono::milliseconds patience,
               Check check);
    ~ScreenLock() override;
    /// Returns when the right password was given. Does nothing while locked.
    void lock();
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString m_userName;
    QString m_place;
    Check m_check;
    QTimer m_idle;
    bool m_isLocked = false;
};

} // namespace ebtq::shell
