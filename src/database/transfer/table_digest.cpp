#include "database/transfer/table_digest.h"

#include "database/connection.h"
#include "database/values/date_text.h"
#include "database/values/number_text.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <charconv>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

constexpr quint64 nullLength = ~quint64(0);

void addLength(QCryptographicHash &hash, quint64 length)
{
    const quint64 bytes = qToLittleEndian(length);
    hash.addData(QByteArrayView(reinterpret_cast<const char *>(&bytes), sizeof bytes));
}

void addBytes(QCryptographicHash &hash, std::string_view bytes)
{
    addLength(hash, bytes.size());
    hash.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

/// Whole numbers are read as such: a double has no room for all 64 bits.
std::string canonicalNumber(std::string_view text)
{
    qint64 whole = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), whole);
    if (read.ec == std::errc() && read.ptr == text.data() + text.size())
        return std::to_string(whole);
    const auto number = exactNumber(text);
    return number ? exactNumberText(*number) : std::string(text);
}

std::string_view canonicalDate(std::string_view text)
{
    constexpr std::string_view midnight = " 00:00:00";
    if (isStoredDate(text) && text.ends_with(midnight))
        text.remove_suffix(midnight.size());
    return text;
}

void addCell(QCryptographicHash &hash, ColumnType type, std::string_view text)
{
    switch (type) {
    case ColumnType::Integer:
    case ColumnType::Number:
        return addBytes(hash, canonicalNumber(text));
    case ColumnType::Date:
        return addBytes(hash, canonicalDate(text));
    case ColumnType::Text:
    case ColumnType::Binary:
        return addBytes(hash, text);
    }
}

void addRow(QCryptographicHash &hash, const RowBlock &block, qsizetype row)
{
    for (int column = 0; column < block.columnCount(); ++column) {
        if (block.isNull(row, column))
            addLength(hash, nullLength);
        else
            addCell(hash, block.columns()[static_cast<size_t>(column)].type, block.cell(row, column));
    }
}

} // namespace

void TableDigest::add(const RowBlock &block)
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    for (qsizetype row = 0; row < block.rowCount(); ++row) {
        hash.reset();
        addRow(hash, block, row);
        const QByteArray bytes = hash.result();
        for (size_t at = 0; at < m_sum.size(); ++at)
            m_sum[at] += qFromLittleEndian<quint64>(bytes.constData() + at * sizeof(quint64));
    }
    m_rows += block.rowCount();
}

QString TableDigest::checksum() const
{
    QString text;
    for (const quint64 part : m_sum)
        text += u"%1"_s.arg(part, 16, 16, QChar(u'0'));
    return text;
}

TableDigest digestOf(Connection &connection, const QString &table, const QStringList &columns)
{
    TableDigest digest;
    connection.readTable(table, columns, [&](const RowBlock &block) { digest.add(block); });
    return digest;
}

} // namespace ebtq::db
