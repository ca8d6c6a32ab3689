#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// Through the tabs below the list of listings, from the last to the first.
[[nodiscard]] std::span<const TourStep> detailSteps();

} // namespace ebtq::shell
