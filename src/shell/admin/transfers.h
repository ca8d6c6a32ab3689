#pragma once

#include "shell/admin/command_line.h"

namespace ebtq::admin {

/// The commands that move whole databases; the program's exit status. Throw db::DatabaseError.
int copy(const CommandLine &line);
int backUp(const CommandLine &line);
int restore(const CommandLine &line);

} // namespace ebtq::admin
