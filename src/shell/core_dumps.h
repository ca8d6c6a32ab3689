#pragma once

namespace ebtq::shell {

/// From now on a crash writes no memory of this process to the disk, and no other program of the same user
/// reads it: passwords and owners' telephones are in there.
void forbidCoreDumps();

} // namespace ebtq::shell
