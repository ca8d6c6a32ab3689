#pragma once

#include <QString>

namespace ebtq::admin {

/// The password of a new user: from the environment variable EBTQ_PASSWORD, else a line of standard input,
/// typed without being shown. Never from the arguments, which every program on the machine can read.
/// Throws Failure for bytes that are no text.
[[nodiscard]] QString readPassword();

} // namespace ebtq::admin
