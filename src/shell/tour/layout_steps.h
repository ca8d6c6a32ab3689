#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// A list that a person and an administrator have shaped, and the way back.
[[nodiscard]] std::span<const TourStep> layoutSteps();

} // namespace ebtq::shell
