#pragma once

#include <span>

namespace ebtq::admin {

/// Runs one command; the program's exit status: 0, 1 for a failure, 2 for a call that was not understood. The
/// arguments are those behind the program's name, as the bytes that were given.
int runCommand(std::span<const char *const> arguments);

} // namespace ebtq::admin
