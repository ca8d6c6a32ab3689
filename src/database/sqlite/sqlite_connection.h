#pragma once

#include "database/connection.h"
#include "database/dialect/translation_cache.h"
#include "database/list_counts.h"
#include "database/sqlite/file_state.h"
#include "database/sqlite/statement_cache.h"

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace ebtq::db {

/// The embedded engine through its C interface: rows are appended to a RowBlock's arena as they are stepped.
/// Write-ahead log with full synchronisation, so that a confirmed save survives a power cut.
class SqliteConnection final : public Connection
{
public:
    SqliteConnection(const QString &location, Missing missing);
    ~SqliteConnection() override;
    SqliteConnection(const SqliteConnection &) = delete;
    SqliteConnection &operator=(const SqliteConnection &) = delete;

    [[nodiscard]] RowBlock query(const SqlText &statement) override;
    qint64 execute(const SqlText &statement) override;
    void insertRows(const QString &table, const RowBlock &rows) override;
    [[nodiscard]] qint64 insertRow(const QString &table, const RowBlock &row, const NewBlob &blob) override;
    void readBlob(const BlobColumn &column, qint64 key, const PieceTaker &take) override;
    void readTable(const QString &table, const QStringList &columns, const BlockTaker &take) override;
    void beginReading() override;
    void executeNative(const QByteArray &script) override;
    [[nodiscard]] RowBlock queryNative(const QByteArray &statement) override;

    void begin(Flush flush) override;
    void commit() override;
    void rollback() noexcept override;
    [[nodiscard]] bool inTransaction() const override;
    [[nodiscard]] bool isReadOnly() const override;

    [[nodiscard]] const Dialect &dialect() const override;
    [[nodiscard]] const DdlWords &ddlWords() const override;
    /// The program itself registers the functions.
    [[nodiscard]] QByteArray missingFoundation() override { return {}; }
    [[nodiscard]] const Catalog &catalog() override;
    void setLockTimeout(int milliseconds) override;
    [[nodiscard]] QString location() const override { return m_location; }

    /// The engine's own handle, for measuring against it.
    [[nodiscard]] sqlite3 *handle() const { return m_handle.get(); }

private:
    struct Closer
    {
        void operator()(sqlite3 *handle) const;
    };

    void open(const QString &location, Missing missing);
    void openSealed();
    void configure(Missing missing);
    /// Throws when the file or its log was replaced or removed meanwhile: what is written would be lost.
    void requireSameFile();
    [[nodiscard]] FileIdentity log() const;
    template<class Run> auto runTranslated(const SqlText &statement, Run run);
    /// Prepares the statement, by its shape where it has one, and passes it to `run` with its values bound.
    template<class Run> auto runPrepared(const SqlText &statement, Run run);
    [[nodiscard]] const QByteArray &bestSql(const Translation &translation,
                                            const std::vector<StatementShape::Value> &values);
    [[nodiscard]] ListCounts countsFor(const Translation &translation);
    [[nodiscard]] Translation translated(const SqlText &statement);
    /// False when the schema has not changed since the catalog was read.
    bool refreshCatalog();
    [[nodiscard]] int schemaCookie();
    void run(const char *statement);
    [[noreturn]] void fail();

    QString m_location;
    QString m_path; ///< empty for a database in memory
    FileIdentity m_file;
    FileIdentity m_log; ///< of the log beside the file; all zero for a database without one
    std::unique_ptr<sqlite3, Closer> m_handle;
    std::unique_ptr<StatementCache> m_statements;
    TranslationCache m_translations; ///< by the catalog as it was read
    Catalog m_catalog;
    int m_catalogCookie = -1; ///< the schema version when the catalog was read; -1 before
};

} // namespace ebtq::db
