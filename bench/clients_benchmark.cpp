#include "agents/agent.h"
#include "agents/crew.h"
#include "benchmarks.h"
#include "measure.h"
#include "pgbench.h"
#include "scratch_server.h"

#include <QElapsedTimer>
#include <QJsonObject>

#include <algorithm>
#include <iostream>
#include <mutex>

namespace ebtq::bench {

namespace {

/// The number of a new listing or customer is given out by a transaction of its own, before that of its row:
/// who asks at the same time waits for the number only.
constexpr int transactionsOfNumbered = 2;

struct Operation
{
    QString name;
    std::vector<double> times; ///< milliseconds
};

std::vector<double> timesOf(const Report &report, Save::Kind kind)
{
    std::vector<double> times;
    for (const Save &save : report.ledger) {
        if (save.kind == kind)
            times.push_back(std::chrono::duration<double, std::milli>(save.end - save.begin).count());
    }
    return times;
}

/// The time that this share of all stay below.
double quantile(std::vector<double> times, double share)
{
    if (times.empty())
        return 0;
    const auto at =
        times.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(times.size() - 1));
    std::nth_element(times.begin(), at, times.end());
    return *at;
}

double transactions(const Report &report)
{
    double count = 0;
    for (const Save &save : report.ledger)
        count += save.kind == Save::NewListing || save.kind == Save::NewCustomer ? transactionsOfNumbered : 1;
    return count;
}

void addFigures(QJsonObject &result, const QString &prefix, const Report &report, double baseline)
{
    const Operation operations[] = {{QStringLiteral("open"), report.openings},
                                    {QStringLiteral("new"), timesOf(report, Save::NewListing)},
                                    {QStringLiteral("change"), timesOf(report, Save::ChangedListing)},
                                    {QStringLiteral("follow_up"), timesOf(report, Save::FollowUp)},
                                    {QStringLiteral("customer"), timesOf(report, Save::NewCustomer)}};
    for (const Operation &operation : operations) {
        const QString name = prefix + operation.name;
        const double rate = static_cast<double>(operation.times.size()) / report.seconds;
        result.insert(name + QStringLiteral("_per_s"), rounded(rate));
        result.insert(name + QStringLiteral("_median_ms"), rounded(quantile(operation.times, 0.5)));
        result.insert(name + QStringLiteral("_p95_ms"), rounded(quantile(operation.times, 0.95)));
    }
    const double rate = transactions(report) / report.seconds;
    result.insert(prefix + QStringLiteral("transactions_per_s"), rounded(rate));
    result.insert(prefix + QStringLiteral("ratio"), rounded(rate / baseline));
}

/// What was told instead of a confirmation.
QStringList errorsOf(const Report &report)
{
    QStringList errors = report.failures;
    for (const Save &save : report.ledger) {
        if (save.outcome != Outcome::Confirmed)
            errors.append(save.text + QStringLiteral(": ") + save.told);
    }
    return errors;
}

/// Each finding on a line of its own; how many there are.
int tell(const char *kind, const QStringList &findings)
{
    for (const QString &finding : findings)
        std::cerr << kind << ": " << qPrintable(finding) << '\n';
    return static_cast<int>(findings.size());
}

Report workFor(const Options &options, const QString &base, const Habits &habits)
{
    QElapsedTimer clock;
    std::once_flag begun;
    const auto goesOn = [&](int) {
        std::call_once(begun, [&] { clock.start(); });
        return !clock.hasExpired(options.seconds * 1000LL);
    };
    return letWork(base, options.clients, goesOn, habits);
}

/// What went wrong, by kind; each is told as well.
QJsonObject faults(db::Connection &connection, const Report &whole)
{
    const Findings findings = compare(connection, whole.ledger);
    return {{QStringLiteral("errors"), tell("error", errorsOf(whole))},
            {QStringLiteral("missing"), tell("missing", findings.missing)},
            {QStringLiteral("unasked"), tell("unasked", findings.unasked)},
            {QStringLiteral("duplicates"), tell("duplicate", findings.duplicates)}};
}

QJsonObject figures(const Options &options, const Report &day, const Report &saving, double baseline)
{
    QJsonObject result{{QStringLiteral("benchmark"), QStringLiteral("clients")},
                       {QStringLiteral("clients"), options.clients},
                       {QStringLiteral("listings"), options.rows},
                       {QStringLiteral("pgbench_simple_update_per_s"), rounded(baseline)}};
    addFigures(result, QString(), day, baseline);
    addFigures(result, QStringLiteral("saving_"), saving, baseline);
    return result;
}

/// As many looks as the machine is able to do are all of its time, so that the ones that the desktops really
/// do are their share of it. Client and server are the same machine: the server's own share is smaller.
void addPolls(QJsonObject &result, int clients, const Report &polls)
{
    constexpr double secondsBetween = 300; // a desktop looks every five minutes
    const double possible = static_cast<double>(polls.polls.size()) / polls.seconds;
    result.insert(QStringLiteral("polls_per_s"), rounded(possible));
    result.insert(QStringLiteral("poll_median_ms"), rounded(quantile(polls.polls, 0.5)));
    result.insert(QStringLiteral("poll_share"), clients / secondsBetween / possible);
}

} // namespace

/// Three times: as an agent's day goes, with a list opened between all saves; with saves only, which is what
/// the server's simple updates can be compared with; and looking for reminders only.
int clientsBenchmark(const Options &options)
{
    const MeasuredServer server(options.database);
    const double baseline =
        simpleUpdateRate(ScratchBase(server.url()).url(), options.clients, options.seconds);
    const ScratchBase base(server.url());
    makeAgency(base.url(), options.rows);
    const auto connection = db::Connection::open(base.url());
    connection->executeNative("analyze");
    const Report day = workFor(options, base.url(), {});
    const Report saving = workFor(options, base.url(), {options.clients, Work::Saves});
    const Report polls = workFor(options, base.url(), {options.clients, Work::Reminders});
    const Report whole{
        day.ledger + saving.ledger, day.failures + saving.failures + polls.failures, {}, {}, 0};
    QJsonObject result = figures(options, day, saving, baseline);
    addPolls(result, options.clients, polls);
    bool isRight = !day.ledger.isEmpty() && !saving.ledger.isEmpty();
    const QJsonObject wrong = faults(*connection, whole);
    for (auto kind = wrong.begin(); kind != wrong.end(); ++kind) {
        isRight = isRight && kind.value().toInt() == 0;
        result.insert(kind.key(), kind.value());
    }
    result.insert(QStringLiteral("saves"), whole.ledger.size());
    print(result);
    return isRight ? 0 : 1;
}

} // namespace ebtq::bench
