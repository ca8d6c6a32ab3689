#pragma once

#include "shell/options.h"

namespace ebtq::shell {

class GuardedApplication;

/// Opens the database, signs in and runs the desktop, or the tour, to its end; the program's exit status. A
/// failure to start is told to the user and gives 1.
[[nodiscard]] int runProgram(GuardedApplication &application, const Options &options);

} // namespace ebtq::shell
