#include "database/sqlite/sqlite_rows.h"

#include "database/connection.h"
#include "database/full_block.h"
#include "database/sqlite/sqlite_error.h"
#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <sqlite3.h>

#include <QDateTime>

#include <charconv>

namespace ebtq::db {

namespace {

/// A cell is fetched once as the engine's value: each access through the statement would look it up again,
/// which is measurable in a long list. Allowed because the connection is opened without locks.
std::string_view bytesOf(sqlite3_value *cell)
{
    // The pointer is read before the length: that call may convert.
    const void *bytes = sqlite3_value_blob(cell);
    return {static_cast<const char *>(bytes), static_cast<size_t>(sqlite3_value_bytes(cell))};
}

/// The engine keeps integral values as integers; from 10^15 on they are shown as any other number of that
/// size.
void appendWhole(RowBlock &block, qint64 number)
{
    constexpr qint64 sixteenDigits = 1'000'000'000'000'000;
    if (number < sixteenDigits && number > -sixteenDigits)
        block.appendInteger(number);
    else
        block.appendNumber(static_cast<double>(number));
}

/// How the cells of a column are appended to a block.
enum class CellForm : quint8 { AsItIs, Date, Count };

std::optional<std::string_view> keyOf(sqlite3_value *cell)
{
    return sqlite3_value_type(cell) == SQLITE_NULL ? std::nullopt : std::optional(bytesOf(cell));
}

std::vector<CellForm> formsOf(const RowBlock &block, const ListCounts &counts)
{
    std::vector<CellForm> forms;
    for (int column = 0; column < block.columnCount(); ++column) {
        const bool isDate = block.columns()[static_cast<size_t>(column)].type == ColumnType::Date;
        forms.push_back(counts.has(column) ? CellForm::Count : isDate ? CellForm::Date : CellForm::AsItIs);
    }
    return forms;
}

void appendCell(RowBlock &block, sqlite3_value *cell, bool isDate)
{
    switch (sqlite3_value_type(cell)) {
    case SQLITE_NULL:
        return block.appendNull();
    case SQLITE_INTEGER:
        return appendWhole(block, sqlite3_value_int64(cell));
    case SQLITE_FLOAT:
        return block.appendNumber(sqlite3_value_double(cell));
    default:
        return isDate ? block.appendDate(bytesOf(cell)) : block.append(bytesOf(cell));
    }
}

void appendStoredCell(RowBlock &block, sqlite3_value *cell)
{
    switch (sqlite3_value_type(cell)) {
    case SQLITE_NULL:
        return block.appendNull();
    case SQLITE_INTEGER:
        return block.appendInteger(sqlite3_value_int64(cell));
    case SQLITE_FLOAT:
        return block.append(exactNumberText(sqlite3_value_double(cell)));
    default:
        return block.append(bytesOf(cell));
    }
}

/// The engine reads a null pointer as Null, and an empty text of an empty arena has no other pointer.
const char *notNull(std::string_view text)
{
    return text.empty() ? "" : text.data();
}

void bindText(sqlite3_stmt *statement, int parameter, std::string_view text)
{
    sqlite3_bind_text64(statement, parameter, notNull(text), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void bindDate(sqlite3_stmt *statement, int parameter, std::string_view text)
{
    if (isStoredDate(text))
        return bindText(statement, parameter, text);
    const auto date = parseDate(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    const QByteArray stored =
        date ? storedDate(*date).toUtf8() : QByteArray(text.data(), static_cast<qsizetype>(text.size()));
    sqlite3_bind_text64(statement, parameter, stored.constData(), static_cast<sqlite3_uint64>(stored.size()),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
}

/// The engine's own parsing may be wrong in the last bit of a number.
void bindNumber(sqlite3_stmt *statement, int parameter, std::string_view text)
{
    const char *end = text.data() + text.size();
    qint64 whole = 0;
    const auto read = std::from_chars(text.data(), end, whole);
    if (read.ec == std::errc() && read.ptr == end)
        sqlite3_bind_int64(statement, parameter, whole);
    else if (const auto number = exactNumber(text))
        sqlite3_bind_double(statement, parameter, *number);
    else
        bindText(statement, parameter, text); // refused by the column
}

void bindCell(sqlite3_stmt *statement, int parameter, ColumnType type, std::string_view text)
{
    switch (type) {
    case ColumnType::Date:
        return bindDate(statement, parameter, text);
    case ColumnType::Integer:
    case ColumnType::Number:
        return bindNumber(statement, parameter, text);
    case ColumnType::Binary:
        sqlite3_bind_blob64(statement, parameter, notNull(text), text.size(), SQLITE_STATIC);
        return;
    case ColumnType::Text:
        return bindText(statement, parameter, text);
    }
}

} // namespace

RowBlock readRows(sqlite3 *handle, sqlite3_stmt *statement, std::vector<Column> columns,
                  const ListCounts &counts)
{
    RowBlock block(std::move(columns));
    const int count = block.columnCount();
    const std::vector<CellForm> forms = formsOf(block, counts);
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
        for (int column = 0; column < count; ++column) {
            sqlite3_value *cell = sqlite3_column_value(statement, column);
            const CellForm form = forms[static_cast<size_t>(column)];
            if (form == CellForm::Count)
                counts.append(block, column, keyOf(cell));
            else
                appendCell(block, cell, form == CellForm::Date);
        }
    }
    if (result != SQLITE_DONE)
        throw DatabaseError(sqliteErrorText(handle));
    block.finish();
    return block;
}

void readStoredRows(sqlite3 *handle, sqlite3_stmt *statement, const std::vector<Column> &columns,
                    const std::function<void(const RowBlock &block)> &take)
{
    RowBlock block(columns);
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
        for (int column = 0; column < block.columnCount(); ++column)
            appendStoredCell(block, sqlite3_column_value(statement, column));
        if (isFull(block)) {
            take(block);
            block = RowBlock(columns);
        }
    }
    if (result != SQLITE_DONE)
        throw DatabaseError(sqliteErrorText(handle));
    if (block.rowCount() > 0)
        take(block);
}

void bindRow(sqlite3_stmt *statement, const RowBlock &rows, qsizetype row)
{
    for (int column = 0; column < rows.columnCount(); ++column) {
        const int parameter = column + 1;
        if (rows.isNull(row, column))
            sqlite3_bind_null(statement, parameter);
        else
            bindCell(statement, parameter, rows.columns()[static_cast<size_t>(column)].type,
                     rows.cell(row, column));
    }
}

void bindValues(sqlite3_stmt *statement, const std::vector<StatementShape::Value> &values)
{
    int parameter = 0;
    for (const StatementShape::Value &value : values) {
        ++parameter;
        const QByteArray text = value.text.toUtf8();
        switch (value.kind) {
        case StatementShape::Kind::Key:
        case StatementShape::Kind::Assigned:
            sqlite3_bind_text(statement, parameter, text.constData(), static_cast<int>(text.size()),
                              SQLITE_TRANSIENT);
            break;
        case StatementShape::Kind::Whole:
            sqlite3_bind_int64(statement, parameter, text.toLongLong());
            break;
        case StatementShape::Kind::Decimal:
            sqlite3_bind_double(statement, parameter, text.toDouble());
            break;
        }
    }
}

} // namespace ebtq::db
