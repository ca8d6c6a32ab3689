#include "shell/reminders/reminder_dialog.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <exception>

namespace ebtq::shell {

namespace {

constexpr int narrowest = 460;
constexpr int mostContents = 200; // characters
constexpr int resultLines = 4;
constexpr int usualDays[] = {1, 3, 7};

QString shortened(const QString &text)
{
    return text.size() > mostContents ? text.left(mostContents) + QStringLiteral("…") : text;
}

QString described(const host::Reminder &reminder)
{
    const QString contents = shortened(reminder.contents);
    return reminder.reminder.isEmpty()
               ? contents
               : contents + QStringLiteral("\n提醒内容：") + shortened(reminder.reminder);
}

QLabel *caption(const QString &text, QWidget *field)
{
    auto *label = new QLabel(text);
    label->setProperty("kind", QStringLiteral("caption"));
    label->setBuddy(field);
    return label;
}

} // namespace

ReminderDialog::ReminderDialog(const QString &title, const host::Reminder &reminder, QWidget *parent)
    : QDialog(parent)
    , m_column(new QVBoxLayout(this))
    , m_refusal(new QLabel)
{
    setWindowTitle(title);
    setMinimumWidth(narrowest);
    auto *what = new QLabel(described(reminder));
    what->setTextFormat(Qt::PlainText);
    what->setWordWrap(true);
    m_refusal->setObjectName(QStringLiteral("Refusal"));
    m_refusal->setProperty("kind", QStringLiteral("error"));
    m_refusal->setTextFormat(Qt::PlainText);
    m_refusal->setWordWrap(true);
    m_refusal->hide();
    m_column->addWidget(m_refusal);
    m_column->addWidget(what);
}

void ReminderDialog::addButtons()
{
    auto *buttons = new QDialogButtonBox;
    QPushButton *saving = buttons->addButton(QStringLiteral("保存(&S)"), QDialogButtonBox::AcceptRole);
    saving->setObjectName(QStringLiteral("Save"));
    saving->setProperty("kind", QStringLiteral("primary"));
    saving->setDefault(true);
    buttons->addButton(QStringLiteral("取消(&X)"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ReminderDialog::savePressed);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_column->addWidget(buttons);
}

void ReminderDialog::savePressed()
{
    try {
        save();
        accept();
    } catch (const std::exception &failure) {
        m_refusal->setText(QString::fromUtf8(failure.what()));
        m_refusal->show();
    }
}

SettleDialog::SettleDialog(HostApp &app, const host::Reminder &reminder, QWidget *parent)
    : ReminderDialog(QStringLiteral("处理提醒"), reminder, parent)
    , m_app(app)
    , m_reminder(reminder)
    , m_result(new QPlainTextEdit)
{
    m_result->setObjectName(QStringLiteral("Result"));
    m_result->setTabChangesFocus(true);
    m_result->setMinimumHeight(resultLines * fontMetrics().lineSpacing());
    column().addWidget(caption(QStringLiteral("处理结果(&R)"), m_result));
    column().addWidget(m_result, 1);
    addButtons();
    m_result->setFocus();
}

void SettleDialog::save()
{
    host::settleReminder(m_app, m_reminder, m_result->toPlainText(), QDate::currentDate());
}

PostponeDialog::PostponeDialog(HostApp &app, const host::Reminder &reminder, QWidget *parent)
    : ReminderDialog(QStringLiteral("推迟提醒"), reminder, parent)
    , m_app(app)
    , m_reminder(reminder)
    , m_date(new QDateEdit(app.Session().LoginDate().addDays(usualDays[0])))
{
    const QDate today = app.Session().LoginDate();
    m_date->setObjectName(QStringLiteral("Date"));
    m_date->setDisplayFormat(QStringLiteral("yyyy-M-d"));
    m_date->setCalendarPopup(true);
    m_date->setMinimumDate(today);
    auto *row = new QHBoxLayout;
    row->addWidget(caption(QStringLiteral("推迟到(&D)"), m_date));
    row->addWidget(m_date);
    for (const int days : usualDays) {
        auto *button = new QPushButton(QStringLiteral("%1 天后(&%1)").arg(days));
        button->setObjectName(QStringLiteral("Days_%1").arg(days));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this,
                [this, day = today.addDays(days)] { m_date->setDate(day); });
        row->addWidget(button);
    }
    row->addStretch();
    column().addLayout(row);
    addButtons();
    m_date->setFocus();
}

void PostponeDialog::save()
{
    host::postponeReminder(m_app, m_reminder, m_date->date());
}

} // namespace ebtq::shell
