#include "screens/controls/color_number.h"

#include "contracts/color_parts.h"
#include "screens/look/look.h"

#include <algorithm>
#include <cstdlib>

namespace ebtq {

QColor colorOf(int number)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    ColorParts(number, red, green, blue);
    return {red, green, blue};
}

QColor readable(const QColor &color, const QColor &background)
{
    constexpr int leastContrast = 76;
    constexpr int middle = 115;
    const int backgroundGray = qGray(background.rgb());
    if (std::abs(qGray(color.rgb()) - backgroundGray) >= leastContrast)
        return color;
    if (backgroundGray >= middle)
        return color.darker(250);
    return QColor::fromHslF(std::max(color.hslHueF(), 0.0F), color.hslSaturationF(), 0.7F);
}

QColor inScheme(const QColor &given)
{
    const bool isDark = look::scheme() == look::Scheme::Dark;
    return isDark ? QColor::fromHslF(given.hslHueF(), 0.4F * given.hslSaturationF(), 0.25F) : given;
}

} // namespace ebtq
