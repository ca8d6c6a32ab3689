#pragma once

#include "screens/look/look.h"

#include <QPalette>

namespace ebtq::look {

[[nodiscard]] QPalette palette(const Tokens &colours);
/// The one style sheet. Screens have none of their own: they name what a widget is by its dynamic property
/// "kind".
[[nodiscard]] QString styleSheet(const Tokens &colours);

} // namespace ebtq::look
