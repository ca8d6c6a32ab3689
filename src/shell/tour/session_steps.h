#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// The session: own password, lock, about.
[[nodiscard]] std::span<const TourStep> sessionSteps();

} // namespace ebtq::shell
