#include "host/table_recordset.h"

#include "database/values/date_text.h"

#include <QBuffer>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

QByteArray textOf(const QVariant &value)
{
    const auto type = static_cast<QMetaType::Type>(value.typeId());
    if (type == QMetaType::QDateTime || type == QMetaType::QDate)
        return storedDate(value.toDateTime()).toUtf8();
    return value.toString().toUtf8();
}

/// A failure of the database, as every other of the host is told.
template<class Work> auto asFailure(Work work)
{
    try {
        return work();
    } catch (const db::DatabaseError &error) {
        throw Failure(error.message());
    }
}

} // namespace

TableRecordset::TableRecordset(RowBlock rows, QString table, db::Connection &connection)
    : BlockRecordset(std::move(rows))
    , m_table(std::move(table))
    , m_connection(connection)
{}

Field TableRecordset::Fields(const QString &name) const
{
    const Field field = BlockRecordset::Fields(name);
    const Column &known = column(name);
    if (!known.blob || !field.Value.isValid())
        return field;
    QByteArray bytes;
    asFailure([&] {
        m_connection.readBlob(*known.blob, field.Value.toLongLong(),
                              [&](QByteArrayView piece) { bytes.append(piece); });
    });
    return {bytes};
}

void TableRecordset::WriteField(const QString &name, QIODevice &to)
{
    const Field field = BlockRecordset::Fields(name);
    const Column &known = column(name);
    if (!known.blob)
        throw Failure(u"列 %1 不是二进制数据"_s.arg(name));
    if (!field.Value.isValid())
        return;
    asFailure([&] {
        m_connection.readBlob(*known.blob, field.Value.toLongLong(), [&](QByteArrayView piece) {
            if (to.write(piece.data(), piece.size()) != piece.size())
                throw Failure(u"文件写入失败：%1"_s.arg(to.errorString()));
        });
    });
}

void TableRecordset::AddNew()
{
    if (m_table.isEmpty())
        return BlockRecordset::AddNew();
    m_isAdding = true;
    m_cells.clear();
    m_blob = {};
    m_file.clear();
}

void TableRecordset::SetField(const QString &name, const QVariant &value)
{
    const Column &known = column(name);
    if (!m_isAdding || known.blob)
        return BlockRecordset::AddNew();
    std::erase_if(m_cells, [&](const Cell &cell) { return cell.column.name == known.name; });
    m_cells.push_back({known, value});
}

void TableRecordset::SetFieldFromFile(const QString &name, const QString &path)
{
    const Column &known = column(name);
    if (!m_isAdding || !known.blob)
        return BlockRecordset::AddNew();
    m_blob = known;
    m_file = path;
}

void TableRecordset::Update()
{
    if (!m_isAdding)
        return BlockRecordset::AddNew();
    QFile file(m_file);
    if (m_blob.blob && !file.open(QIODevice::ReadOnly))
        throw Failure(u"无法读取文件：%1"_s.arg(file.errorString()));
    const db::Connection::NewBlob blob{m_blob.blob ? m_blob.blob->column : QString(),
                                       m_blob.blob ? &file : nullptr};
    const qint64 key = asFailure([&] { return m_connection.insertRow(m_table, block(), blob); });
    m_isAdding = false;
    const QString sql = u"select * from %1 where %2=%3"_s;
    const QString keyName = m_connection.catalog().table(m_table)->rowKey;
    replaceRows(asFailure([&] { return m_connection.query(sql.arg(m_table, keyName).arg(key)); }));
}

const Column &TableRecordset::column(const QString &name) const
{
    const int at = rows().columnNamed(name);
    if (at < 0)
        throw Failure(u"列 %1 不存在"_s.arg(name));
    return rows().columns()[static_cast<size_t>(at)];
}

RowBlock TableRecordset::block() const
{
    std::vector<Column> columns;
    for (const Cell &cell : m_cells)
        columns.push_back(cell.column);
    RowBlock row(std::move(columns));
    for (const Cell &cell : m_cells) {
        if (cell.value.isValid())
            row.append(textOf(cell.value).toStdString());
        else
            row.appendNull();
    }
    return row;
}

} // namespace ebtq::host
