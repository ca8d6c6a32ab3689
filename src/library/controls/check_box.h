#pragma once

#include "library/controls/two_state.h"

namespace ebtq {

/// A tick box: Value is 1 when ticked, else 0.
class CheckBox : public TwoState
{
    Q_OBJECT

public:
    explicit CheckBox(const QString &name, int index = -1);
};

} // namespace ebtq
