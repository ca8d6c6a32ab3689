#include "shell/module_catalog.h"

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr NavigationEntry entries[] = {
    {u"业务", host::ListingModule, u"go-home"},
    {u"业务", host::CustomerModule, u"user-identity"},
    {u"业务", host::FollowUpModule, u"clock"},
    {u"业务", host::ReminderModule, u"notifications"},
    {u"字典", host::BuildingModule, u"view-list-tree"},
    {u"字典", host::PropertyRightModule, u"view-list-details"},
    {u"字典", host::HouseTypeModule, u"view-grid"},
};

} // namespace

std::span<const NavigationEntry> navigationEntries()
{
    return entries;
}

const host::ModuleEntry &moduleEntry(host::ModuleId id)
{
    return *std::ranges::find(host::modules, id, &host::ModuleEntry::id);
}

} // namespace ebtq::shell
