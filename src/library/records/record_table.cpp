#include "library/records/record_table.h"

#include "contracts/conversions.h"
#include "contracts/host_contracts.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"
#include "library/frame/statements.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

bool isDate(Saved saved)
{
    return saved == Saved::Date || saved == Saved::TrimmedDate;
}

SqlText literal(const RecordColumn &column, const QString &text)
{
    if (column.saved == Saved::Number)
        return PlainDecimal(Val(text));
    const bool isTrimmed = column.saved == Saved::Text || column.saved == Saved::TrimmedDate;
    const QString value = isTrimmed ? Trim(text) : text;
    const QString mark = u"#"_s;
    return isDate(column.saved) ? SqlText(mark) + typed(value) + mark : quoted(value);
}

SqlText keyLiteral(const RecordTable &record, const QString &key)
{
    return record.keyKind == KeyKind::Text ? quoted(key) : SqlText() + typed(PlainDecimal(Val(key)));
}

} // namespace

SqlText insertStatement(const RecordTable &record, const QString &key, const HeldText &held)
{
    QString columns = record.words.insert.toString();
    columns.append(record.table).append(u'(').append(record.key);
    SqlText values = SqlText(record.words.values.toString()) + keyLiteral(record, key);
    for (const RecordColumn &column : record.insert) {
        if (column.saved == Saved::Not)
            continue;
        columns += u',';
        columns += column.column;
        values += QStringView(u",");
        values += literal(column, held(column));
    }
    return SqlText(columns) + values + u")"_s;
}

SqlText updateStatement(const RecordTable &record, const QString &key, const HeldText &held)
{
    SqlText sql = SqlText(record.words.update.toString()) + record.table + record.words.set;
    QStringView comma;
    for (const RecordColumn &column : record.update) {
        if (column.saved == Saved::Not)
            continue;
        sql += comma;
        sql += column.column;
        sql += QStringView(u"=");
        sql += literal(column, held(column));
        comma = u",";
    }
    return sql + whereKey(record, key);
}

SqlText whereKey(const RecordTable &record, const QString &key)
{
    return SqlText(record.words.where.toString()) + record.key + QStringView(u"=") + keyLiteral(record, key);
}

QString loadedText(const RecordColumn &column, const Recordset &row)
{
    const QString text = NullConv::ToText(row.Fields(column.column.toString()).Value);
    switch (column.loaded) {
    case Loaded::Trimmed:
        return Trim(text);
    case Loaded::Number:
        return NumberText(Val(text));
    default:
        return text;
    }
}

const RecordColumn *columnWithApostrophe(std::span<const RecordColumn> columns, const HeldText &held)
{
    const auto found = std::ranges::find_if(columns, [&](const RecordColumn &column) {
        return column.saved != Saved::Not && column.saved != Saved::Number && held(column).contains(u'\'');
    });
    return found == columns.end() ? nullptr : &*found;
}

bool isSameValue(const RecordColumn &column, const QString &one, const QString &other)
{
    if (column.saved == Saved::Number)
        return Val(one) == Val(other);
    if (isDate(column.saved) && parseDate(one) && parseDate(other))
        return parseDate(one) == parseDate(other);
    return column.saved == Saved::AsTyped ? one == other : Trim(one) == Trim(other);
}

} // namespace ebtq
