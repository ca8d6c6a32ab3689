#pragma once

#include "screens/lists/record_detail_view.h"

namespace ebtq {

class CustomerDetail;

/// The screen of the tabs below the list of customers.
class CustomerDetailView : public RecordDetailView
{
    Q_OBJECT

public:
    CustomerDetailView(CustomerDetail &detail, QWidget *keyScope, QWidget *parent);
};

} // namespace ebtq
