#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// What is done to the current listing: a follow-up is written, a deletion is asked and not agreed to.
[[nodiscard]] std::span<const TourStep> actionSteps();

} // namespace ebtq::shell
