#pragma once

namespace ebtq {

/// Widths are given in twips, a 1440th of an inch; widgets count pixels of a screen with that many dots per
/// inch. Nothing else converts them.
[[nodiscard]] constexpr double toPixels(double twips, double dotsPerInch)
{
    return twips * dotsPerInch / 1440;
}

[[nodiscard]] constexpr double toTwips(double pixels, double dotsPerInch)
{
    return pixels * 1440 / dotsPerInch;
}

} // namespace ebtq
