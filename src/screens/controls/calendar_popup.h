#pragma once

#include <QCalendarWidget>

namespace ebtq {

/// A calendar that drops from a field and goes when a day was picked, with Enter or the mouse, or with
/// Escape.
class CalendarPopup : public QCalendarWidget
{
    Q_OBJECT

public:
    /// Deletes itself when it closes.
    CalendarPopup(QDate preset, QWidget *field);

Q_SIGNALS:
    void picked(const QDate &day);

private:
    void pick(QDate day);
};

} // namespace ebtq
