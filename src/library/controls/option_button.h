#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A round button: Value is 1 when it is the chosen one of its group, else 0.
class OptionButton : public Control
{
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE setValue NOTIFY Click)

public:
    explicit OptionButton(const QString &name, int index = -1);
    [[nodiscard]] int Value() const { return m_value; }
    /// Raises Click when the value changes, from code as from the user.
    void setValue(int value);
    /// Choosing one of the two takes the choice from the other.
    void exclude(OptionButton &other);

Q_SIGNALS:
    void Click();

private:
    int m_value = 0;
};

} // namespace ebtq
