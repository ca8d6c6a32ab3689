#pragma once

#include <QString>

namespace ebtq::robot {

struct Run
{
    quint32 seed;
    int seconds;
};

/// Makes an agency of its own in a new folder, lets the robot work in a process of its own and looks at both
/// afterwards. True without a finding; otherwise the seed, the last actions and what the process said have
/// been printed.
[[nodiscard]] bool watch(const Run &run);

} // namespace ebtq::robot
