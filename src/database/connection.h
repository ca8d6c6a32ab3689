#pragma once

#include "database/dialect/catalog.h"
#include "database/values/row_block.h"
#include "database/values/sql_text.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <stdexcept>

class QIODevice;

namespace ebtq::db {

struct DdlWords;
struct Dialect;

/// A failed database operation; what() is a Chinese text to be shown, followed by the engine's
/// own text where it helps.
class DatabaseError : public std::runtime_error
{
public:
    explicit DatabaseError(const QString &message)
        : std::runtime_error(message.toStdString())
    {}
    [[nodiscard]] QString message() const { return QString::fromUtf8(what()); }
};

/// One connection to one database. Statements are in the system's dialect and are translated for the engine.
/// Every operation throws DatabaseError; a statement that fails changes nothing, and an open transaction
/// stays open. For use on one thread.
///
/// A server may go away: the operation that finds out throws, an open transaction is lost with it
/// (inTransaction is false afterwards), and the next operation connects again. A statement whose outcome is
/// unknown is never retried.
class Connection
{
public:
    /// What to do with a file that does not exist.
    enum class Missing { IsAnError, IsCreated };
    /// What a commit waits for. AfterCommit is for a counter whose number means nothing until a row that
    /// uses it is saved: all clients queue for that row, and should not queue for the server's disk as well.
    /// A crash may undo such a commit, but never without all later commits of every connection.
    enum class Flush { BeforeCommit, AfterCommit };

    /// Opens a database on a server by its URL ("postgresql://user@host:port/base") or an embedded database
    /// by its file's path (":memory:" for one in memory). Throws for a file that is no database. A read-only
    /// file opens; statements that write fail. A database on a server is never created.
    [[nodiscard]] static std::unique_ptr<Connection> open(const QString &location,
                                                          Missing missing = Missing::IsAnError);
    /// A location as it may be shown: a URL without its password, only the scheme if it does not parse.
    [[nodiscard]] static QString shownLocation(const QString &location);

    virtual ~Connection() = default;

    /// The rows of a select. Throws for a statement that writes.
    [[nodiscard]] virtual RowBlock query(const SqlText &statement) = 0;
    /// Runs an insert, update or delete; the number of rows changed. A select runs too and gives 0.
    virtual qint64 execute(const SqlText &statement) = 0;
    /// Inserts all rows of a block into a table, by column name, in one transaction (or the open
    /// one): for bulk work such as sample data and copies. Numbers and dates are read from the cells' texts:
    /// exactly when the cells come from readTable. A table with automatic keys continues after the largest
    /// key inserted.
    virtual void insertRows(const QString &table, const RowBlock &rows) = 0;

    /// Inserts one row, whose key the database gives, and gives the key back. The bytes of a binary column
    /// come from `blob.device`, which is open and has a size; an embedded database takes them in pieces.
    struct NewBlob
    {
        QString column; ///< empty: none
        QIODevice *device = nullptr;
    };
    [[nodiscard]] virtual qint64 insertRow(const QString &table, const RowBlock &row,
                                           const NewBlob &blob) = 0;
    /// Reads the bytes of one cell, which is not Null, in pieces of at most a few megabytes. Throws for a row
    /// that is gone; what was taken until then is of no use.
    using PieceTaker = std::function<void(QByteArrayView piece)>;
    virtual void readBlob(const BlobColumn &column, qint64 key, const PieceTaker &take) = 0;

    /// Receives the blocks of a long read in order; an exception from it ends the read.
    using BlockTaker = std::function<void(const RowBlock &block)>;
    /// Reads columns of all rows of a table, in no given order, for copies and comparisons: any number of
    /// rows in blocks of a few megabytes, or of one row that is larger. One call is one statement, so it sees
    /// one state of the table: no row is skipped or read twice, however long it takes and whoever writes
    /// meanwhile. Unlike query it gives values as they are stored: numbers in a text that reads back as the
    /// same number to the last bit, dates as "YYYY-MM-DD[ HH:MM:SS]". `take` must not use this connection.
    virtual void readTable(const QString &table, const QStringList &columns, const BlockTaker &take) = 0;
    /// Begins a read-only transaction, ended by rollback(): everything read in it is one snapshot, taken at
    /// this call, while others write. Throws when one is open. Statements in it must not write.
    virtual void beginReading() = 0;

    /// Semicolon-separated statements in the engine's own language, and the rows of one: for the installer
    /// and its checks only.
    virtual void executeNative(const QByteArray &script) = 0;
    [[nodiscard]] virtual RowBlock queryNative(const QByteArray &statement) = 0;

    /// Begins a transaction that writes. Throws when one is open. An embedded database always flushes
    /// before the commit.
    virtual void begin(Flush flush = Flush::BeforeCommit) = 0;
    virtual void commit() = 0;
    /// Does nothing when none is open. Never throws.
    virtual void rollback() noexcept = 0;
    [[nodiscard]] virtual bool inTransaction() const = 0;
    /// How often a lost connection was made again; always 0 for an embedded database.
    [[nodiscard]] virtual int connectionNumber() const { return 0; }
    /// Every statement that writes will fail: this user may only read the file.
    [[nodiscard]] virtual bool isReadOnly() const = 0;

    [[nodiscard]] virtual const Dialect &dialect() const = 0;
    /// How the engine writes definitions, and native statements that create or update what the tables depend
    /// on (empty when it is up to date): for the installer and its checks only.
    [[nodiscard]] virtual const DdlWords &ddlWords() const = 0;
    [[nodiscard]] virtual QByteArray missingFoundation() = 0;
    /// Read on first use and again after executeNative.
    [[nodiscard]] virtual const Catalog &catalog() = 0;
    /// How long a statement waits for another program's lock, in milliseconds; 5000 unless set.
    virtual void setLockTimeout(int milliseconds) = 0;
    /// The file or the URL without a password, as shown to people.
    [[nodiscard]] virtual QString location() const = 0;
};

/// A transaction for one scope: rolled back on the way out unless committed. Joins one that is already open.
class Transaction
{
public:
    explicit Transaction(Connection &connection, Connection::Flush flush = Connection::Flush::BeforeCommit)
        : m_connection(connection)
        , m_own(!connection.inTransaction())
    {
        if (m_own)
            m_connection.begin(flush);
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    ~Transaction()
    {
        if (m_own)
            m_connection.rollback();
    }
    void commit()
    {
        if (m_own)
            m_connection.commit();
        m_own = false;
    }

private:
    Connection &m_connection;
    bool m_own;
};

} // namespace ebtq::db
