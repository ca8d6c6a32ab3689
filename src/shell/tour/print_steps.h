#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// From the list's context menu to paper.
[[nodiscard]] std::span<const TourStep> printSteps();

} // namespace ebtq::shell
