#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// The first start: a new agency, page by page.
[[nodiscard]] std::span<const TourStep> startSteps();

} // namespace ebtq::shell
