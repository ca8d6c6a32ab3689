#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;

namespace ebtq::shell {

/// Asks for the present password and, twice, for the new one, until it is changed or the dialog is cancelled.
class PasswordDialog : public QDialog
{
    Q_OBJECT

public:
    /// Throws an exception with a text for the user when the password cannot be changed.
    using Change = std::function<void(const QString &present, const QString &wanted)>;

    explicit PasswordDialog(Change change, QWidget *parent = nullptr);
    void accept() override;

private:
    Change m_change;
    QLineEdit *m_present;
    QLineEdit *m_wanted;
    QLineEdit *m_again;
    QLabel *m_strength;
    QLabel *m_error;
};

} // namespace ebtq::shell
