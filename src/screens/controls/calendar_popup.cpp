#include "screens/controls/calendar_popup.h"

#include "screens/controls/popup.h"

#include <QLocale>

namespace ebtq {

CalendarPopup::CalendarPopup(QDate preset, QWidget *field)
    : QCalendarWidget(field)
{
    setWindowFlags(Qt::Popup);
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("CalendarPopup"));
    setLocale(QLocale(QLocale::Chinese, QLocale::China));
    setFirstDayOfWeek(Qt::Monday);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setSelectedDate(preset);
    connect(this, &QCalendarWidget::activated, this, &CalendarPopup::pick);
    connect(this, &QCalendarWidget::clicked, this, &CalendarPopup::pick);
    adjustSize();
    showPopupAt(*this, *field);
}

/// A double click is both clicked and activated; only the first counts.
void CalendarPopup::pick(QDate day)
{
    disconnect(this, nullptr, this, nullptr);
    close();
    Q_EMIT picked(day);
}

} // namespace ebtq
