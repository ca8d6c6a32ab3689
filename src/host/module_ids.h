#pragma once

#include <QStringView>

#include <array>

namespace ebtq::host {

/// Numbers of the modules: keys of rights, document numbers and print files, and the owner (progID) of
/// attachments. They stand in the rows of every database, so a number is never given another meaning.
enum ModuleId : int {
    ListingModule = 101,
    CustomerModule = 102,
    FollowUpModule = 103,
    ReminderModule = 104,
    BuildingModule = 201,
    PropertyRightModule = 202,
    HouseTypeModule = 203,
};

struct ModuleEntry
{
    ModuleId id;
    QStringView caption;
    QStringView className;
    QStringView prefix; ///< in front of its document numbers; empty for a module that has none
};

inline constexpr std::array<ModuleEntry, 7> modules{{
    {ListingModule, u"房源信息", u"EBTQ_S.Fcxx", u"FY"},
    {CustomerModule, u"客源信息", u"EBTQ_S.khxx", u"KY"},
    {FollowUpModule, u"跟进查询", u"EBTQ_S.Cx_Gj", u""},
    {ReminderModule, u"预警提醒", u"EBTQ_S.YjTx", u""},
    {BuildingModule, u"楼盘字典", u"EBTQ_S.PdmLpzd", u""},
    {PropertyRightModule, u"产权", u"EBTQ_S.PDMCq", u""},
    {HouseTypeModule, u"房型", u"EBTQ_S.PDMFx", u""},
}};

} // namespace ebtq::host
