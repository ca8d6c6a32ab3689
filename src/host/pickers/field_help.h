#pragma once

#include "database/connection.h"
#include "host/panel_presenter.h"

#include <QDate>
#include <QPoint>

class QObject;

namespace ebtq::host {

/// The generic help of a field: shows the list that `key` names - an inline list, "date" for a calendar, or a
/// help code - and puts the choice into the field's properties Value and Text. The list's columns that the
/// field names in text_field_code and text_field_name give them; a field that names none gets the list's own.
/// False without a choice. Throws Failure for an unknown key, and db::DatabaseError.
class FieldHelp
{
public:
    FieldHelp(db::Connection &connection, PanelPresenter &presenter, const QDate &today)
        : m_connection(connection)
        , m_presenter(presenter)
        , m_today(today)
    {}
    bool show(const QString &key, QObject &field, const QPoint &corner);

private:
    bool showDate(QObject &field, const QPoint &corner);
    bool showInlineList(const QString &list, QObject &field, const QPoint &corner);
    bool showList(const QString &code, QObject &field, const QPoint &corner);
    bool choose(Panel &panel, QObject &field, const QPoint &corner, int valueColumn, int textColumn);

    db::Connection &m_connection;
    PanelPresenter &m_presenter;
    QDate m_today;
};

} // namespace ebtq::host
