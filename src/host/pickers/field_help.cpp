#include "host/pickers/field_help.h"

#include "contracts/host_contracts.h"
#include "database/values/date_text.h"
#include "host/pickers/list_query.h"
#include "host/text_judge.h"

#include <QObject>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

QString propertyText(const QObject &field, const char *name)
{
    return field.property(name).toString();
}

void fill(QObject &field, const Match &match)
{
    field.setProperty("Value", match.value);
    field.setProperty("Text", match.text);
}

} // namespace

bool FieldHelp::show(const QString &key, QObject &field, const QPoint &corner)
{
    if (isDate(key))
        return showDate(field, corner);
    return isInlineList(key) ? showInlineList(key, field, corner) : showList(key, field, corner);
}

bool FieldHelp::showDate(QObject &field, const QPoint &corner)
{
    const auto typedDate = parseDate(propertyText(field, "Text"));
    const auto date = m_presenter.chooseDate(typedDate ? typedDate->date() : m_today, corner.x(), corner.y());
    if (!date)
        return false;
    fill(field, {regionalDate(*date), regionalDate(*date)});
    return true;
}

bool FieldHelp::showInlineList(const QString &list, QObject &field, const QPoint &corner)
{
    Panel panel;
    panel.rows = inlineListRows(list);
    panel.shown = {{0, panel.rows.columns().front().name}};
    return choose(panel, field, corner, 1, 0);
}

bool FieldHelp::showList(const QString &code, QObject &field, const QPoint &corner)
{
    const auto list = listNamed(code);
    if (!list)
        throw Failure(u"没有名为“%1”的帮助列表！"_s.arg(code));
    Panel panel = panelOf(*list, ParameterList(), m_connection.query(rowsToShow(*list)), {});
    const int valueColumn = columnFor(panel.rows, propertyText(field, "text_field_code"),
                                      panel.rows.columnNamed(list->valueColumn));
    const int textColumn = columnFor(panel.rows, propertyText(field, "text_field_name"),
                                     panel.rows.columnNamed(list->textColumn));
    return choose(panel, field, corner, valueColumn, textColumn);
}

bool FieldHelp::choose(Panel &panel, QObject &field, const QPoint &corner, int valueColumn, int textColumn)
{
    panel.left = corner.x();
    panel.top = corner.y();
    panel.currentRow = rowWithText(panel, propertyText(field, "Text").trimmed());
    const auto row = m_presenter.choose(panel);
    if (!row)
        return false;
    fill(field, matchOf(panel.rows, *row, valueColumn, textColumn));
    return true;
}

} // namespace ebtq::host
