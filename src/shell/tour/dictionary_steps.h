#pragma once

#include "shell/tour/tour_steps.h"

#include <span>

namespace ebtq::shell {

/// The dictionaries of buildings, property rights and house types: looked through, written, refused, deleted.
[[nodiscard]] std::span<const TourStep> dictionarySteps();

} // namespace ebtq::shell
