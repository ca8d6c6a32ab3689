#include "corpus.h"

#include "database/database_test.h"
#include "support/engine_database.h"

namespace ebtq::db::test {

namespace {

using namespace ebtq::test;

/// The statements of the corpus and what they must give, on every engine.
class CorpusTest : public ::testing::TestWithParam<std::tuple<Engine, CorpusCase>>
{
protected:
    /// Every case finds the rows as they were: it runs in a transaction that is rolled back.
    void SetUp() override
    {
        std::unique_ptr<Filled> &filled = s_filled[std::get<Engine>(GetParam())];
        if (!filled)
            filled = std::make_unique<Filled>(std::get<Engine>(GetParam()));
        m_connection = filled->connection.get();
        m_connection->begin();
    }
    void TearDown() override { m_connection->rollback(); }
    static void TearDownTestSuite() { s_filled.clear(); }

    Connection *m_connection = nullptr;

private:
    struct Filled
    {
        explicit Filled(Engine engine)
            : database(engine)
            , connection(database.connect())
        {
            fillDatabase(*connection);
        }
        EngineDatabase database;
        std::unique_ptr<Connection> connection;
    };
    static inline std::map<Engine, std::unique_ptr<Filled>> s_filled;
};

} // namespace

TEST_P(CorpusTest, GivesWhatItMust)
{
    const CorpusCase &each = std::get<CorpusCase>(GetParam());
    SCOPED_TRACE(each.statement.toStdString());
    if (!each.refusal.isEmpty()) {
        EXPECT_THAT(messageOf([&] { m_connection->execute(each.statement); }),
                    HasSubstr(each.refusal.toStdString()));
        return;
    }
    if (each.changed >= 0) {
        EXPECT_EQ(m_connection->execute(each.statement), each.changed);
        return;
    }
    const RowBlock block = m_connection->query(each.statement);
    if (each.runs) {
        EXPECT_EQ(joined(rowTexts(block)), joined(each.rows));
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, CorpusTest,
                         ::testing::Combine(::testing::Values(Engine::Sqlite, Engine::Postgres),
                                            ::testing::ValuesIn(corpus())),
                         [](const auto &each) {
                             return nameOf(std::get<Engine>(each.param)) + '_' +
                                    testName(each.index, std::get<CorpusCase>(each.param));
                         });

} // namespace ebtq::db::test
