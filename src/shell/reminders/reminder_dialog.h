#pragma once

#include "host/followups/reminders.h"

#include <QDialog>

#include <functional>

class QDateEdit;
class QLabel;
class QPlainTextEdit;
class QVBoxLayout;

namespace ebtq::shell {

/// What both dialogs about a reminder have in common: what it was about on top, the two buttons and the
/// refusal of a save, which leaves everything as it was typed.
class ReminderDialog : public QDialog
{
    Q_OBJECT

protected:
    ReminderDialog(const QString &title, const host::Reminder &reminder, QWidget *parent);

    [[nodiscard]] QVBoxLayout &column() const { return *m_column; }
    /// To be called when the rest stands.
    void addButtons();
    /// Throws Failure when it was not saved.
    virtual void save() = 0;

private:
    void savePressed();

    QVBoxLayout *m_column;
    QLabel *m_refusal;
};

/// Asks what came of a reminder.
class SettleDialog : public ReminderDialog
{
    Q_OBJECT

public:
    SettleDialog(HostApp &app, const host::Reminder &reminder, QWidget *parent);

protected:
    void save() override;

private:
    HostApp &m_app;
    const host::Reminder m_reminder;
    QPlainTextEdit *m_result;
};

/// Asks for the day to which a reminder is put off: the next one, one in three or seven days, or any.
class PostponeDialog : public ReminderDialog
{
    Q_OBJECT

public:
    PostponeDialog(HostApp &app, const host::Reminder &reminder, QWidget *parent);

protected:
    void save() override;

private:
    HostApp &m_app;
    const host::Reminder m_reminder;
    QDateEdit *m_date;
};

} // namespace ebtq::shell
