#include "screens/customers/customer_detail_view.h"

#include "library/customers/customer_detail.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using Ink = DetailPlace::Ink;

constexpr DetailPlace requestPlaces[] = {
    {8, 0, 0},
    {9, 0, 1},
    {10, 0, 2},
    {31, 0, 3},
    {30, 0, 4},
    {23, 0, 5},
    {13, 1, 0},
    {18, 1, 1},
    {19, 1, 2, 1, Ink::Number},
    {20, 1, 3, 1, Ink::Number},
    {21, 1, 4, 1, Ink::Sale},
    {11, 1, 5, 1, Ink::Rent},
    {14, 2, 0},
    {15, 2, 1},
    {16, 2, 2},
    {17, 2, 3},
    {22, 2, 4},
    {29, 2, 5},
    {28, 3, 0},
    {12, 3, 1, 5},
};
constexpr DetailPlace contactPlaces[] = {{24, 0, 0}, {25, 0, 1, 2}, {27, 0, 3, 3}, {26, 1, 0, 6}};
constexpr int boxesRow = 2;

} // namespace

CustomerDetailView::CustomerDetailView(CustomerDetail &detail, QWidget *keyScope, QWidget *parent)
    : RecordDetailView(detail, keyScope, parent)
{
    addFields(RequestTab, requestPlaces);
    addFields(ContactTab, contactPlaces, boxesRow);
    addMatching(MatchingListingsTab, detail.VsP(), u"没有匹配的房源"_s, [&detail] { detail.showReasons(); });
    addFollowUps(CustomerFollowUpsTab, detail.VsGj());
}

} // namespace ebtq
