#include "host/host_database.h"

#include "host/table_recordset.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ebtq::host {

/// Runs `work`; a failure becomes the last error, a success clears it.
template<class Work> bool HostDatabase::attempt(Work work)
{
    m_lastError.Description.clear();
    try {
        work();
    } catch (const std::exception &failure) {
        m_lastError.Description = QString::fromUtf8(failure.what());
        // An empty text would read as success.
        if (m_lastError.Description.isEmpty())
            m_lastError.Description = u"数据库操作失败！"_s;
    }
    return m_lastError.Description.isEmpty();
}

class HostDatabase::Query : public HostQuery
{
public:
    Query(HostDatabase &database, SqlText sql)
        : m_database(database)
        , m_sql(std::move(sql))
    {}

    void Execute(const QVariant & /*unused*/) override
    {
        m_rowsChanged.reset();
        m_database.attempt([this] {
            m_database.requireTransaction();
            m_rowsChanged = m_database.m_connection.execute(m_sql);
            m_database.noteChange(m_sql);
        });
    }
    QVariant Scalar(const QVariant & /*unused*/) override
    {
        const RowBlock rows = select();
        return rows.rowCount() == 0 ? QVariant() : rows.value(0, 0);
    }
    std::unique_ptr<Recordset> Open(const QVariant & /*unused*/) override
    {
        static const QRegularExpression source(
            u"^\\s*select\\b.*?\\bfrom\\s+(\\w+)\\s*(?:$|where\\b|order\\b)"_s,
            QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption |
                QRegularExpression::UseUnicodePropertiesOption);
        return std::make_unique<TableRecordset>(select(), source.match(m_sql.text()).captured(1),
                                                m_database.m_connection);
    }

    std::optional<qint64> RowsChanged() const override { return m_rowsChanged; }

private:
    RowBlock select()
    {
        RowBlock rows;
        m_database.attempt([&] {
            m_database.requireTransaction();
            rows = m_database.m_connection.query(m_sql);
        });
        return rows;
    }

    HostDatabase &m_database;
    SqlText m_sql;
    std::optional<qint64> m_rowsChanged;
};

std::unique_ptr<HostQuery> HostDatabase::CreateQuery(const SqlText &sql, int /*mode*/)
{
    return std::make_unique<Query>(*this, sql);
}

/// A server that went away took the transaction along. What a module still does before it hears of that must
/// not be saved piece by piece.
void HostDatabase::requireTransaction() const
{
    if (m_depth > 0 && !m_connection.inTransaction())
        throw Failure(u"事务已丢失，数据没有保存，请重试！"_s);
}

void HostDatabase::noteChange(const SqlText &sql)
{
    static const QRegularExpression target(u"^\\s*(?:insert\\s+into|update|delete\\s+from)\\s+(\\w+)"_s,
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::UseUnicodePropertiesOption);
    m_changed.append(target.match(sql.text()).captured(1).toLower());
    if (m_depth == 0)
        reportChanges();
}

void HostDatabase::reportChanges()
{
    const QStringList changed = std::exchange(m_changed, {});
    for (const QString &table : changed) {
        if (m_report)
            m_report(table);
    }
}

bool HostDatabase::Release()
{
    m_depth = 0;
    m_changed.clear();
    m_connection.rollback();
    return true;
}

void HostDatabase::BeginTrans()
{
    if (m_depth == 0 && !attempt([this] { m_connection.begin(); }))
        throw Failure(m_lastError.Description);
    ++m_depth;
}

void HostDatabase::CommitTrans()
{
    if (m_depth == 0)
        throw Failure(u"没有可提交的事务，数据没有保存！"_s);
    if (--m_depth > 0)
        return;
    if (attempt([this] { m_connection.commit(); }))
        return reportChanges();
    m_connection.rollback();
    throw Failure(m_lastError.Description);
}

void HostDatabase::RollbackTrans()
{
    m_depth = 0;
    m_changed.clear();
    m_connection.rollback();
}

} // namespace ebtq::host
