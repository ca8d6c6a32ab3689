#pragma once

#include "database/connection.h"
#include "database/list_counts.h"
#include "database/postgresql/postgres_session.h"

namespace ebtq::db {

/// The server engine through libpq: rows arrive one at a time and are appended to a RowBlock's arena. All our
/// objects are in the schema "ebtq" of the database.
class PostgresConnection final : public Connection
{
public:
    explicit PostgresConnection(const QString &url);
    PostgresConnection(const PostgresConnection &) = delete;
    PostgresConnection &operator=(const PostgresConnection &) = delete;
    ~PostgresConnection() override;

    [[nodiscard]] RowBlock query(const SqlText &statement) override;
    qint64 execute(const SqlText &statement) override;
    void insertRows(const QString &table, const RowBlock &rows) override;
    [[nodiscard]] qint64 insertRow(const QString &table, const RowBlock &row, const NewBlob &blob) override;
    void readBlob(const BlobColumn &column, qint64 key, const PieceTaker &take) override;
    void readTable(const QString &table, const QStringList &columns, const BlockTaker &take) override;
    void beginReading() override { m_session.beginReading(); }
    void executeNative(const QByteArray &script) override;
    [[nodiscard]] RowBlock queryNative(const QByteArray &statement) override;

    void begin(Flush flush) override { m_session.begin(flush); }
    void commit() override { m_session.commit(); }
    void rollback() noexcept override { m_session.rollback(); }
    [[nodiscard]] bool inTransaction() const override { return m_session.inTransaction(); }
    [[nodiscard]] int connectionNumber() const override { return m_session.connectionNumber(); }

    /// A session is only opened with a writable server.
    [[nodiscard]] bool isReadOnly() const override { return false; }

    [[nodiscard]] const Dialect &dialect() const override;
    [[nodiscard]] const DdlWords &ddlWords() const override;
    [[nodiscard]] QByteArray missingFoundation() override;
    [[nodiscard]] const Catalog &catalog() override;
    void setLockTimeout(int milliseconds) override { m_session.setLockTimeout(milliseconds); }
    [[nodiscard]] QString location() const override { return m_session.address().shown(); }

    /// libpq's own handle, for measuring against it.
    [[nodiscard]] pg_conn *handle() const { return m_session.handle(); }

private:
    template<class Run> auto runTranslated(const SqlText &statement, Run run);
    [[nodiscard]] Translation translated(const SqlText &statement);
    [[nodiscard]] RowBlock read(const QByteArray &statement, std::vector<Column> columns,
                                const ListCounts &counts = {});
    /// False when the tables have not changed since the catalog was read.
    bool refreshCatalog();

    PostgresSession m_session;
    Catalog m_catalog;
    QByteArray m_catalogText; ///< the rows it was built from
    bool m_hasCatalog = false;
};

} // namespace ebtq::db
