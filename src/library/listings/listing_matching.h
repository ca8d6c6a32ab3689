#pragma once

#include "database/values/sql_text.h"
#include "library/lists/record_detail.h"

namespace ebtq {

/// Which customers suit a listing: those whose stored ranges hold each of the listing's measures. A bound
/// that a customer left open is stored as 0 and matches nothing, so a customer with only a lower bound is not
/// found from here, though the listing is found from the customer. Both searches are deliberate.

/// The statement that reads a listing's measures, with what names it in front of them.
[[nodiscard]] SqlText measuresStatement(const QString &listing);

/// The statement that looks for the customers of a listing with these measures. A floor is a text and counts
/// by its leading number. A measure that is not above 0 is not tested, so a listing without any suits
/// everybody.
[[nodiscard]] SqlText matchingCustomersStatement(const DetailRecord &measures);

/// The number of matching customers and of follow-ups of a listing, in one row.
[[nodiscard]] SqlText listingCountStatement(const QString &listing);

} // namespace ebtq
