#include "contracts/color_parts.h"

#include <array>

namespace ebtq {

namespace {

constexpr unsigned systemMark = 0x80000000U;

/// By their numbers: scroll bar, desktop, active and inactive caption, menu, window, window frame, menu text,
/// window text, caption text, active and inactive border, work space, highlight and its text, button face,
/// button shadow, grey text, button text, inactive caption text, button highlight, dark and light shadow, tip
/// text, tip ground.
constexpr std::array<unsigned, 25> systemColors{
    0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000,
    0x000000, 0xB4B4B4, 0xFCF7F4, 0xABABAB, 0xD77800, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D,
    0x000000, 0x000000, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF};

} // namespace

int plainColor(int color)
{
    const auto bits = static_cast<unsigned>(color);
    if (!(bits & systemMark))
        return static_cast<int>(bits & 0xFFFFFFU);
    const unsigned number = bits & ~systemMark;
    return number < systemColors.size() ? static_cast<int>(systemColors[number]) : 0;
}

void ColorParts(int color, int &r, int &g, int &b)
{
    const int value = plainColor(color);
    r = value & 255;
    g = value / 256 & 255;
    b = value / 65536 & 255;
}

} // namespace ebtq
