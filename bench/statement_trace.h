#pragma once

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace ebtq::bench {

/// The statements that the engine runs while `work` lasts, as whole texts with their values.
[[nodiscard]] std::vector<QByteArray> statementsOf(sqlite3 *handle, const std::function<void()> &work);

/// Prepares a text, steps through its rows with every cell's text read, and lets it go: the least that a
/// program can do which is handed that text.
void runBare(sqlite3 *handle, const QByteArray &text);

/// The same for several texts, each prepared before the time is taken: a program that knows beforehand what
/// will be asked.
class PreparedStatements
{
public:
    PreparedStatements(sqlite3 *handle, const std::vector<QByteArray> &texts);
    void run() const;

private:
    std::vector<std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)>> m_statements;
};

/// The engine's own plan of a statement, a line for each step.
[[nodiscard]] QByteArray planOf(sqlite3 *handle, const QByteArray &text);

} // namespace ebtq::bench
