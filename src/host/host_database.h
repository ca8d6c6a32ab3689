#pragma once

#include "contracts/host_contracts.h"
#include "database/connection.h"

#include <QStringList>

#include <functional>

namespace ebtq::host {

/// The one database of a session as the modules see it.
///
/// Transactions nest by counting: BeginTrans within an open one joins it, and only the outermost CommitTrans
/// writes. RollbackTrans and Release undo all of it. BeginTrans and CommitTrans throw Failure when they
/// cannot do it: a module that went on would save one half without the other.
class HostDatabase : public HostDb
{
public:
    /// `connection` outlives this.
    explicit HostDatabase(db::Connection &connection)
        : m_connection(connection)
    {}

    [[nodiscard]] std::unique_ptr<HostQuery> CreateQuery(const SqlText &sql, int mode = 1) override;
    bool Release() override;
    void BeginTrans() override;
    void CommitTrans() override;
    void RollbackTrans() override;
    [[nodiscard]] HostDbError LastError() const override { return m_lastError; }
    [[nodiscard]] bool ReadOnly() const override { return m_connection.isReadOnly(); }
    [[nodiscard]] int ConnectionNumber() const override { return m_connection.connectionNumber(); }

    /// Called with the name of each changed table, once the change is committed.
    void setChangeReport(std::function<void(const QString &table)> report) { m_report = std::move(report); }

private:
    class Query;
    template<class Work> bool attempt(Work work);
    void requireTransaction() const;
    void noteChange(const SqlText &sql);
    void reportChanges();

    db::Connection &m_connection;
    HostDbError m_lastError;
    int m_depth = 0;
    QStringList m_changed; ///< tables, by what is not committed yet
    std::function<void(const QString &table)> m_report;
};

} // namespace ebtq::host
