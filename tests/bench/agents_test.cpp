#include "agents/agent.h"
#include "agents/crew.h"
#include "support/engine_database.h"

#include <gmock/gmock.h>

namespace ebtq::test {

using namespace Qt::StringLiterals;
using bench::Outcome;
using bench::Save;

namespace {

/// Agents who work at once, over connections of their own.
class AgentsTest : public EngineTest
{
protected:
    AgentsTest() { bench::makeAgency(location(), 200); }
};

int count(const QList<Save> &saves, Save::Kind kind, Outcome outcome)
{
    return static_cast<int>(std::ranges::count_if(
        saves, [=](const Save &save) { return save.kind == kind && save.outcome == outcome; }));
}

std::string text(const bench::Findings &findings)
{
    return (u"missing:"_s + findings.missing.join(u'\n') + u" unasked:"_s + findings.unasked.join(u'\n') +
            u" duplicates:"_s + findings.duplicates.join(u'\n'))
        .toStdString();
}

const std::string nothing = text({});

} // namespace

TEST_P(AgentsTest, NothingOfWhatManySaveAtOnceIsRefusedOrLost)
{
    constexpr int agents = 8;
    constexpr int rounds = 6;
    const bench::Report report = bench::letWork(location(), agents, [](int round) { return round < rounds; });
    EXPECT_EQ(report.failures.join(u'\n').toStdString(), "");
    for (const Save::Kind kind : {Save::NewListing, Save::ChangedListing, Save::FollowUp, Save::NewCustomer})
        EXPECT_EQ(count(report.ledger, kind, Outcome::Confirmed), agents * rounds) << kind;
    EXPECT_EQ(text(bench::compare(*connect(), report.ledger)), nothing);
}

ON_EACH_ENGINE(AgentsTest);

/// One agent, whose database is then damaged: a comparison that cannot find it would let everything pass.
class LedgerTest : public ::testing::Test
{
protected:
    LedgerTest()
    {
        bench::makeAgency(m_database.location(), 20);
        bench::Agent agent(m_database.location(), 0);
        agent.openList();
        agent.saveListing();
        agent.writeFollowUp();
        agent.saveCustomer();
        saves = agent.ledger();
    }
    [[nodiscard]] std::string found() const { return text(bench::compare(*connection, saves)); }

    EngineDatabase m_database{Engine::Sqlite};
    QList<Save> saves;
    std::unique_ptr<db::Connection> connection = m_database.connect();
};

TEST_F(LedgerTest, FindsWhatIsNotAsItWasTold)
{
    static constexpr std::tuple<const char *, const char16_t *, const char *> cases[] = {
        {"a text", u"update fyxx set 联系人='x',备注='x' where 房源ID='%1'", "missing:"},
        {"half of a save", u"update fyxx set 备注='x' where 房源ID='%1'", "missing:"},
        {"the number", u"update fyxx set 房源编号='x' where 房源ID='%1'", "missing:"},
        {"the listing", u"delete from fyxx where 房源ID='%1'", "missing:"},
        {"the follow-up", u"delete from fygj where 跟进ID='%2'", "missing:"},
        {"its owner", u"update fygj set 房源ID='x' where 跟进ID='%2'", "missing:"},
        {"a second number", u"update fyxx set 房源编号='%3' where 房源ID<>'%1'", "duplicates:"},
        {"half of a customer", u"update fykh set 备注='x' where 客源ID='%4'", "missing:"},
        {"a customer's number", u"update fykh set 客源编号='%3'", "duplicates:"},
    };
    ASSERT_EQ(saves.size(), 3);
    EXPECT_EQ(found(), nothing);
    for (const auto &[what, damage, list] : cases) {
        connection->begin();
        connection->execute(QString::fromUtf16(damage)
                                .replace(u"%1"_s, saves[0].key)
                                .replace(u"%2"_s, saves[1].key)
                                .replace(u"%3"_s, saves[0].number)
                                .replace(u"%4"_s, saves[2].key));
        EXPECT_THAT(found(), ::testing::ContainsRegex(std::string(list) + "[^ ]")) << what;
        connection->rollback();
    }
}

} // namespace ebtq::test
