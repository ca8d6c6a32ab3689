#include "screens/customers/frm_kh_layout.h"

#include "library/customers/frm_kh_fields.h"

namespace ebtq {

namespace {

using C = CustomerNumber;
using enum CustomerCell::Group;
using enum CustomerCell::Kind;

constexpr CustomerCell cells[] = {
    {Customer, 0, 0, Field, C::BillNumber},
    {Customer, 0, 1, Field, C::Name},
    {Customer, 0, 2, Field, C::Kind},
    {Customer, 0, 3, Field, C::Grade},
    {Customer, 1, 0, Field, C::Telephone},
    {Customer, 1, 1, Field, C::Mail},
    {Customer, 1, 2, Field, C::OtherContact},
    {Customer, 1, 3, State, 0},

    {Wish, 0, 0, Field, C::District},
    {Wish, 0, 1, Field, C::Location},
    {Wish, 0, 2, Field, C::HouseType},
    {Wish, 0, 3, Field, C::Usage},
    {Wish, 1, 0, Field, C::Orientation},
    {Wish, 1, 1, Field, C::Decoration},
    {Wish, 1, 2, Field, C::Property, 2},
    {Wish, 2, 0, Range, C::AreaFrom, 2, C::AreaTo},
    {Wish, 2, 2, Range, C::FloorFrom, 2, C::FloorTo},

    {Price, 0, 0, TickedRange, C::PriceFrom, 2, C::PriceTo, C::Buys},
    {Price, 0, 2, TickedRange, C::RentFrom, 2, C::RentTo, C::Rents},
    {Price, 1, 0, Field, C::Payment},
    {Price, 1, 1, Field, C::Commission},

    {Order, 0, 0, Field, C::EntrustedOn},
    {Order, 0, 1, Field, C::Agent},
    {Order, 0, 2, Field, C::Agreement},
    {Order, 0, 3, Field, C::Source},
    {Order, 1, 0, Field, C::Author},
    {Order, 1, 1, Field, C::AuthoredOn},

    {Remark, 0, 0, Memo, 0, customerPairs},
};

constexpr QStringView titles[] = {u"客户", u"需求", u"价格", u"委托"};

} // namespace

std::span<const CustomerCell> customerCells()
{
    return cells;
}

std::span<const QStringView> customerGroupTitles()
{
    return titles;
}

} // namespace ebtq
