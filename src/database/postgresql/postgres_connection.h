#pragma once

#include "database/connection.h"
#include "database/list_counts.h"
#include "database/postgresql/postgres_session.h"

namespace ebtq::db {

/// The server engine, spoken to through libpq: rows come one at a time and go into a RowBlock's arena.
/// Everything of ours lies in the schema "ebtq" of the base.
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
    void readTable(const QString &table, const QStringList &columns, const BlockTaker &take) override;
    void beginReading() override { m_session.beginReading(); }
    void executeNative(const QByteArray &script) override;
    [[nodiscard]] RowBlock queryNative(const QByteArray &statement) override;

    void begin(Flush flush) override { m_session.begin(flush); }
    void commit() override { m_session.commit(); }
    void rollback() noexcept override { m_session.rollback(); }
    [[nodiscard]] bool inTransaction() const override { return m_session.inTransaction(); }

    /// A session only begins with a server that can be written.
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
    /// False when the tables are still those that the catalog was read from.
    bool refreshCatalog();

    PostgresSession m_session;
    Catalog m_catalog;
    QByteArray m_catalogText; ///< what the catalog was made of
    bool m_hasCatalog = false;
};

} // namespace ebtq::db
