#pragma once

namespace ebtq::shell {

/// From now on a crash writes no memory of this process to disk, and no other program of the same user can
/// read it: it holds passwords and owners' telephone numbers.
void forbidCoreDumps();

} // namespace ebtq::shell
