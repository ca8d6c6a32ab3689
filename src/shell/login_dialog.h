#pragma once

#include <QDialog>
#include <QString>
#include <QTimer>

#include <functional>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ebtq::shell {

/// Asks for name and password until a sign-in succeeds or the dialog is cancelled. From the second wrong
/// password on each causes a pause, twice as long as the one before, in which no sign-in is possible.
class LoginDialog : public QDialog
{
    Q_OBJECT

public:
    /// A result beside accepted and rejected.
    static constexpr int OtherDatabase = 2;
    /// Throws an exception with a text for the user when the sign-in fails, a host::WrongPassword for what
    /// causes a pause.
    using SignIn = std::function<void(const QString &name, const QString &password)>;

    /// Unlock is for who is signed in already: the name stays and there is no way out but the password.
    enum class Purpose { SignIn, Unlock };

    /// `database` is shown: where the sign-in goes.
    LoginDialog(const QString &presetName, const QString &database, SignIn signIn,
                Purpose purpose = Purpose::SignIn);

    [[nodiscard]] QString name() const;
    void accept() override;
    void reject() override;

private:
    [[nodiscard]] QLayout *fields();
    [[nodiscard]] QLayout *buttons();
    void addWaysOut(QHBoxLayout &row);
    void showError(const QString &text);
    void tryAgain(const QString &reason);
    void refuse(const QString &reason);
    void countDown();

    SignIn m_signIn;
    Purpose m_purpose;
    QLineEdit *m_name;
    QLineEdit *m_password;
    QLabel *m_error;
    QPushButton *m_enter;
    QTimer m_second{this};
    QString m_refusal;
    int m_wrong = 0;
    int m_secondsLeft = 0; ///< until the next try
};

} // namespace ebtq::shell
