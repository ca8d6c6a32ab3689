#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A command button: its Caption holds the mnemonic.
class Button : public Control
{
    Q_OBJECT

public:
    explicit Button(const QString &name, int index = -1);
    /// Raises Click as a press does; a disabled or hidden button keeps quiet.
    void press();

Q_SIGNALS:
    void Click();
};

} // namespace ebtq
