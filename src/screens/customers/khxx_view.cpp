#include "screens/customers/khxx_view.h"

#include "library/customers/khxx.h"
#include "library/customers/khxx_tables.h"
#include "screens/customers/customer_detail_view.h"

namespace ebtq {

namespace {

constexpr ListLook::Field fields[] = {
    {CustomerFilter::District, 3, u'C'},   {CustomerFilter::Rooms, 4, u'H'},
    {CustomerFilter::State, 2, u'T'},      {CustomerFilter::Grade, 2, u'L'},
    {CustomerFilter::Department, 4, u'M'}, {CustomerFilter::Agent, 3, u'J'}};
constexpr ListLook::Column columns[] = {{CustomerPrice, &look::Tokens::salePrice},
                                        {CustomerRent, &look::Tokens::rent}};
constexpr ListLook listLook{.fields = fields, .columns = columns, .emptyHint = u"没有符合条件的客源"};

} // namespace

KhxxView::KhxxView(khxx &module, QWidget *parent)
    : RecordListView(module, listLook, parent)
{
    setDetail(new CustomerDetailView(module.detail(), this, this));
}

} // namespace ebtq
