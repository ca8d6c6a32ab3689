#include "shell/panels/calendar_popup.h"

#include "screens/look/look.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QPushButton>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace ebtq::shell {

CalendarPopup::CalendarPopup(const QDate &preset)
    : m_calendar(new QCalendarWidget(this))
{
    m_calendar->setObjectName(QStringLiteral("calendar"));
    m_calendar->setLocale(QLocale(QLocale::Chinese, QLocale::China));
    m_calendar->setFirstDayOfWeek(Qt::Monday);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setSelectedDate(preset.isValid() ? preset : QDate::currentDate());
    QTextCharFormat weekend;
    weekend.setForeground(look::tokens().danger);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        m_calendar->setWeekdayTextFormat(day, weekend);
    connect(m_calendar, &QCalendarWidget::activated, this, &CalendarPopup::choose);
    connect(m_calendar, &QCalendarWidget::clicked, this, &CalendarPopup::choose);

    auto *today = new QPushButton(QStringLiteral("今天(&T)"));
    today->setProperty("kind", QStringLiteral("flat"));
    connect(today, &QPushButton::clicked, this, [this] { choose(QDate::currentDate()); });

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_calendar);
    layout->addWidget(today, 0, Qt::AlignRight);
    m_calendar->setFocus();
}

void CalendarPopup::choose(const QDate &date)
{
    m_chosen = date;
    hide();
}

} // namespace ebtq::shell
