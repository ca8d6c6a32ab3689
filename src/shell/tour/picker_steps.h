#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// The pickers of the component library: one from its field, the others as a module opens them.
[[nodiscard]] std::span<const TourStep> pickerSteps();

} // namespace ebtq::shell
