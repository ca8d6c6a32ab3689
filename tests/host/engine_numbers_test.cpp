#include "host/bill_numbers.h"
#include "host/host_database.h"
#include "host/setup.h"
#include "library/frame/id_generator.h"
#include "support/engine_database.h"
#include "support/messages.h"

#include <gmock/gmock.h>

#include <set>
#include <thread>

namespace ebtq::test {

namespace {

const QDate day(2026, 11, 22);

/// Numbers and keys while many programs ask at once, each over a connection of its own.
class EngineNumbersTest : public EngineTest
{
protected:
    [[nodiscard]] std::unique_ptr<db::Connection> patient() const
    {
        auto connection = connect();
        connection->setLockTimeout(120000);
        return connection;
    }
};

struct Taken
{
    std::vector<QString> codes;
    std::vector<int> keys;
    QStringList failures;
};

/// One save, which takes a number or a key, so that neither hides behind the other's lock. Every third is
/// given up.
void saveOnce(db::Connection &connection, int round, bool isKey, Taken &taken)
{
    host::HostDatabase database(connection);
    IdGenerator generator;
    generator.Init(database);
    database.BeginTrans();
    int key = 0;
    if (isKey)
        taken.failures << generator.NextID(u"pdmlpzd"_qs, u"楼盘ID"_qs, key);
    const QString code = isKey ? QString() : host::issueBillCode(connection, 101, day);
    if (round % 3 == 2)
        return database.RollbackTrans();
    database.CommitTrans();
    if (isKey)
        taken.keys.push_back(key);
    else
        taken.codes.push_back(code);
}

} // namespace

TEST_P(EngineNumbersTest, NoNumberAndNoKeyIsGivenTwiceOrLeftOut)
{
    constexpr size_t programs = 32;
    constexpr int rounds = 6;
    constexpr size_t saved = programs * rounds * 2 / 3;
    host::prepareDatabase(*patient());
    std::vector<Taken> taken(programs);
    std::vector<std::thread> threads;
    for (Taken &each : taken) {
        threads.emplace_back([&each, connection = patient()] {
            each.failures << QString::fromStdString(messageOf([&] {
                for (int save = 0; save < 2 * rounds; ++save) // all begin in a month without numbers
                    saveOnce(*connection, save % rounds, save < rounds, each);
            }));
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    std::set<QString> codes;
    std::set<int> keys;
    for (const Taken &each : taken) {
        EXPECT_EQ(each.failures.join(QString()).toStdString(), "");
        codes.insert(each.codes.begin(), each.codes.end());
        keys.insert(each.keys.begin(), each.keys.end());
    }
    ASSERT_EQ(codes.size(), saved);
    ASSERT_EQ(keys.size(), saved);
    EXPECT_EQ(*codes.begin(), host::billCode(u"FY", day, 1));
    EXPECT_EQ(*codes.rbegin(), host::billCode(u"FY", day, saved));
    EXPECT_EQ(*keys.begin(), 1);
    EXPECT_EQ(*keys.rbegin(), saved);
}

ON_EACH_ENGINE(EngineNumbersTest);

} // namespace ebtq::test
