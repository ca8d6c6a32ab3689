#pragma once

#include "library/lists/record_list.h"

namespace ebtq {

/// Columns of the grid of listings that are addressed by number.
enum ListingColumn : int {
    ListingMarker, ///< icon of a listing with attachments
    ListingNumber,
    ListingDeal,
    ListingState,
    ListingDistrict,
    ListingBuilding,
    ListingBlock, ///< hidden
    ListingRoom,  ///< hidden
    ListingFloor,
    ListingAnnex,
    ListingRooms,
    ListingArea,
    ListingFacing,
    ListingFitting,
    ListingSalePrice,
    ListingRent,
    ListingDate,
    ListingDepartment,
    ListingAgent,
    ListingKey,        ///< hidden
    ListingAttachments ///< hidden; their number
};

/// Numbers of the filter fields.
namespace ListingFilter {
enum Field : int { District = 0, Rooms = 1, State = 3, Department = 4, Agent = 5, Building = 7 };
}

[[nodiscard]] const ListTables &listingList();
[[nodiscard]] const RecordListTables &listingRecords();

/// The statement that loads the list. All joins are left joins, so that a listing without a department shows;
/// its user in two departments shows it twice. `where` is a whole where clause or empty.
[[nodiscard]] SqlText listingStatement(int moduleId, const SqlText &where);
/// The same for one listing; its columns have names.
[[nodiscard]] SqlText listingRowStatement(int moduleId, const QString &listing);

} // namespace ebtq
