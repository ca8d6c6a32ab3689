#pragma once

#include "database/connection.h"

struct sqlite3;
struct sqlite3_blob;

namespace ebtq::db {

/// The bytes of one cell, which the engine reads and writes in place, piece by piece. All operations throw
/// DatabaseError.
class SqliteBlob
{
public:
    enum class Access { Read, Write };

    /// The row whose number is `key`; the cell is not Null.
    SqliteBlob(sqlite3 *handle, const BlobColumn &column, qint64 key, Access access);
    SqliteBlob(const SqliteBlob &) = delete;
    SqliteBlob &operator=(const SqliteBlob &) = delete;
    ~SqliteBlob();

    void read(const Connection::PieceTaker &take);
    /// With all that the device gives, which must be as much as the cell has room for.
    void fill(QIODevice &device);

private:
    sqlite3 *m_handle;
    sqlite3_blob *m_blob = nullptr;
};

} // namespace ebtq::db
