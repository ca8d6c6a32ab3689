#include "database/sqlite/sqlite_blob.h"

#include "database/sqlite/sqlite_error.h"

#include <QIODevice>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

constexpr int pieceSize = 1 << 20;

} // namespace

SqliteBlob::SqliteBlob(sqlite3 *handle, const BlobColumn &column, qint64 key, Access access)
    : m_handle(handle)
{
    const int result =
        sqlite3_blob_open(handle, "main", column.table.toUtf8().constData(),
                          column.column.toUtf8().constData(), key, access == Access::Write ? 1 : 0, &m_blob);
    if (result == SQLITE_OK)
        return;
    // Also when the row is there and the cell has become Null.
    const bool isGone = result == SQLITE_ERROR;
    const QString why = isGone ? u"内容已被他人删除，无法读取！"_s : sqliteErrorText(handle);
    sqlite3_blob_close(m_blob);
    throw DatabaseError(why);
}

SqliteBlob::~SqliteBlob()
{
    sqlite3_blob_close(m_blob);
}

void SqliteBlob::read(const Connection::PieceTaker &take)
{
    const int size = sqlite3_blob_bytes(m_blob);
    QByteArray piece;
    for (int at = 0; at < size; at += pieceSize) {
        piece.resize(std::min(pieceSize, size - at));
        if (sqlite3_blob_read(m_blob, piece.data(), static_cast<int>(piece.size()), at) != SQLITE_OK)
            throw DatabaseError(sqliteErrorText(m_handle));
        take(piece);
    }
}

void SqliteBlob::fill(QIODevice &device)
{
    const int size = sqlite3_blob_bytes(m_blob);
    for (int at = 0; at < size;) {
        const QByteArray piece = device.read(std::min(pieceSize, size - at));
        if (piece.isEmpty())
            throw DatabaseError(u"文件在读取时发生了变化，没有保存！"_s);
        if (sqlite3_blob_write(m_blob, piece.constData(), static_cast<int>(piece.size()), at) != SQLITE_OK)
            throw DatabaseError(sqliteErrorText(m_handle));
        at += static_cast<int>(piece.size());
    }
}

} // namespace ebtq::db
