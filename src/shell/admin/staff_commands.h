#pragma once

#include "shell/admin/command_line.h"

namespace ebtq::admin {

/// The commands about users, their passwords and their rights; the program's exit status. Throw Failure and
/// db::DatabaseError.
int manageUsers(const CommandLine &line);
int changePassword(const CommandLine &line);
int manageRights(const CommandLine &line);

} // namespace ebtq::admin
