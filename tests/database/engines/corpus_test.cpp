#include "corpus.h"

#include "database/database_test.h"
#include "support/engine_database.h"

namespace ebtq::db::test {

namespace {

using namespace ebtq::test;
using CorpusTest = EngineTest;

void expectOutcome(Connection &connection, const CorpusCase &each)
{
    const std::string failure = messageOf([&] {
        if (each.changed >= 0 || !each.refusal.isEmpty()) {
            EXPECT_EQ(connection.execute(each.statement), each.changed);
            return;
        }
        const RowBlock block = connection.query(each.statement);
        EXPECT_TRUE(!each.runs || rowTexts(block) == each.rows) << joined(rowTexts(block));
    });
    EXPECT_EQ(failure.empty(), each.refusal.isEmpty()) << failure;
    EXPECT_THAT(failure, HasSubstr(each.refusal.toStdString()));
}

} // namespace

TEST_P(CorpusTest, EachStatementGivesWhatItMust)
{
    const auto connection = connect();
    fillDatabase(*connection);
    for (const CorpusCase &each : corpus()) {
        SCOPED_TRACE(each.name + '\n' + each.statement.toStdString());
        connection->begin(); // each finds the rows as they were
        expectOutcome(*connection, each);
        connection->rollback();
    }
}

ON_EACH_ENGINE(CorpusTest);

} // namespace ebtq::db::test
