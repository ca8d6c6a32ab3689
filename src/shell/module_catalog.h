#pragma once

#include "host/module_ids.h"

#include <QStringView>

#include <span>

namespace ebtq::shell {

/// A module's place in the navigation; caption, class and number stand with the modules of the host.
struct NavigationEntry
{
    QStringView group;
    host::ModuleId module;
    QStringView icon;
};

/// In the order of sight; entries of one group stand together.
[[nodiscard]] std::span<const NavigationEntry> navigationEntries();
[[nodiscard]] const host::ModuleEntry &moduleEntry(host::ModuleId id);

} // namespace ebtq::shell
