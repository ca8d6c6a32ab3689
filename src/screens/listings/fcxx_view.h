#pragma once

#include "screens/lists/record_list_view.h"

namespace ebtq {

class Fcxx;

/// The screen of the list of listings.
class FcxxView : public RecordListView
{
    Q_OBJECT

public:
    FcxxView(Fcxx &module, QWidget *parent);
};

} // namespace ebtq
