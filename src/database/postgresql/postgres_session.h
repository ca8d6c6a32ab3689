#pragma once

#include "database/connection.h"
#include "database/postgresql/postgres_address.h"

#include <functional>
#include <memory>

struct pg_conn;
struct pg_result;

namespace ebtq::db {

class PostgresValues;

/// One session with a server: sends statements in the server's own language and implements the rules of
/// Connection.
///
/// Inside a transaction each statement has its savepoint, so that a failed one changes nothing and the
/// transaction continues, as with the embedded engine. A lost connection is reported once, by ConnectionLost,
/// and the next operation connects again; a statement is never sent twice.
class PostgresSession
{
public:
    /// Receives the next rows of a result.
    using RowTaker = std::function<void(const pg_result *rows)>;

    /// Connects; throws DatabaseError.
    explicit PostgresSession(const PostgresAddress &address);
    PostgresSession(const PostgresSession &) = delete;
    PostgresSession &operator=(const PostgresSession &) = delete;
    ~PostgresSession();

    /// Runs one statement and passes its rows to `take` as they arrive; returns the number of rows changed.
    qint64 run(const QByteArray &statement, const RowTaker &take = {});
    /// The same with values for its parameters; and one that gives bytes, of which the number is returned:
    /// the only cell of its only row, which is there.
    qint64 run(const QByteArray &statement, const PostgresValues &values, const RowTaker &take);
    qint64 readBytes(const QByteArray &statement, const Connection::PieceTaker &take);
    /// Runs semicolon-separated statements in one transaction.
    void runScript(const QByteArray &script);
    /// Runs "copy … from stdin" with its data.
    void copyIn(const QByteArray &command, const QByteArray &data);

    /// During its lifetime numbers are read with all digits.
    class ExactNumbers
    {
    public:
        explicit ExactNumbers(PostgresSession &session);
        ExactNumbers(const ExactNumbers &) = delete;
        ExactNumbers &operator=(const ExactNumbers &) = delete;
        ~ExactNumbers();

    private:
        PostgresSession &m_session;
    };

    void begin(Connection::Flush flush);
    void beginReading();
    void commit();
    void rollback() noexcept;
    [[nodiscard]] bool inTransaction() const;
    void setLockTimeout(int milliseconds);

    [[nodiscard]] const PostgresAddress &address() const { return m_address; }
    [[nodiscard]] int connectionNumber() const { return m_connectionNumber; }
    /// libpq's own handle, for measuring against it.
    [[nodiscard]] pg_conn *handle() const { return m_handle.get(); }

private:
    struct Closer
    {
        void operator()(pg_conn *handle) const;
    };
    class Savepoint;

    void connect();
    void configure();
    void requireConnection(bool isReading = false);
    void beginWith(const QByteArray &statement);
    void simple(const QByteArray &statement);
    enum class Format { Text, Binary };
    qint64 run(const QByteArray &statement, const PostgresValues &values, Format format,
               const RowTaker &take);
    void sendAlone(const QByteArray &statement, const PostgresValues &values, Format format);
    void sendWithSavepoint(const QByteArray &statement, const PostgresValues &values, Format format);
    void require(int isSent);
    qint64 collect(const RowTaker &take, bool isPipeline);
    void cancel() noexcept;
    [[nodiscard]] bool isLost() const;
    [[noreturn]] void lose() const;

    PostgresAddress m_address;
    std::unique_ptr<pg_conn, Closer> m_handle;
    int m_lockTimeout = 5000;
    bool m_hadTransaction = false; ///< when the current operation began
    bool m_isReading = false;      ///< the transaction is read-only
    int m_connectionNumber = 0;
};

} // namespace ebtq::db
