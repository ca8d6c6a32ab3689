#pragma once

#include <QDialog>
#include <QString>

#include <functional>

class QLabel;
class QLineEdit;

namespace ebtq::shell {

/// Asks for name and password until a sign-in succeeds or the person leaves.
class LoginDialog : public QDialog
{
    Q_OBJECT

public:
    /// Throws an exception with a text for the user when the sign-in fails.
    using SignIn = std::function<void(const QString &name, const QString &password)>;

    /// `database` tells the person where the sign-in goes.
    LoginDialog(const QString &presetName, const QString &database, SignIn signIn);

    [[nodiscard]] QString name() const;
    void accept() override;

private:
    [[nodiscard]] QLayout *fields();
    [[nodiscard]] QLayout *buttons();
    void showError(const QString &text);

    SignIn m_signIn;
    QLineEdit *m_name;
    QLineEdit *m_password;
    QLabel *m_error;
};

} // namespace ebtq::shell
