#pragma once

#include "library/controls/flex_grid.h"

namespace ebtq {

/// The grid of the data-entry modules. It is kept with its form, by its widths alone.
class qzGrid : public VSFlexGrid
{
    Q_OBJECT

public:
    explicit qzGrid(const QString &name, int index = -1)
        : VSFlexGrid(QStringLiteral("qzGrid"), name, index)
    {}
};

} // namespace ebtq
