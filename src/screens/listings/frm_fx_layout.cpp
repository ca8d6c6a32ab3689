#include "screens/listings/frm_fx_layout.h"

#include "library/listings/frm_fx_fields.h"

namespace ebtq {

namespace {

using F = EditorNumber;
using enum EditorCell::Group;
using enum EditorCell::Kind;

constexpr EditorCell cells[] = {
    {Basics, 0, 0, Field, F::BillNumber},
    {Basics, 0, 1, Required, F::District},
    {Basics, 0, 2, Required, F::Building},
    {Basics, 0, 3, Required, F::Block},
    {Basics, 0, 4, Field, F::Room},
    {Basics, 1, 0, Field, F::Floor},
    {Basics, 1, 1, Field, F::Floors},
    {Basics, 1, 2, Rooms, F::Rooms},
    {Basics, 1, 4, Field, F::Area},
    {Basics, 2, 0, Field, F::UsableArea},
    {Basics, 2, 1, Field, F::Orientation},
    {Basics, 2, 2, Field, F::Usage},
    {Basics, 2, 3, Field, F::PropertyType},
    {Basics, 2, 4, Field, F::BuiltIn},

    {Deal, 0, 0, Required, F::Deal},
    {Deal, 0, 1, Required, F::State},
    {Deal, 0, 2, Field, F::SalePrice},
    {Deal, 0, 3, Computed, F::SaleUnitPrice},
    {Deal, 0, 4, Field, F::LowestSalePrice},
    {Deal, 1, 0, Field, F::SaleTaxes},
    {Deal, 1, 1, Field, F::Rent},
    {Deal, 1, 2, Computed, F::RentUnitPrice},
    {Deal, 1, 3, Field, F::LowestRent},
    {Deal, 1, 4, Field, F::PurchasePrice},
    {Deal, 2, 0, Field, F::EntrustedOn},
    {Deal, 2, 1, Field, F::EntrustedHow},
    {Deal, 2, 2, Field, F::HandedOverOn},
    {Deal, 2, 3, Field, F::EntrustNumber},
    {Deal, 2, 4, Field, F::ManagementFee},

    {House, 0, 0, Field, F::Source},
    {House, 0, 1, Field, F::Condition},
    {House, 0, 2, Field, F::Decoration},
    {House, 0, 3, Field, F::Facilities},
    {House, 0, 4, Field, F::Furniture},
    {House, 1, 0, Field, F::Appliances},
    {House, 1, 1, Field, F::PropertyRight},
    {House, 1, 2, Field, F::Certificate},
    {House, 1, 3, Field, F::Payment},
    {House, 1, 4, Field, F::Commission},
    {House, 2, 0, Field, F::Viewing},
    {House, 2, 1, Field, F::KeyNumber},
    {House, 2, 2, Field, F::Annex},
    {House, 2, 3, Field, F::RegisteredOn},
    {House, 2, 4, Field, F::Agent},

    {Owner, 0, 0, Field, F::Owner},
    {Owner, 0, 1, Field, F::Contact},
    {Owner, 0, 2, Field, F::Nationality},
    {Owner, 0, 3, Field, F::Mobile},
    {Owner, 0, 4, Field, F::Department},
    {Owner, 1, 0, Memo, F::ContactRemark},
    {Owner, 1, 2, Memo, F::Remark},
    {Owner, 1, 4, Field, F::Author},
    {Owner, 2, 4, Field, F::AuthoredOn},
};

constexpr QStringView titles[] = {u"交易与价格", u"房屋与手续", u"业主与备注"};
constexpr RoomCount rooms[] = {{F::Rooms, F::Halls},
                               {F::Halls, F::Bathrooms},
                               {F::Bathrooms, F::Balconies},
                               {F::Balconies, F::BalconyUnit}};

} // namespace

std::span<const EditorCell> editorCells()
{
    return cells;
}

std::span<const QStringView> editorGroupTitles()
{
    return titles;
}

std::span<const RoomCount> roomCounts()
{
    return rooms;
}

} // namespace ebtq
