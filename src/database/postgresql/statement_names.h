#pragma once

#include <QByteArray>

#include <list>

namespace ebtq::db {

/// Which statements of a session are prepared under which names. Only what comes a second time is worth a
/// name: the list that is refreshed, the detail that follows the current row. Long texts are never kept.
class StatementNames
{
public:
    enum class Use { Directly, PrepareFirst, Prepared };
    struct Answer
    {
        Use use;
        QByteArray name;
        QByteArray replaced; ///< a name that the server may forget; empty for none
    };

    /// What to do with a statement; each call counts as a use.
    [[nodiscard]] Answer ask(const QByteArray &statement);
    void clear() { m_entries.clear(); }

private:
    struct Entry
    {
        QByteArray statement;
        QByteArray name; ///< empty: seen once
    };
    QByteArray makeName();

    std::list<Entry> m_entries; ///< used last in front
    int m_lastName = 0;
};

} // namespace ebtq::db
