#pragma once

#include "screens/lists/list_view.h"

namespace ebtq {

class YjTx;

/// The screen of the reminders: a title and the list.
class YjTxView : public ListView
{
    Q_OBJECT

public:
    YjTxView(YjTx &module, QWidget *parent);
};

} // namespace ebtq
