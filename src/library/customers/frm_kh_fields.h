#pragma once

#include "library/records/editor_form.h"

#include <span>

namespace ebtq {

/// What the customer editor is made of, by its numbers.
struct CustomerNumber
{
    enum Number : int {
        BillNumber,
        Name,
        Kind,
        Grade,
        Telephone,
        Mail,
        OtherContact,
        District,
        Location,
        HouseType,
        Property,
        Usage,
        Orientation,
        Decoration,
        AreaFrom,
        AreaTo,
        FloorFrom,
        FloorTo,
        PriceFrom,
        PriceTo,
        Payment,
        Commission,
        Agreement,
        Source,
        Agent,
        EntrustedOn,
        RentFrom,
        RentTo,
        Author,
        AuthoredOn,
    };
    enum TickNumber : int { Buys, Rents };
    enum ButtonNumber : int { Save, Close, Top, Previous, Next, Bottom, Delete };
};

/// In the order of their numbers.
[[nodiscard]] std::span<const EditorField> customerFields();
/// The row of fykh. Load, INSERT and UPDATE have orders of their own.
[[nodiscard]] const RecordTable &customerRecord();

} // namespace ebtq
