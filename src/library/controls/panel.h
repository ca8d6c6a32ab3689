#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A part of a screen that is shown and hidden as one.
class qzPanel : public Control
{
    Q_OBJECT

public:
    explicit qzPanel(const QString &name, int index = -1);
};

} // namespace ebtq
