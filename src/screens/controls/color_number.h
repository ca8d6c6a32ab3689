#pragma once

#include "contracts/color_parts.h"

#include <QColor>

namespace ebtq {

/// The colour of a number that a control holds.
inline QColor colorOf(int number)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    ColorParts(number, red, green, blue);
    return {red, green, blue};
}

} // namespace ebtq
