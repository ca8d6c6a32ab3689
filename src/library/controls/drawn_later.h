#pragma once

#include "library/controls/flex_grid.h"

namespace ebtq {

/// Runs a body with nothing of the grid drawn and draws again on whatever way out. No destructor does it:
/// what a view does then may fail.
template<class Body> bool drawnLater(VSFlexGrid &grid, Body body)
{
    bool result = false;
    grid.setRedraw(false);
    try {
        result = body();
    } catch (...) {
        grid.setRedraw(true);
        throw;
    }
    grid.setRedraw(true);
    return result;
}

} // namespace ebtq
