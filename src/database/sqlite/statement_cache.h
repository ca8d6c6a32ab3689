#pragma once

#include <QByteArray>

#include <list>

struct sqlite3;
struct sqlite3_stmt;

namespace ebtq::db {

/// A prepared statement in use: reset and returned to its cache at the end of the scope.
class CachedStatement
{
public:
    CachedStatement(sqlite3_stmt *statement, bool cached)
        : m_statement(statement)
        , m_cached(cached)
    {}
    CachedStatement(const CachedStatement &) = delete;
    CachedStatement &operator=(const CachedStatement &) = delete;
    ~CachedStatement();
    [[nodiscard]] sqlite3_stmt *get() const { return m_statement; }

private:
    sqlite3_stmt *m_statement;
    bool m_cached;
};

/// The statements prepared last, by their text: a list that is refreshed and a detail that follows the
/// current row are prepared once. Long texts, such as a row with a document in it, are not kept.
class StatementCache
{
public:
    explicit StatementCache(sqlite3 *handle)
        : m_handle(handle)
    {}
    StatementCache(const StatementCache &) = delete;
    StatementCache &operator=(const StatementCache &) = delete;
    ~StatementCache() { clear(); }

    /// Throws DatabaseError when the engine refuses the text.
    [[nodiscard]] CachedStatement prepare(const QByteArray &sql);
    void clear();

private:
    struct Entry
    {
        QByteArray sql;
        sqlite3_stmt *statement;
    };
    sqlite3_stmt *make(const QByteArray &sql);

    sqlite3 *m_handle;
    std::list<Entry> m_entries; ///< most recently used first
};

} // namespace ebtq::db
