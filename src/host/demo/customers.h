#pragma once

#include "host/demo/listings.h"

namespace ebtq::host {

/// Writes the customers' requests; gives their keys.
[[nodiscard]] std::vector<RecordKey> writeCustomers(db::Connection &connection, const DemoOptions &options,
                                                    const std::vector<Building> &buildings,
                                                    const std::vector<Agent> &agents, Random &random,
                                                    const DemoProgress &progress);

/// Writes follow-ups of listings and customers, some with reminders.
void writeFollowUps(db::Connection &connection, const DemoOptions &options,
                    const std::vector<RecordKey> &listings, const std::vector<RecordKey> &customers,
                    const std::vector<Agent> &agents, Random &random, const DemoProgress &progress);

} // namespace ebtq::host
