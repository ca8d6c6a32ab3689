#include "agents/crew.h"

#include "agents/agent.h"

#include <latch>
#include <thread>

namespace ebtq::bench {

namespace {

double secondsOf(const std::function<void()> &work)
{
    const auto begin = Save::Clock::now();
    work();
    return std::chrono::duration<double>(Save::Clock::now() - begin).count();
}

/// What all agents of a crew keep to.
struct Shift
{
    const QString &database;
    const std::function<bool(int round)> &goesOn;
    const Habits &habits;
    std::latch begin;
};

void work(Agent &agent, const Shift &shift, Report &report)
{
    for (int round = 0; shift.goesOn(round); ++round) {
        if (shift.habits.work == Work::Reminders) {
            report.polls.push_back(secondsOf([&] { agent.lookForReminders(); }) * 1000);
            continue;
        }
        if (round == 0 || shift.habits.work == Work::Day)
            report.openings.push_back(secondsOf([&] { agent.openList(); }) * 1000);
        agent.saveListing();
        agent.changeListing();
        agent.writeFollowUp();
        agent.saveCustomer();
    }
    report.ledger = agent.ledger();
    report.failures = agent.failures();
}

void workFromBegin(int number, Shift &shift, Report &report)
{
    try {
        Agent agent(shift.database, shift.habits.firstNumber + number);
        shift.begin.arrive_and_wait();
        work(agent, shift, report);
    } catch (const std::exception &failure) {
        report.failures.append(QString::fromUtf8(failure.what()));
        shift.begin.count_down();
    }
}

Report together(const std::vector<Report> &reports)
{
    Report whole;
    for (const Report &report : reports) {
        whole.ledger += report.ledger;
        whole.failures += report.failures;
        whole.openings.insert(whole.openings.end(), report.openings.begin(), report.openings.end());
        whole.polls.insert(whole.polls.end(), report.polls.begin(), report.polls.end());
    }
    return whole;
}

} // namespace

Report letWork(const QString &database, int agents, const std::function<bool(int round)> &goesOn,
               const Habits &habits)
{
    std::vector<Report> reports(static_cast<size_t>(agents));
    Shift shift{database, goesOn, habits, std::latch(agents + 1)};
    std::vector<std::thread> threads;
    for (int number = 0; number < agents; ++number)
        threads.emplace_back(
            [&, number] { workFromBegin(number, shift, reports[static_cast<size_t>(number)]); });
    shift.begin.arrive_and_wait();
    const double seconds = secondsOf([&] {
        for (std::thread &thread : threads)
            thread.join();
    });
    Report whole = together(reports);
    whole.seconds = seconds;
    return whole;
}

} // namespace ebtq::bench
