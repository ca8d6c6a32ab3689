#pragma once

#include "database/connection.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>

namespace ebtq::bench {

/// What became of a save, as the person was told.
enum class Outcome {
    Confirmed,
    Refused, ///< nothing may have been written
    Unknown, ///< the answer was lost: it may have been written or not
};

/// One save that an agent tried.
struct Save
{
    using Clock = std::chrono::steady_clock;
    enum Kind { NewListing, ChangedListing, FollowUp, NewCustomer };

    Kind kind = NewListing;
    Outcome outcome = Outcome::Refused;
    QString text = {};    ///< what was written, unlike that of any other save
    QString key = {};     ///< 房源ID, 跟进ID or 客源ID; of a new row only when it was confirmed
    QString listing = {}; ///< the 房源ID that a follow-up belongs to
    QString number = {};  ///< 房源编号 or 客源编号 of a confirmed new row
    QString told = {};    ///< why it was not confirmed
    Clock::time_point begin = {};
    Clock::time_point end = {};
};

/// What a database holds otherwise than the agents were told; each text is for a developer.
struct Findings
{
    QStringList missing;    ///< confirmed, but not there as it was written
    QStringList unasked;    ///< refused, but there
    QStringList duplicates; ///< document numbers of more than one listing or customer

    [[nodiscard]] bool isEmpty() const
    {
        return missing.isEmpty() && unasked.isEmpty() && duplicates.isEmpty();
    }
};

/// Compares the database with what all of its agents were told. A listing must hold, whole, the last of its
/// confirmed saves, or one of those that were under way together with it; one whose outcome is unknown may
/// stand in its place.
[[nodiscard]] Findings compare(db::Connection &connection, const QList<Save> &saves);

} // namespace ebtq::bench
