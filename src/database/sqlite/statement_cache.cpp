#include "database/sqlite/statement_cache.h"

#include "database/connection.h"
#include "database/sqlite/sqlite_error.h"

#include <sqlite3.h>

#include <algorithm>

namespace ebtq::db {

namespace {

constexpr size_t mostKept = 32;
constexpr qsizetype longestKept = 16 * 1024;

} // namespace

CachedStatement::~CachedStatement()
{
    if (!m_cached) {
        sqlite3_finalize(m_statement);
        return;
    }
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

CachedStatement StatementCache::prepare(const QByteArray &sql)
{
    const auto known = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry &entry) { return entry.sql == sql; });
    // A statement that is still being stepped is in use elsewhere.
    if (known != m_entries.end() && !sqlite3_stmt_busy(known->statement)) {
        m_entries.splice(m_entries.begin(), m_entries, known);
        return {known->statement, true};
    }
    if (sql.size() > longestKept || known != m_entries.end())
        return {make(sql), false};
    m_entries.push_front({sql, make(sql)});
    if (m_entries.size() > mostKept && !sqlite3_stmt_busy(m_entries.back().statement)) {
        sqlite3_finalize(m_entries.back().statement);
        m_entries.pop_back();
    }
    return {m_entries.front().statement, true};
}

void StatementCache::clear()
{
    for (const Entry &entry : m_entries)
        sqlite3_finalize(entry.statement);
    m_entries.clear();
}

sqlite3_stmt *StatementCache::make(const QByteArray &sql)
{
    sqlite3_stmt *statement = nullptr;
    const int result = sqlite3_prepare_v3(m_handle, sql.constData(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (result != SQLITE_OK)
        throw DatabaseError(sqliteErrorText(m_handle));
    return statement;
}

} // namespace ebtq::db
