#pragma once

#include "shell/options.h"

#include <functional>

namespace ebtq::shell {

class GuardedApplication;
class MainWindow;

/// Runs the desktop, whose window is open, to its end; returns the exit status.
using Drive = std::function<int(MainWindow &)>;

/// Opens the database, signs in and runs the desktop, or the tour, to its end; the program's exit status. A
/// failure to start is shown to the user and gives 1. `drive` takes the place of the event loop.
[[nodiscard]] int runProgram(GuardedApplication &application, const Options &options,
                             const Drive &drive = {});

} // namespace ebtq::shell
