#pragma once

#include "database/connection.h"

#include <QDate>
#include <QString>

#include <initializer_list>
#include <variant>

namespace ebtq::host {

/// Writes many rows of one table, in blocks.
class TableWriter
{
public:
    /// `columns` parted by commas.
    TableWriter(db::Connection &connection, const QString &table, QStringView columns);

    using Cell = std::variant<std::nullptr_t, int, double, QStringView, QDate, QByteArrayView>;
    /// One row, a value for each column in their order; nullptr for Null. A list in braces, whose values are
    /// worked out from left to right whatever the compiler: chance gives the same rows everywhere.
    void row(std::initializer_list<Cell> cells);
    /// The next columns of a row that is written in parts; behind the last part comes endRow().
    void part(std::initializer_list<Cell> cells);
    void endRow();
    /// To be called behind the last row.
    void flush();

private:
    static constexpr qsizetype rowsInBlock = 5000;

    void put(std::nullptr_t) { m_block.appendNull(); }
    void put(int number) { m_block.appendInteger(number); }
    void put(double number) { m_block.appendNumber(number); }
    void put(QStringView text) { put(QByteArrayView(text.toUtf8())); }
    void put(const QDate &date) { m_block.appendDate(date.toString(Qt::ISODate).toStdString()); }
    void put(QByteArrayView bytes) { m_block.append({bytes.data(), static_cast<size_t>(bytes.size())}); }

    db::Connection &m_connection;
    QString m_table;
    std::vector<Column> m_columns;
    RowBlock m_block;
    size_t m_written = 0; ///< columns of the row that is being written
};

} // namespace ebtq::host
