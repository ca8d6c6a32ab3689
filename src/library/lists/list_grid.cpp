#include "library/lists/list_grid.h"

#include "library/controls/flex_grid.h"
#include "library/controls/grid_helper.h"

namespace ebtq {

void setUpListGrid(VSFlexGrid &grid, const ListGrid &shape)
{
    GridHelper().style(grid, shape.fixedColumns, shape.format.toString());
    grid.setBackColorAlternate(shape.alternateColor);
    grid.setSelectionColor(shape.selectionColor);
    grid.setToolTipText(shape.toolTip.toString());
    for (const int column : shape.hiddenColumns)
        grid.setColHidden(column, true);
}

} // namespace ebtq
