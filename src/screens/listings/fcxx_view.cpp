#include "screens/listings/fcxx_view.h"

#include "library/listings/fcxx.h"
#include "library/listings/fcxx_tables.h"
#include "screens/listings/listing_detail_view.h"

namespace ebtq {

namespace {

constexpr ListLook::Field fields[] = {
    {ListingFilter::District, 3, u'C'},   {ListingFilter::Building, 4, u'L'},
    {ListingFilter::Rooms, 3, u'H'},      {ListingFilter::State, 2, u'T'},
    {ListingFilter::Department, 4, u'M'}, {ListingFilter::Agent, 3, u'J'}};
constexpr ListLook::Column columns[] = {{ListingSalePrice, &look::Tokens::salePrice},
                                        {ListingRent, &look::Tokens::rent}};
constexpr ListLook listLook{.fields = fields, .columns = columns, .emptyHint = u"没有符合条件的房源"};

} // namespace

FcxxView::FcxxView(Fcxx &module, QWidget *parent)
    : RecordListView(module, listLook, parent)
{
    setDetail(new ListingDetailView(module.detail(), this, this));
}

} // namespace ebtq
