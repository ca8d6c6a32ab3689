#pragma once

#include <QString>

namespace ebtq::admin {

/// The password of a new user: from the environment variable EBTQ_PASSWORD, else a line of standard input,
/// typed without being shown. Never from the arguments, which every program on the machine can read.
/// Throws Failure for invalid UTF-8.
[[nodiscard]] QString readPassword();

} // namespace ebtq::admin
