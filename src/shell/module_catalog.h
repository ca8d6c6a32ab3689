#pragma once

#include "host/module_ids.h"

#include <QStringView>

#include <span>

namespace ebtq::shell {

/// A module's place in the navigation; caption, class and number are in the host's module table.
struct NavigationEntry
{
    QStringView group;
    host::ModuleId module;
    QStringView icon;
};

/// In display order; entries of one group are adjacent.
[[nodiscard]] std::span<const NavigationEntry> navigationEntries();
[[nodiscard]] const host::ModuleEntry &moduleEntry(host::ModuleId id);

} // namespace ebtq::shell
