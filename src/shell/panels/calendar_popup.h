#pragma once

#include "shell/panels/popup.h"

#include <QDate>

#include <optional>

class QCalendarWidget;

namespace ebtq::shell {

/// A calendar on the screen: arrows move by days, page keys by months, Enter and a click choose, Escape
/// leaves.
class CalendarPopup : public Popup
{
    Q_OBJECT

public:
    explicit CalendarPopup(const QDate &preset);
    [[nodiscard]] std::optional<QDate> chosen() const { return m_chosen; }

private:
    void choose(const QDate &date);

    QCalendarWidget *m_calendar;
    std::optional<QDate> m_chosen;
};

} // namespace ebtq::shell
