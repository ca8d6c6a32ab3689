#pragma once

#include <QStringList>

namespace ebtq::admin {

/// Runs one command; the program's exit status: 0, 1 for a failure, 2 for a call that was not understood. The
/// arguments are those behind the program's name.
int runCommand(const QStringList &arguments);

} // namespace ebtq::admin
