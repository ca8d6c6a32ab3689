#pragma once

#include "database/values/sql_text.h"
#include "library/lists/list_grid.h"

#include <QString>

namespace ebtq {

/// Columns of the grid of listings that are addressed by number.
enum ListingColumn : int {
    ListingMarker = 0, ///< icon of a listing with attachments
    ListingNumber = 1,
    ListingBlock = 6, ///< hidden
    ListingRoom = 7,  ///< hidden
    ListingSalePrice = 14,
    ListingRent = 15,
    ListingKey = 19,        ///< hidden
    ListingAttachments = 20 ///< hidden; their number
};

[[nodiscard]] const ListGrid &listingGrid();

/// The statement that loads the list. All joins are left joins, so that a listing without a department shows;
/// its user in two departments shows it twice. `where` is a whole where clause or empty.
[[nodiscard]] SqlText listingStatement(int moduleId, const SqlText &where);
/// The same for one listing; its columns have names.
[[nodiscard]] SqlText listingRowStatement(int moduleId, const QString &listing);

} // namespace ebtq
