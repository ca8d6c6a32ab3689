#pragma once

#include <span>

namespace ebtq::admin {

/// Runs one command; the program's exit status: 0, 1 for a failure, 2 for invalid arguments. The
/// arguments follow the program's name, as raw bytes.
int runCommand(std::span<const char *const> arguments);

} // namespace ebtq::admin
