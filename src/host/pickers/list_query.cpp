#include "host/pickers/list_query.h"

#include "database/values/number_text.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

bool onlyDetails(const ListDefinition &list, const ParameterList &parameters)
{
    return !list.detailParameter.isEmpty() &&
           leadingNumber(parameters.text(list.detailParameter.toString())) != 0;
}

SqlText textEquals(QStringView expression, const QString &value)
{
    return SqlText(expression.toString()) + u"='"_s + typed(value) + u"'"_s;
}

/// The condition that holds for the list as a whole.
QString condition(const ListDefinition &list)
{
    const QString all = u" where 1=1"_s;
    return list.kind.isEmpty() ? all : all + u" and 类型='%1'"_s.arg(list.kind);
}

QString orderOf(const ListDefinition &list)
{
    return u" order by %1"_s.arg(list.order);
}

/// A number is compared only where the text is one: a text never equals a number's column.
bool isWholeNumber(const QString &text)
{
    bool read = false;
    (void)text.trimmed().toInt(&read);
    return read;
}

SqlText matching(const ListDefinition &list, const QString &typedText)
{
    SqlText text(u" and ("_s);
    const auto expressions = list.matches.split(u';');
    for (qsizetype at = 0; at < expressions.size(); ++at) {
        if (at > 0)
            text += u" or "_s;
        text += textEquals(expressions[at], typedText);
    }
    if (!list.numberKey.isEmpty() && isWholeNumber(typedText))
        text += u" or %1=%2"_s.arg(list.numberKey).arg(typedText.trimmed().toInt());
    text += u")"_s;
    return text;
}

std::vector<Panel::ShownColumn> shownColumns(const ListDefinition &list, const RowBlock &rows)
{
    std::vector<Panel::ShownColumn> columns;
    for (const QStringView entry : list.shown.split(u';')) {
        const auto parts = entry.split(u'=');
        columns.push_back({rows.columnNamed(parts.first()), parts.last().toString()});
    }
    return columns;
}

bool hasText(const Panel &panel, qsizetype row, const QString &text)
{
    for (const Panel::ShownColumn &shown : panel.shown) {
        const QString shownText = cellText(panel.rows.cell(row, shown.column));
        if (shownText.compare(text, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

} // namespace

SqlText rowsToShow(const ListDefinition &list)
{
    return list.select.toString() + condition(list) + orderOf(list);
}

SqlText rowsThatMatch(const ListDefinition &list, const ParameterList &parameters, const QString &typedText)
{
    SqlText text = SqlText(list.select.toString()) + condition(list) + matching(list, typedText);
    if (onlyDetails(list, parameters))
        text += u" and %1=1"_s.arg(list.detailColumn);
    return text + orderOf(list);
}

Panel panelOf(const ListDefinition &list, const ParameterList &parameters, RowBlock rows,
              const QString &presetText)
{
    Panel panel;
    panel.title = list.title.toString();
    panel.shown = shownColumns(list, rows);
    if (!list.levelCodeColumn.isEmpty())
        panel.levelCodeColumn = rows.columnNamed(list.levelCodeColumn);
    if (onlyDetails(list, parameters))
        panel.choosableColumn = rows.columnNamed(list.detailColumn);
    panel.rows = std::move(rows);
    panel.currentRow = rowWithText(panel, presetText);
    return panel;
}

qsizetype rowWithText(const Panel &panel, const QString &text)
{
    for (qsizetype row = 0; !text.isEmpty() && row < panel.rows.rowCount(); ++row) {
        if (hasText(panel, row, text))
            return row;
    }
    return -1;
}

} // namespace ebtq::host
