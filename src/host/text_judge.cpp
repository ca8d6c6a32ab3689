#include "host/text_judge.h"

#include "contracts/host_contracts.h"
#include "contracts/inline_list.h"
#include "database/values/date_text.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

bool isSame(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

std::optional<Match> judgeDate(const QString &typedText)
{
    const auto date = parseDate(typedText);
    if (!date)
        return std::nullopt;
    const QString text = regionalDate(*date);
    return Match{text, text};
}

std::optional<Match> judgeInlineList(const QString &list, const QString &typedText)
{
    const auto entry = InlineList(list).find(typedText.trimmed());
    return entry ? std::optional(Match{entry->value, entry->text}) : std::nullopt;
}

} // namespace

RowBlock inlineListRows(const QString &list)
{
    RowBlock rows({{u"名称"_s, ColumnType::Text}, {u"值"_s, ColumnType::Text}});
    const InlineList parsed(list);
    for (const InlineList::Entry &entry : parsed.entries()) {
        rows.append(entry.text.toStdString());
        rows.append(entry.value.toStdString());
    }
    return rows;
}

bool isInlineList(const QString &base)
{
    return base.startsWith(u'|');
}

bool isDate(const QString &base)
{
    return isSame(base, u"date"_s);
}

int columnFor(const RowBlock &rows, const QString &name, int otherwise)
{
    if (name.isEmpty())
        return qMin(otherwise, rows.columnCount() - 1);
    const int column = rows.columnNamed(name);
    if (column < 0)
        throw Failure(u"列 %1 不存在"_s.arg(name));
    return column;
}

Match matchOf(const RowBlock &rows, qsizetype row, int valueColumn, int textColumn)
{
    return {cellText(rows.cell(row, valueColumn)), cellText(rows.cell(row, textColumn))};
}

std::optional<Match> judge(db::Connection &connection, const QString &base, const QString &valueField,
                           const QString &textField, const QString &typedText)
{
    if (base.isEmpty())
        return std::nullopt;
    if (isDate(base))
        return judgeDate(typedText);
    if (isInlineList(base))
        return judgeInlineList(base, typedText);
    const RowBlock rows = connection.query(SqlText::filledIn(base, u'@', typedText));
    const int valueColumn = columnFor(rows, valueField, 0);
    const int textColumn = columnFor(rows, textField, 1);
    if (rows.rowCount() == 0)
        return std::nullopt;
    return matchOf(rows, 0, valueColumn, textColumn);
}

} // namespace ebtq::host
