#pragma once

#include "screens/lists/list_view.h"

namespace ebtq {

class Cx_Gj;

/// The screen of the list of follow-ups.
class CxGjView : public ListView
{
    Q_OBJECT

public:
    CxGjView(Cx_Gj &module, QWidget *parent);
};

} // namespace ebtq
