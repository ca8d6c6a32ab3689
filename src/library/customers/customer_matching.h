#pragma once

#include "database/values/sql_text.h"
#include "library/lists/record_detail.h"

namespace ebtq {

/// Which listings suit a customer's request: those whose measures lie within every bound that the customer
/// has set. A bound of 0 is none. The search from a listing (listing_matching.h) takes bounds as they are
/// stored instead.

/// The statement that reads a request, with its department and agent.
[[nodiscard]] SqlText requestStatement(const QString &customer);

/// The statement that looks for them. A floor is a text and counts by its leading number.
[[nodiscard]] SqlText matchingListingsStatement(const DetailRecord &customer);

/// The number of matching listings and of follow-ups of a request, in one row.
[[nodiscard]] SqlText customerCountStatement(const QString &customer);

} // namespace ebtq
