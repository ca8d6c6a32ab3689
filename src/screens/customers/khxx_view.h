#pragma once

#include "screens/lists/record_list_view.h"

namespace ebtq {

class khxx;

/// The screen of the list of customers.
class KhxxView : public RecordListView
{
    Q_OBJECT

public:
    KhxxView(khxx &module, QWidget *parent);
};

} // namespace ebtq
