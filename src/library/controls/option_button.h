#pragma once

#include "library/controls/two_state.h"

namespace ebtq {

/// A round button: Value is 1 when it is the chosen one of its group, else 0.
class OptionButton : public TwoState
{
    Q_OBJECT

public:
    explicit OptionButton(const QString &name, int index = -1);
    /// Choosing one of the two takes the choice from the other.
    void exclude(OptionButton &other);
};

} // namespace ebtq
