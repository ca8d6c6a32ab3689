#pragma once

#include "agents/ledger.h"

#include <memory>

namespace ebtq::bench {

/// Fills an empty database with the invented agency that agents work in.
void makeAgency(const QString &database, int listings);

/// One agent of the invented agency at his own machine: a connection, a host and the list of listings with
/// its editors, driven by the buttons and fields that a person uses, but without a screen. He notes what he
/// was told of each save and goes on, whatever was refused; a connection that broke is found again by the
/// next operation. Agents share nothing: any number of them may work at once, each on the thread that made
/// it.
class Agent
{
public:
    /// `database` is an agency's file or URL, `number` tells who he is and what he chooses. Throws when the
    /// database cannot be opened.
    Agent(const QString &database, int number);
    ~Agent();

    /// Opens the list with the next of some filters. False when it could not be loaded.
    bool openList();
    /// Writes a new listing.
    void saveListing();
    /// Writes a new customer.
    void saveCustomer();
    /// Changes one of the newest listings of the list, and the next writes a follow-up on one; nothing when
    /// the list is empty. Several agents meet at the same listings.
    void changeListing();
    void writeFollowUp();
    /// As the desktop does by itself, apart from any list that is open.
    void lookForReminders();

    /// Every save whose form was open, in order.
    [[nodiscard]] const QList<Save> &ledger() const;
    /// Failures of anything but a save, as they were told: a list or a form that could not be loaded.
    [[nodiscard]] const QStringList &failures() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace ebtq::bench
