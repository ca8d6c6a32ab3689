#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// The customers: list, tabs, editor.
[[nodiscard]] std::span<const TourStep> customerSteps();

} // namespace ebtq::shell
