#include "statement_trace.h"

#include "measure.h"

#include <sqlite3.h>

#include <stdexcept>

namespace ebtq::bench {

namespace {

int keepText(unsigned, void *texts, void *statement, void *)
{
    const std::unique_ptr<char, decltype(&sqlite3_free)> text(
        sqlite3_expanded_sql(static_cast<sqlite3_stmt *>(statement)), sqlite3_free);
    static_cast<std::vector<QByteArray> *>(texts)->emplace_back(text.get());
    return 0;
}

using Prepared = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)>;

Prepared prepared(sqlite3 *handle, const QByteArray &text)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(handle, text.constData(), static_cast<int>(text.size()), &statement, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
    return {statement, sqlite3_finalize};
}

void stepThrough(sqlite3_stmt *statement)
{
    const int columns = sqlite3_column_count(statement);
    size_t bytes = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column) {
            keep(reinterpret_cast<size_t>(sqlite3_column_text(statement, column)));
            bytes += static_cast<size_t>(sqlite3_column_bytes(statement, column));
        }
    }
    keep(bytes);
}

} // namespace

std::vector<QByteArray> statementsOf(sqlite3 *handle, const std::function<void()> &work)
{
    std::vector<QByteArray> texts;
    sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, keepText, &texts);
    work();
    sqlite3_trace_v2(handle, 0, nullptr, nullptr);
    return texts;
}

void runBare(sqlite3 *handle, const QByteArray &text)
{
    stepThrough(prepared(handle, text).get());
}

PreparedStatements::PreparedStatements(sqlite3 *handle, const std::vector<QByteArray> &texts)
{
    for (const QByteArray &text : texts)
        m_statements.push_back(prepared(handle, text));
}

void PreparedStatements::run() const
{
    for (const Prepared &statement : m_statements) {
        stepThrough(statement.get());
        sqlite3_reset(statement.get());
    }
}

QByteArray planOf(sqlite3 *handle, const QByteArray &text)
{
    const Prepared statement = prepared(handle, "explain query plan " + text);
    QByteArray plan;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        plan += reinterpret_cast<const char *>(sqlite3_column_text(statement.get(), 3)) + QByteArray("\n");
    return plan;
}

} // namespace ebtq::bench
