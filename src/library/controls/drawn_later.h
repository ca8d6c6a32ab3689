#pragma once

#include "library/controls/flex_grid.h"

namespace ebtq {

/// Runs a body with the grid's redraw off and turns it on again, also after an exception, unless it was off
/// before. Not done by a destructor: what a view does then may throw.
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
