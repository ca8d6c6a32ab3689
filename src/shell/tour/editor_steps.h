#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// The editor of a listing: a new listing typed and saved, another one changed.
[[nodiscard]] std::span<const TourStep> editorSteps();

} // namespace ebtq::shell
