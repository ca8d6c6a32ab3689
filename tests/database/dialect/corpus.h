#pragma once

#include "database/connection.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace ebtq::db::test {

/// One statement of statements.txt with what it must give.
struct CorpusCase
{
    std::string name;
    QString statement;
    QStringList rows;    ///< "> ": cells parted by |, Null as ∅
    qint64 changed = -1; ///< "= ": rows changed; -1 for a select
    QString refusal;     ///< "! ": a part of the message; empty when the statement is good
    bool runs = true;    ///< "? ": translated and prepared, but what it gives differs from day to day
};

[[nodiscard]] const std::vector<CorpusCase> &corpus();

/// The schema and the rows of rows.txt.
void fillDatabase(Connection &connection);
/// The same in memory.
[[nodiscard]] std::unique_ptr<Connection> filledDatabase();

/// The rows of a result in the form of CorpusCase.
[[nodiscard]] QStringList rowTexts(const RowBlock &block);

} // namespace ebtq::db::test
