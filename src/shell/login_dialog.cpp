#include "shell/login_dialog.h"

#include "host/users.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace ebtq::shell {

namespace {

constexpr int dialogWidth = 360;

QLineEdit *inputField(const QString &objectName)
{
    auto *field = new QLineEdit;
    field->setObjectName(objectName);
    return field;
}

QLabel *labelOfKind(const QString &text, const QString &kind)
{
    auto *label = new QLabel(text);
    label->setProperty("kind", kind);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// Seconds; the first wrong password causes none.
int pauseAfter(int wrong)
{
    constexpr int longest = 60;
    constexpr int lastDoubling = 6;
    return wrong < 2 ? 0 : std::min(longest, 1 << std::min(wrong - 1, lastDoubling));
}

} // namespace

LoginDialog::LoginDialog(const QString &presetName, const QString &database, SignIn signIn, Purpose purpose)
    : m_signIn(std::move(signIn))
    , m_purpose(purpose)
    , m_name(inputField(QStringLiteral("name")))
    , m_password(inputField(QStringLiteral("password")))
    , m_error(labelOfKind({}, QStringLiteral("error")))
    , m_enter(new QPushButton(QStringLiteral("登录(&L)")))
{
    m_second.setInterval(std::chrono::seconds(1));
    connect(&m_second, &QTimer::timeout, this, &LoginDialog::countDown);
    setWindowTitle(purpose == Purpose::Unlock ? QStringLiteral("已锁定") : QStringLiteral("登录"));
    m_name->setText(presetName);
    m_name->setReadOnly(purpose == Purpose::Unlock);
    m_password->setEchoMode(QLineEdit::Password);
    m_error->setObjectName(QStringLiteral("error"));
    m_error->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 24, 28, 20);
    layout->setSpacing(14);
    layout->addWidget(labelOfKind(QStringLiteral("房源管理"), QStringLiteral("heading")));
    layout->addWidget(labelOfKind(database, QStringLiteral("place")));
    layout->addLayout(fields());
    layout->addWidget(m_error);
    layout->addLayout(buttons());
    setMinimumWidth(dialogWidth);
    (presetName.isEmpty() ? m_name : m_password)->setFocus();
}

QLayout *LoginDialog::fields()
{
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setSpacing(10);
    form->addRow(QStringLiteral("用户名(&N)"), m_name);
    form->addRow(QStringLiteral("密码(&P)"), m_password);
    return form;
}

QLayout *LoginDialog::buttons()
{
    m_enter->setProperty("kind", QStringLiteral("primary"));
    m_enter->setDefault(true);
    connect(m_enter, &QPushButton::clicked, this, &LoginDialog::accept);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_enter);
    if (m_purpose == Purpose::SignIn)
        addWaysOut(*row);
    else
        m_enter->setText(QStringLiteral("解锁(&L)"));
    return row;
}

void LoginDialog::addWaysOut(QHBoxLayout &row)
{
    auto *other = new QPushButton(QStringLiteral("其他数据库(&D)…"));
    other->setProperty("kind", QStringLiteral("flat"));
    other->setAutoDefault(false);
    connect(other, &QPushButton::clicked, this, [this] { done(OtherDatabase); });
    auto *leave = new QPushButton(QStringLiteral("退出(&X)"));
    connect(leave, &QPushButton::clicked, this, &LoginDialog::reject);
    row.insertWidget(0, other);
    row.addWidget(leave);
}

void LoginDialog::reject()
{
    if (m_purpose == Purpose::SignIn)
        QDialog::reject();
}

QString LoginDialog::name() const
{
    return m_name->text().trimmed();
}

void LoginDialog::accept()
{
    if (m_secondsLeft > 0)
        return;
    if (name().isEmpty()) {
        m_name->setFocus();
        showError(QStringLiteral("请输入用户名。"));
        return;
    }
    try {
        m_signIn(name(), m_password->text());
    } catch (const host::WrongPassword &failure) {
        refuse(QString::fromUtf8(failure.what()));
        return;
    } catch (const std::exception &failure) {
        tryAgain(QString::fromUtf8(failure.what()));
        return;
    }
    QDialog::accept();
}

void LoginDialog::tryAgain(const QString &reason)
{
    m_password->setFocus();
    m_password->selectAll();
    showError(reason);
}

void LoginDialog::refuse(const QString &reason)
{
    m_refusal = reason;
    m_secondsLeft = pauseAfter(++m_wrong);
    tryAgain(reason);
    if (m_secondsLeft == 0)
        return;
    m_enter->setEnabled(false);
    ++m_secondsLeft;
    m_second.start();
    countDown();
}

void LoginDialog::countDown()
{
    if (--m_secondsLeft > 0) {
        showError(QStringLiteral("%1\n%2 秒后可以再试。").arg(m_refusal).arg(m_secondsLeft));
        return;
    }
    m_second.stop();
    m_enter->setEnabled(true);
    showError(m_refusal);
}

void LoginDialog::showError(const QString &text)
{
    m_error->setText(text);
    m_error->show();
    adjustSize();
}

} // namespace ebtq::shell
