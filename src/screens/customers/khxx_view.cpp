#include "screens/customers/khxx_view.h"

#include "library/customers/khxx.h"
#include "library/customers/khxx_tables.h"
#include "screens/customers/customer_detail_view.h"

namespace ebtq {

namespace {

constexpr ListLook::Field fields[] = {{CustomerFilter::District, 4},   {CustomerFilter::Rooms, 5},
                                      {CustomerFilter::State, 3},      {CustomerFilter::Grade, 3},
                                      {CustomerFilter::Department, 4}, {CustomerFilter::Agent, 4}};
constexpr ListLook::Column columns[] = {{CustomerPrice, &look::Tokens::salePrice},
                                        {CustomerRent, &look::Tokens::rent}};
constexpr ListLook listLook{.fields = fields,
                            .columns = columns,
                            .searchHint = u"在已加载的客源中查找",
                            .emptyHint = u"没有符合条件的客源"};

} // namespace

KhxxView::KhxxView(khxx &module, QWidget *parent)
    : RecordListView(module, listLook, parent)
{
    setDetail(new CustomerDetailView(module.detail(), this, this));
}

} // namespace ebtq
