#include "shell/core_dumps.h"

#include <sys/prctl.h>
#include <sys/resource.h>

namespace ebtq::shell {

/// The limit alone is passed over where the system hands dumps to a program, as most do.
void forbidCoreDumps()
{
    constexpr rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

} // namespace ebtq::shell
