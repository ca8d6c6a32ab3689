#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A tick box: Value is 1 when ticked, else 0.
class CheckBox : public Control
{
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE setValue NOTIFY Click)

public:
    explicit CheckBox(const QString &name, int index = -1);
    [[nodiscard]] int Value() const { return m_value; }
    /// Raises Click when the value changes, from code as from the user.
    void setValue(int value);

Q_SIGNALS:
    void Click();

private:
    int m_value = 0;
};

} // namespace ebtq
