#pragma once

#include "library/lists/record_detail.h"

namespace ebtq {

/// Tabs of a listing's detail, by number.
enum ListingDetailTab : int { ListingTab = 1, OwnerTab, FollowUpsTab, CustomersTab, PicturesTab };

[[nodiscard]] std::span<const DetailField> detailFields();
/// Boxes of the owner's tab.
[[nodiscard]] std::span<const DetailBox> detailBoxes();

} // namespace ebtq
