#pragma once

#include "library/controls/flex_grid.h"

namespace ebtq {

/// Runs a body with nothing of the grid drawn and draws again on whatever way out, unless it was not drawn
/// before. No destructor does it: what a view does then may fail.
template<class Body> bool drawnLater(VSFlexGrid &grid, Body body)
{
    bool result = false;
    const bool wasDrawn = grid.Redraw();
    grid.setRedraw(false);
    try {
        result = body();
    } catch (...) {
        grid.setRedraw(wasDrawn);
        throw;
    }
    grid.setRedraw(wasDrawn);
    return result;
}

} // namespace ebtq
