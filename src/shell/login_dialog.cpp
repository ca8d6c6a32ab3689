#include "shell/login_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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

} // namespace

LoginDialog::LoginDialog(const QString &presetName, const QString &database, SignIn signIn)
    : m_signIn(std::move(signIn))
    , m_name(inputField(QStringLiteral("name")))
    , m_password(inputField(QStringLiteral("password")))
    , m_error(labelOfKind({}, QStringLiteral("error")))
{
    setWindowTitle(QStringLiteral("登录"));
    m_name->setText(presetName);
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
    auto *enter = new QPushButton(QStringLiteral("登录(&L)"));
    enter->setProperty("kind", QStringLiteral("primary"));
    enter->setDefault(true);
    auto *leave = new QPushButton(QStringLiteral("退出(&X)"));
    connect(enter, &QPushButton::clicked, this, &LoginDialog::accept);
    connect(leave, &QPushButton::clicked, this, &LoginDialog::reject);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(enter);
    row->addWidget(leave);
    return row;
}

QString LoginDialog::name() const
{
    return m_name->text().trimmed();
}

void LoginDialog::accept()
{
    if (name().isEmpty()) {
        m_name->setFocus();
        showError(QStringLiteral("请输入用户名。"));
        return;
    }
    try {
        m_signIn(name(), m_password->text());
    } catch (const std::exception &failure) {
        m_password->setFocus();
        m_password->selectAll();
        showError(QString::fromUtf8(failure.what()));
        return;
    }
    QDialog::accept();
}

void LoginDialog::showError(const QString &text)
{
    m_error->setText(text);
    m_error->show();
    adjustSize();
}

} // namespace ebtq::shell
