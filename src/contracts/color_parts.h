#pragma once

namespace ebtq {

/// Splits a colour number, red in its lowest byte, into its parts. With its highest bit set it is a system
/// colour, whose number stands below; these have fixed values here, since what is kept in a layout must look
/// alike everywhere. An unknown one is black.
void ColorParts(int color, int &r, int &g, int &b);

/// The plain colour number of a colour that may be a system one.
[[nodiscard]] int plainColor(int color);

/// The ground of buttons, as a system colour: grids draw their lines in it until told otherwise.
inline constexpr int systemButtonFace = static_cast<int>(0x8000000FU);

} // namespace ebtq
