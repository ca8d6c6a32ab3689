#include "database/schema/ddl.h"

#include <algorithm>

namespace ebtq::db {

namespace {

QByteArray quoted(const char16_t *name)
{
    return '"' + QString::fromUtf16(name).toUtf8() + '"';
}

const char *typeWord(ColumnType type, const DdlWords &words)
{
    switch (type) {
    case ColumnType::Text:
        return words.text;
    case ColumnType::Integer:
        return words.integer;
    case ColumnType::Number:
        return words.number;
    case ColumnType::Date:
        return words.date;
    case ColumnType::Binary:
        return words.binary;
    }
    return words.text;
}

/// Keeps texts and oversized keys out of a number column and anything but a stored date out of a date column,
/// so that a list can rely on what it reads and a key counter never runs out.
QByteArray check(const ColumnDefinition &column)
{
    const QByteArray name = quoted(column.name);
    switch (column.type) {
    case ColumnType::Integer:
        return " check(" + name + " is null or typeof(" + name + ")='integer' and " + name +
               " between -2147483648 and 2147483647)";
    case ColumnType::Number:
        return " check(typeof(" + name + ") in ('integer','real','null'))";
    case ColumnType::Date:
        return " check(" + name + " is null or " + name +
               " glob '[0-9][0-9][0-9][0-9]-[0-1][0-9]-[0-3][0-9]*')";
    default:
        return {};
    }
}

QByteArray columnText(const ColumnDefinition &column, const DdlWords &words)
{
    if (column.rule == ColumnDefinition::AutoKey)
        return quoted(column.name) + ' ' + words.autoKey;
    QByteArray text = quoted(column.name) + ' ' + typeWord(column.type, words);
    if (column.rule == ColumnDefinition::Key)
        text += " not null";
    if (column.rule == ColumnDefinition::Zero)
        text += " not null default 0";
    if (column.rule == ColumnDefinition::EmptyText)
        text += " not null default ''";
    return words.checkTypes ? text + check(column) : text;
}

bool keysOnlyByNumber(const TableDefinition &table)
{
    const auto isKey = [](const ColumnDefinition &column) { return column.rule == ColumnDefinition::Key; };
    const auto keys = std::ranges::count_if(table.columns, isKey);
    return keys == 1 && std::ranges::find_if(table.columns, isKey)->type == ColumnType::Integer;
}

} // namespace

const DdlWords &sqliteWords()
{
    static constexpr DdlWords words = {
        .text = "text collate ebtq_nocase",
        .integer = "integer",
        .number =
            "numeric", // whole numbers are stored as integers, so that joining them to a text needs no care
        .date = "date",
        .binary = "blob",
        .autoKey = "integer primary key autoincrement",
        .checkTypes = true,
    };
    return words;
}

QByteArray createTable(const TableDefinition &table, const DdlWords &words)
{
    QByteArray lines;
    QByteArray keys;
    for (const ColumnDefinition &column : table.columns) {
        lines += (lines.isEmpty() ? "\n  " : ",\n  ") + columnText(column, words);
        if (column.rule == ColumnDefinition::Key)
            keys += (keys.isEmpty() ? "" : ",") + quoted(column.name);
    }
    if (!keys.isEmpty())
        lines += ",\n  primary key(" + keys + ')';
    // Without this the engine would invent a key that was left out: a single integer key is its row number.
    const bool isKeyed = keysOnlyByNumber(table) && words.checkTypes;
    return "create table " + quoted(table.name) + '(' + lines + (isKeyed ? ") without rowid;\n" : ");\n");
}

QByteArray addColumn(const TableDefinition &table, const ColumnDefinition &column, const DdlWords &words)
{
    return "alter table " + quoted(table.name) + " add column " + columnText(column, words) + ";\n";
}

QByteArray createIndex(const TableDefinition &table, const IndexDefinition &index)
{
    return QByteArray(index.unique ? "create unique index " : "create index ") + quoted(index.name) + " on " +
           quoted(table.name) + '(' + QString::fromUtf16(index.columns).toUtf8() + ");\n";
}

} // namespace ebtq::db
