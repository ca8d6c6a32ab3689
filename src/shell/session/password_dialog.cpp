#include "shell/session/password_dialog.h"

#include "contracts/host_contracts.h"
#include "shell/start/start_page.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

namespace ebtq::shell {

namespace {

constexpr int dialogWidth = 380;

QLineEdit *passwordField(const QString &objectName)
{
    QLineEdit *field = startField(objectName);
    field->setEchoMode(QLineEdit::Password);
    return field;
}

} // namespace

PasswordDialog::PasswordDialog(Change change, const QString &reason, QWidget *parent)
    : QDialog(parent)
    , m_change(std::move(change))
    , m_present(passwordField(QStringLiteral("present")))
    , m_wanted(passwordField(QStringLiteral("wanted")))
    , m_again(passwordField(QStringLiteral("again")))
    , m_strength(hintLabel(QStringLiteral("strength")))
    , m_error(errorLabel())
{
    setWindowTitle(QStringLiteral("修改密码"));
    setMinimumWidth(dialogWidth);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("现在的密码(&O) *"), m_present);
    form->addRow(QStringLiteral("新密码(&N) *"), m_wanted);
    form->addRow(QString(), m_strength);
    form->addRow(QStringLiteral("再次输入(&R) *"), m_again);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("保存(&S)"));
    buttons->button(QDialogButtonBox::Ok)->setProperty("kind", QStringLiteral("primary"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("取消(&C)"));
    connect(buttons, &QDialogButtonBox::accepted, this, &PasswordDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PasswordDialog::reject);
    connect(m_wanted, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_strength->setText(strengthText(host::strengthOf(text))); });
    auto *column = new QVBoxLayout(this);
    if (!reason.isEmpty())
        column->addWidget(hintLabel(QStringLiteral("reason"), reason));
    column->addLayout(form);
    column->addWidget(m_error);
    column->addWidget(buttons);
}

void PasswordDialog::accept()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor); // a password is checked slowly, on purpose
    const auto waited = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    try {
        if (m_wanted->text() != m_again->text())
            throw Failure(QStringLiteral("两次输入的密码不同，请重新输入！"));
        m_change(m_present->text(), m_wanted->text());
    } catch (const std::exception &failure) {
        m_error->setText(QString::fromUtf8(failure.what()));
        m_error->show();
        return;
    }
    QDialog::accept();
}

bool changeOwnPassword(db::Connection &connection, const host::User &user, const QString &reason,
                       QWidget *parent)
{
    PasswordDialog dialog(
        [&](const QString &present, const QString &wanted) {
            host::changeOwnPassword(connection, user.name, present, wanted);
        },
        reason, parent);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace ebtq::shell
