#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A text on the screen: its Caption.
class Label : public Control
{
    Q_OBJECT

public:
    explicit Label(const QString &name, int index = -1);
};

} // namespace ebtq
