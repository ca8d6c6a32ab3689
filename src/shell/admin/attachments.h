#pragma once

#include "shell/admin/command_line.h"

namespace ebtq::admin {

/// The command about attachments and pictures: how much the live, the deleted and the ownerless hold, and the
/// removal of deleted ones; the program's exit status. Throws Failure and db::DatabaseError.
int manageAttachments(const CommandLine &line);

} // namespace ebtq::admin
