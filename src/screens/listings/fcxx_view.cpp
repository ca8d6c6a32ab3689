#include "screens/listings/fcxx_view.h"

#include "library/listings/fcxx.h"
#include "library/listings/fcxx_tables.h"
#include "screens/listings/listing_detail_view.h"

namespace ebtq {

namespace {

constexpr ListLook::Field fields[] = {{ListingFilter::District, 4},   {ListingFilter::Building, 5},
                                      {ListingFilter::Rooms, 4},      {ListingFilter::State, 3},
                                      {ListingFilter::Department, 4}, {ListingFilter::Agent, 4}};
constexpr ListLook::Column columns[] = {{ListingSalePrice, &look::Tokens::salePrice},
                                        {ListingRent, &look::Tokens::rent}};
constexpr ListLook listLook{.fields = fields,
                            .columns = columns,
                            .searchHint = u"在已加载的房源中查找",
                            .emptyHint = u"没有符合条件的房源"};

} // namespace

FcxxView::FcxxView(Fcxx &module, QWidget *parent)
    : RecordListView(module, listLook, parent)
{
    setDetail(new ListingDetailView(module.detail(), this, this));
}

} // namespace ebtq
