#pragma once

#include "library/records/editor_form.h"

#include <span>

namespace ebtq {

/// What the listing editor is made of, by its numbers.
struct EditorNumber
{
    enum Number : int {
        BillNumber,
        District,
        RegisteredOn,
        Block,
        Rooms,
        UsableArea,
        Building,
        Area,
        Room,
        AuthoredOn,
        Floors,
        Department,
        Author,
        Agent,
        Floor,
        BalconyUnit,
        Balconies,
        Orientation,
        Bathrooms,
        Halls,
        Usage,
        PropertyType,
        BuiltIn,
        Deal,
        State,
        SalePrice,
        SaleUnitPrice,
        LowestSalePrice,
        SaleTaxes,
        Rent,
        RentUnitPrice,
        LowestRent,
        PurchasePrice,
        EntrustedOn,
        EntrustedHow,
        HandedOverOn,
        EntrustNumber,
        ManagementFee,
        Source,
        Condition,
        Decoration,
        Facilities,
        Furniture,
        Appliances,
        PropertyRight,
        Certificate,
        Payment,
        Commission,
        Viewing,
        KeyNumber,
        Owner,
        Contact,
        Nationality,
        Mobile,
        Annex,
    };
    enum MemoNumber : int { ContactRemark, Remark };
};

/// In the order of their numbers.
[[nodiscard]] std::span<const EditorField> editorFields();
/// The row of fyxx; all its statements have one order.
[[nodiscard]] const RecordTable &listingRecord();

} // namespace ebtq
