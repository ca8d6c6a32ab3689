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
    double seconds = 0;           ///< from the first agent's beginning to the last one's end
};

struct Habits
{
    int firstNumber = 0;       ///< of the agents; what two crews save is told apart by it
    bool opensOneList = false; ///< each agent stays in the list that he has opened first
};

/// Lets agents work at once, each on a thread of its own: each opens the list, saves a listing, changes one
/// and writes a follow-up, over and over while `goesOn` says so for the round, counted from 0. They begin
/// together once all are signed in. `goesOn` is asked on their threads.
[[nodiscard]] Report letWork(const QString &database, int agents,
                             const std::function<bool(int round)> &goesOn, const Habits &habits = {});

} // namespace ebtq::bench
