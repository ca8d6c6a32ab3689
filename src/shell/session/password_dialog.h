#pragma once

#include "database/connection.h"
#include "host/users.h"

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

    /// `reason` says why it is asked for; empty where the person has wished it.
    PasswordDialog(Change change, const QString &reason, QWidget *parent = nullptr);
    void accept() override;

private:
    Change m_change;
    QLineEdit *m_present;
    QLineEdit *m_wanted;
    QLineEdit *m_again;
    QLabel *m_strength;
    QLabel *m_error;
};

/// Lets the person who is signed in change the password; false when that was cancelled.
bool changeOwnPassword(db::Connection &connection, const host::User &user, const QString &reason,
                       QWidget *parent = nullptr);

} // namespace ebtq::shell
