#pragma once

#include "database/connection.h"

#include <array>
#include <span>

namespace ebtq::host {

/// What the sample's records hold of the standard lists. Fields store an entry's name.
namespace words {
inline constexpr QStringView uses[] = {u"住宅", u"商铺", u"写字楼", u"商住两用", u"车位", u"厂房"};
inline constexpr QStringView orientations[] = {u"南", u"南北", u"东南", u"西南",
                                               u"东", u"北",   u"西",   u"东西"};
inline constexpr QStringView deals[] = {u"出售", u"出租", u"租售"};
inline constexpr QStringView taxes[] = {u"各付各税", u"买方包税", u"卖方包税", u"实收"};
inline constexpr QStringView commissions[] = {u"一般委托", u"独家委托", u"限时委托"};
inline constexpr QStringView sources[] = {u"业主上门",   u"业主来电", u"网络",
                                          u"老客户介绍", u"社区活动", u"同行合作"};
inline constexpr QStringView conditions[] = {u"空置", u"业主自住", u"出租中", u"装修中"};
inline constexpr QStringView decorations[] = {u"精装", u"中装", u"简装", u"毛坯", u"豪装"};
inline constexpr QStringView facilities[] = {u"水电气", u"水电气宽带", u"水电", u"水电气暖", u"设施齐全"};
inline constexpr QStringView furniture[] = {u"齐全", u"部分", u"无"};
inline constexpr QStringView appliances[] = {u"齐全", u"部分", u"无"};
inline constexpr QStringView payments[] = {u"一次性", u"按揭", u"公积金", u"分期", u"押一付三", u"半年付"};
inline constexpr QStringView fees[] = {u"双方各付", u"买方付", u"卖方付", u"面议"};
inline constexpr QStringView viewings[] = {u"预约", u"有匙", u"随时", u"借匙"};
inline constexpr QStringView nationalities[] = {u"中国", u"新加坡", u"韩国", u"日本", u"英国", u"美国"};
inline constexpr QStringView grades[] = {u"A级", u"B级", u"C级"};
inline constexpr QStringView listingRemarks[] = {u"业主诚心出售，价格可谈", u"证满两年，税费少",
                                                 u"采光好，无遮挡", u"近学校，看房请提前预约",
                                                 u"家具家电可赠送"};
inline constexpr QStringView ownerRemarks[] = {u"请在晚上七点后联系", u"先发短信再致电",
                                               u"业主在外地，由亲戚带看", u"周末全天方便",
                                               u"请勿透露业主电话"};
} // namespace words

struct HouseType
{
    int rooms;
    int halls;
    int baths;
    int balconies;
    int smallest; ///< area, in square metres
    int largest;
};

/// The types of houses, the commonest first.
[[nodiscard]] std::span<const HouseType> houseTypes();
/// As it stands in the dictionary.
[[nodiscard]] QString houseTypeName(const HouseType &type);

/// Property rights with what goes with each.
struct PropertyRight
{
    QStringView name;
    QStringView certificate;
    QStringView payment;
    QStringView fee;
};
[[nodiscard]] std::span<const PropertyRight> propertyRights();

/// The built-in standard lists, whatever the installation's are: the sample's records are made for them.
void writeDictionaries(db::Connection &connection);

} // namespace ebtq::host
