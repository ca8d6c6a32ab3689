#pragma once

#include <QColor>

namespace ebtq {

/// The colour of a number that a control holds.
[[nodiscard]] QColor colorOf(int number);
/// A text colour, made lighter or darker in its hue if its contrast with the background is too low.
[[nodiscard]] QColor readable(const QColor &color, const QColor &background);
/// A background that the rules give is light; the dark scheme keeps its hue only.
[[nodiscard]] QColor inScheme(const QColor &given);

} // namespace ebtq
