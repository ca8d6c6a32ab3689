#pragma once

#include "host/demo/demo.h"
#include "host/demo/places.h"
#include "host/demo/staff.h"

#include <vector>

namespace ebtq::host {

/// What the other samples need to know of a listing or customer.
struct RecordKey
{
    QString id;
    QDate made;
};

/// Writes the listings; gives their keys.
[[nodiscard]] std::vector<RecordKey> writeListings(db::Connection &connection, const DemoOptions &options,
                                                   const std::vector<Building> &buildings,
                                                   const std::vector<Agent> &agents, Random &random,
                                                   const DemoProgress &progress);

/// A paper or two for some of the listings.
void writeAttachments(db::Connection &connection, const std::vector<RecordKey> &listings, Random &random);

} // namespace ebtq::host
