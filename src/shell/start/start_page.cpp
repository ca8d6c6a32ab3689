#include "shell/start/start_page.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QVBoxLayout>

namespace ebtq::shell {

namespace {

QLabel *plainLabel(const QString &kind, const QString &text = {})
{
    auto *label = new QLabel(text);
    label->setProperty("kind", kind);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

StartPage::StartPage(StartDraft &draft, const QString &title, const QString &purpose)
    : m_draft(draft)
    , m_column(new QVBoxLayout)
    , m_error(errorLabel())
{
    m_column->setSpacing(12);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 24, 28, 16);
    layout->setSpacing(12);
    layout->addWidget(plainLabel(QStringLiteral("heading"), title));
    layout->addWidget(plainLabel(QStringLiteral("hint"), purpose));
    layout->addSpacing(4);
    layout->addLayout(m_column, 1);
    layout->addWidget(m_error);
}

bool StartPage::validatePage()
{
    return attempt([this] { takeOver(); });
}

bool StartPage::attempt(const std::function<void()> &work)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto waited = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    try {
        work();
    } catch (const std::exception &failure) {
        showError(QString::fromUtf8(failure.what()));
        return false;
    }
    m_error->hide();
    return true;
}

void StartPage::showError(const QString &text)
{
    m_error->setText(text);
    m_error->show();
}

QFormLayout *StartPage::addForm()
{
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setSpacing(10);
    m_column->addLayout(form);
    return form;
}

QLabel *hintLabel(const QString &objectName, const QString &text)
{
    QLabel *label = plainLabel(QStringLiteral("hint"), text);
    label->setObjectName(objectName);
    return label;
}

QLabel *errorLabel()
{
    QLabel *label = plainLabel(QStringLiteral("error"));
    label->setObjectName(QStringLiteral("error"));
    label->hide();
    return label;
}

QString strengthText(host::Strength strength)
{
    switch (strength) {
    case host::Strength::TooShort:
        return QStringLiteral("密码至少要有 %1 个字符").arg(host::shortestPassword);
    case host::Strength::Weak:
        return QStringLiteral("强度：弱，容易被猜到");
    case host::Strength::Fair:
        return QStringLiteral("强度：中");
    case host::Strength::Strong:
        break;
    }
    return QStringLiteral("强度：强");
}

QLineEdit *startField(const QString &objectName, const QString &text)
{
    auto *field = new QLineEdit(text);
    field->setObjectName(objectName);
    return field;
}

} // namespace ebtq::shell
