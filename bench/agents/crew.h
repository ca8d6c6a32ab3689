#pragma once

#include "agents/ledger.h"

#include <functional>
#include <vector>

namespace ebtq::bench {

/// What agents did and were told, all of them together.
struct Report
{
    QList<Save> ledger;
    QStringList failures;
    std::vector<double> openings; ///< milliseconds of each opening of the list
    std::vector<double> polls;    ///< milliseconds of each look for reminders that are due
    double seconds = 0;           ///< from the first agent's beginning to the last one's end
};

/// What agents do over and over.
enum class Work {
    Day,      ///< opens the list, saves a listing, changes one, writes a follow-up and a customer
    Saves,    ///< the same, but stays in the list that he has opened first
    Reminders ///< looks for the reminders that are due, as the desktop does by itself
};

struct Habits
{
    int firstNumber = 0; ///< of the agents; what two crews save is told apart by it
    Work work = Work::Day;
};

/// Lets agents work at once, each on a thread of its own, while `goesOn` says so for the round, counted from
/// 0. They begin together once all are signed in. `goesOn` is asked on their threads.
[[nodiscard]] Report letWork(const QString &database, int agents,
                             const std::function<bool(int round)> &goesOn, const Habits &habits = {});

} // namespace ebtq::bench
