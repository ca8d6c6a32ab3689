#include "database/postgresql/postgres_rows.h"

#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <libpq-fe.h>

#include <algorithm>
#include <charconv>

namespace ebtq::db {

namespace {

/// Integers of up to 15 digits, the usual case, need no conversion.
void appendNumber(RowBlock &block, std::string_view text)
{
    constexpr size_t mostDigits = 15;
    if (text.size() <= mostDigits && text.find_first_of(".e") == std::string_view::npos && text != "-0")
        return block.append(text);
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec == std::errc())
        return block.appendNumber(number);
    // Rounded to 15 digits, the largest number is larger than any.
    std::string unread(text);
    std::replace(unread.begin(), unread.end(), 'e', 'E');
    block.append(unread);
}

void appendBytes(RowBlock &block, std::string_view text)
{
    constexpr size_t mark = 2; // "\\x"
    const auto digits =
        QByteArray::fromRawData(text.data() + mark, static_cast<qsizetype>(text.size() - mark));
    const QByteArray bytes = QByteArray::fromHex(digits);
    block.append({bytes.constData(), static_cast<size_t>(bytes.size())});
}

void appendStoredCell(RowBlock &block, std::string_view text, ColumnType type)
{
    constexpr std::string_view midnight = " 00:00:00";
    const auto number = type == ColumnType::Number ? exactNumber(text) : std::nullopt;
    if (number)
        return block.append(exactNumberText(*number));
    if (type == ColumnType::Binary)
        return appendBytes(block, text);
    if (type == ColumnType::Date && text.ends_with(midnight))
        text.remove_suffix(midnight.size());
    block.append(text);
}

void appendCell(RowBlock &block, std::string_view text, ColumnType type)
{
    switch (type) {
    case ColumnType::Integer:
    case ColumnType::Number:
        return appendNumber(block, text);
    case ColumnType::Date:
        return block.appendDate(text);
    case ColumnType::Binary:
        return appendBytes(block, text);
    default:
        return block.append(text);
    }
}

void copyEscaped(std::string_view text, QByteArray &out)
{
    for (const char c : text) {
        switch (c) {
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            out += c;
        }
    }
}

void copyDate(std::string_view text, QByteArray &out)
{
    const auto date = parseDate(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    if (date)
        out += storedDate(*date).toLatin1();
    else
        copyEscaped(text, out);
}

void copyCell(std::string_view text, ColumnType type, QByteArray &out)
{
    if (type == ColumnType::Date)
        copyDate(text, out);
    else if (type == ColumnType::Binary)
        out += "\\\\x" + QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())).toHex();
    else
        copyEscaped(text, out);
}

template<class Append> void forEachCell(const RowBlock &block, const pg_result *rows, Append append)
{
    const int columns = block.columnCount();
    for (int row = 0; row < PQntuples(rows); ++row) {
        for (int column = 0; column < columns; ++column) {
            const std::string_view text(PQgetvalue(rows, row, column),
                                        static_cast<size_t>(PQgetlength(rows, row, column)));
            append(column, text, PQgetisnull(rows, row, column) != 0);
        }
    }
}

} // namespace

void appendRows(RowBlock &block, const pg_result *rows, const ListCounts &counts)
{
    forEachCell(block, rows, [&](int column, std::string_view text, bool isNull) {
        if (counts.has(column))
            counts.append(block, column, isNull ? std::nullopt : std::optional(text));
        else if (isNull)
            block.appendNull();
        else
            appendCell(block, text, block.columns()[static_cast<size_t>(column)].type);
    });
}

void appendStoredRows(RowBlock &block, const pg_result *rows)
{
    forEachCell(block, rows, [&](int column, std::string_view text, bool isNull) {
        if (isNull)
            block.appendNull();
        else
            appendStoredCell(block, text, block.columns()[static_cast<size_t>(column)].type);
    });
}

QByteArray copyText(const RowBlock &rows)
{
    QByteArray text;
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        for (int column = 0; column < rows.columnCount(); ++column) {
            if (column > 0)
                text += '\t';
            if (rows.isNull(row, column))
                text += "\\N";
            else
                copyCell(rows.cell(row, column), rows.columns()[static_cast<size_t>(column)].type, text);
        }
        text += '\n';
    }
    return text;
}

} // namespace ebtq::db
