#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// A reminder from its writing to its result, and the list of follow-ups with the program's commands.
[[nodiscard]] std::span<const TourStep> followUpSteps();

} // namespace ebtq::shell
