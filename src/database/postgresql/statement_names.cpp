#include "database/postgresql/statement_names.h"

#include <algorithm>

namespace ebtq::db {

namespace {

constexpr size_t mostKept = 32;
constexpr qsizetype longestKept = 16 * 1024;

} // namespace

StatementNames::Answer StatementNames::ask(const QByteArray &statement)
{
    if (statement.size() > longestKept)
        return {Use::Directly, {}, {}};
    const auto known = std::ranges::find(m_entries.begin(), m_entries.end(), statement, &Entry::statement);
    if (known == m_entries.end()) {
        m_entries.push_front({statement, {}});
        QByteArray replaced;
        if (m_entries.size() > mostKept) {
            replaced = m_entries.back().name;
            m_entries.pop_back();
        }
        return {Use::Directly, {}, replaced};
    }
    m_entries.splice(m_entries.begin(), m_entries, known);
    if (!known->name.isEmpty())
        return {Use::Prepared, known->name, {}};
    known->name = makeName();
    return {Use::PrepareFirst, known->name, {}};
}

QByteArray StatementNames::makeName()
{
    return "ebtq_" + QByteArray::number(++m_lastName);
}

} // namespace ebtq::db
