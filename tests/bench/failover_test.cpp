#include "agents/agent.h"
#include "agents/crew.h"
#include "support/postgres_server.h"

#include <QDeadlineTimer>
#include <QSet>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace ebtq::test {

using namespace Qt::StringLiterals;
using bench::Outcome;
using bench::Save;

namespace {

constexpr int agentCount = 4;

/// How an agent's rounds go on while his server ends and comes back: two of them before, one that meets
/// nothing but failures, two afterwards.
class Outage
{
public:
    /// Each is done once every agent is ready for it.
    void pass(const std::function<void()> &end, const std::function<void()> &mend)
    {
        waitFor(m_working);
        end();
        m_state = Down;
        waitFor(m_refused);
        mend();
        mended = Save::Clock::now();
        m_state = Mended;
        m_state.notify_all();
    }
    /// Nobody is waited for any more.
    void giveUp()
    {
        m_state = GivenUp;
        m_state.notify_all();
    }
    /// Asked on each agent's thread.
    bool goesOn(int round)
    {
        thread_local int roundsDown = 0;
        thread_local int roundsAfter = 0;
        if (round == 2)
            ++m_working;
        if (m_state == Down && ++roundsDown == 2) {
            ++m_refused;
            m_state.wait(Down);
        }
        return m_state == Up || m_state == Down || (m_state == Mended && roundsAfter++ < 2);
    }

    Save::Clock::time_point mended;

private:
    enum State { Up, Down, Mended, GivenUp };
    static void waitFor(const std::atomic<int> &agents)
    {
        const QDeadlineTimer deadline(60000);
        while (agents < agentCount) {
            if (deadline.hasExpired())
                throw std::runtime_error("the agents do not go on");
            QThread::msleep(5);
        }
    }

    std::atomic<State> m_state = Up;
    std::atomic<int> m_working = 0;
    std::atomic<int> m_refused = 0;
};

/// Agents save without a break while their server is ended and another one, or the same again, takes its
/// place; what the database holds then must be what they were told.
void workThrough(const QString &url, const std::function<void()> &end, const std::function<void()> &mend)
{
    Outage outage;
    std::thread fate([&] {
        try {
            outage.pass(end, mend);
        } catch (const std::exception &failure) {
            ADD_FAILURE() << failure.what();
            outage.giveUp();
        }
    });
    const bench::Report report =
        bench::letWork(url, agentCount, [&](int round) { return outage.goesOn(round); });
    fate.join();

    const bench::Findings findings = bench::compare(*db::Connection::open(url), report.ledger);
    for (const QStringList &list : {findings.missing, findings.unasked, findings.duplicates})
        EXPECT_EQ(list.join(u'\n').toStdString(), "");
    QSet<QString> before;
    QSet<QString> after;
    for (const Save &save : report.ledger) {
        if (save.outcome == Outcome::Confirmed)
            (save.begin > outage.mended ? after : before).insert(save.text.section(u' ', 0, 0));
        else
            EXPECT_FALSE(save.told.isEmpty()) << save.text.toStdString();
    }
    EXPECT_EQ(before.size(), agentCount);
    EXPECT_EQ(after.size(), agentCount) << "somebody did not find the server again";
    EXPECT_FALSE(report.failures.isEmpty()) << "nobody was told that the server had gone";
    const QString password = url.section(u':', 2).section(u'@', 0, 0);
    EXPECT_TRUE(report.failures.filter(password).isEmpty()) << "the password was shown";
}

} // namespace

TEST(Failover, AServerThatIsKilledHoldsWhatItConfirmed)
{
    const PostgresServer server;
    bench::makeAgency(server.url(), 40);
    workThrough(
        server.url(), [&] { server.kill(); }, [&] { server.start(); });
}

TEST(Failover, AStandbyThatIsPromotedHoldsWhatThePrimaryConfirmed)
{
    const PostgresServer primary;
    bench::makeAgency(primary.url(), 40);
    const PostgresServer standby(PostgresServer::StandbyOf{primary});
    workThrough(
        primary.url().replace(primary.place(), primary.place() + u',' + standby.place()),
        [&] { primary.kill(); }, [&] { standby.promote(); });
}

} // namespace ebtq::test
