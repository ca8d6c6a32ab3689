#pragma once

#include "library/controls/nav_toolbar.h"

#include <QString>

#include <span>
#include <vector>

namespace ebtq {

/// How a filter field of the listing list is looked up: with a picker of the host, or with a list of the host
/// that its check statement and help code name.
struct ListingField
{
    int number;
    QStringView caption;
    QStringView pickerName; ///< empty for a list
    QStringView valueColumn;
    QStringView textColumn;
    QStringView helpCode;
    QStringView checkStatement; ///< "@" stands for the typed text
};

[[nodiscard]] std::span<const ListingField> listingFields();
[[nodiscard]] const ListingField &listingField(int number);

/// Buttons and separators of the listing list's tool bar.
[[nodiscard]] std::vector<NavToolbar::Item> listingCommands();

} // namespace ebtq
