#include "shell/core_dumps.h"

#include <sys/prctl.h>
#include <sys/resource.h>

namespace ebtq::shell {

/// Most systems hand dumps to a program, and the kernel then ignores the limit.
void forbidCoreDumps()
{
    constexpr rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

} // namespace ebtq::shell
