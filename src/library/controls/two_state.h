#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// What tick boxes and option buttons share: Value is 1 when the control is on, else 0.
class TwoState : public Control
{
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE setValue NOTIFY Click)

public:
    [[nodiscard]] int Value() const { return m_value; }
    /// Raises Click when the value changes, from code as from the user.
    void setValue(int value);

Q_SIGNALS:
    void Click();

protected:
    using Control::Control;

private:
    int m_value = 0;
};

} // namespace ebtq
