#include "library/listings/frm_fx_fields.h"

#include "contracts/host_contracts.h"

#include <algorithm>
#include <array>

namespace ebtq {

namespace {

constexpr auto Right = qzTxt_S::AlignRight;
constexpr auto Centre = qzTxt_S::AlignCentre;

constexpr LookUp dictionary(QStringView helpCode, QStringView kind)
{
    return {.kind = LookUp::HostList,
            .name = helpCode,
            .valueColumn = u"代码",
            .textColumn = u"名称",
            .dictionary = kind};
}

constexpr LookUp picker(QStringView name)
{
    return {.kind = LookUp::Picker, .name = name};
}

constexpr LookUp calendar{.kind = LookUp::Calendar};

constexpr LookUp houseTypes{.kind = LookUp::HostList,
                            .name = u"gy_fx",
                            .valueColumn = u"房型编号",
                            .textColumn = u"房型名称",
                            .statement =
                                u"select 房型编号,房型名称,房间数,客厅数,卫生间数,阳台数 from pdmfx where "
                                u"(房型编号='@' or 房型名称='@')"};

constexpr LookUp propertyRights{.kind = LookUp::HostList,
                                .name = u"gy_cq",
                                .valueColumn = u"产权编号",
                                .textColumn = u"产权名称",
                                .statement =
                                    u"select 产权编号,产权名称,证件名称,付款方式,付佣金方式 from pdmcq where "
                                    u"(产权编号='@' or 产权名称='@')"};

using enum Holder;

constexpr ListingValue text(int number, QStringView caption, QStringView column, LookUp lookUp = {},
                            qzTxt_S::TextAlignment alignment = qzTxt_S::AlignLeft)
{
    return {FieldText, number, caption, column, Saved::Text, Loaded::Trimmed, lookUp, alignment};
}

constexpr ListingValue number(int number, QStringView caption, QStringView column)
{
    return {FieldText, number, caption, column, Saved::Number, Loaded::Number, {}, Right};
}

constexpr ListingValue key(int number, QStringView column)
{
    return {Key, number, {}, column, Saved::Number, Loaded::Number};
}

/// The counts of rooms stand one place off their captions on purpose: each caption names what the field
/// before it counts.
constexpr ListingValue count(int number, QStringView caption, QStringView column, LookUp lookUp = {})
{
    return {FieldText, number, caption, column, Saved::Number, Loaded::Trimmed, lookUp, Centre};
}

constexpr ListingValue date(int number, QStringView caption, QStringView column)
{
    return {FieldText, number, caption, column, Saved::Date, Loaded::AsItComes, calendar};
}

/// A field that shows what no column holds.
constexpr ListingValue shown(int number, QStringView caption,
                             qzTxt_S::TextAlignment alignment = qzTxt_S::AlignLeft)
{
    return {FieldText, number, caption, {}, Saved::Not, Loaded::Not, {}, alignment};
}

constexpr std::array values{
    text(0, u"房源编号", u"房源编号"),
    key(1, u"地区ID"),
    text(1, u"地址", u"地区", picker(u"pdmdq")),
    key(6, u"楼盘ID"),
    text(6, u"", u"楼盘字典", picker(u"selpdmlpzd")),
    key(3, u"栋座ID"),
    text(3, u"", u"栋座位置", picker(u"selpdmdz")),
    text(8, u"", u"房号", {}, Centre),
    text(14, u"", u"楼层", {}, Centre),
    text(10, u"", u"总楼层", {}, Centre),
    count(4, u"房型", u"房型_房", houseTypes),
    count(19, u"房", u"房型_厅"),
    count(18, u"厅", u"房型_卫"),
    count(16, u"卫", u"房型_阳台"),
    shown(15, u"阳台"),
    text(20, u"用途", u"用途", dictionary(u"gy_sjzd_yt", u"物业用途")),
    number(7, u"面积", u"总面积"),
    number(5, u"㎡ 实用面积", u"实用面积"),
    text(17, u"㎡ 朝向", u"朝向", dictionary(u"gy_sjzd_cx", u"房屋朝向")),
    text(21, u"类型", u"类型", dictionary(u"gy_sjzd_lx", u"物业类型")),
    text(22, u"建房年代", u"建房年代"),
    ListingValue{Ticks, 0, {}, u"房源属性", Saved::Number, Loaded::Number},
    text(23, u"交易", u"交易方式", dictionary(u"gy_sjzd_jy", u"交易类型")),
    text(24, u"状态", u"交易状态", dictionary(u"gy_sjzd_zt", u"交易状态")),
    number(25, u"售价", u"售房价格"),
    number(27, u"/㎡ ", u"售房底价"),
    shown(26, u"万元  ", Right),
    text(28, u"包税费", u"售房包税费", dictionary(u"gy_sjzd_bsf", u"包税费类型")),
    number(29, u"租价", u"租房价格"),
    number(31, u"/㎡ ", u"租房底价"),
    shown(30, u"元/月 ", Right),
    number(32, u"原购价", u"租房原购价"),
    date(33, u"委托日期", u"委托日期"),
    text(34, u"委托方式", u"委托方式", dictionary(u"gy_sjzd_wt", u"委托方式")),
    number(37, u"管理费", u"管理费"),
    date(35, u"交房日期", u"交房日期"),
    text(36, u"委托编号", u"委托编号"),
    text(38, u"  来源", u"来源", dictionary(u"gy_sjzd_ly", u"房屋来源")),
    text(39, u"现状", u"现状", dictionary(u"gy_sjzd_xz", u"房屋现状")),
    text(40, u"装修", u"装修", dictionary(u"gy_sjzd_zx", u"装修程度")),
    text(41, u"配套", u"配套", dictionary(u"gy_sjzd_pt", u"配套设施")),
    text(42, u"家具", u"家具", dictionary(u"gy_sjzd_jj", u"家具配置")),
    text(43, u"家电", u"家电", dictionary(u"gy_sjzd_jd", u"家电配置")),
    text(44, u"产权", u"产权", propertyRights),
    text(45, u"证件", u"证件", dictionary(u"gy_sjzd_zj", u"证件名称")),
    text(46, u"付款", u"付款", dictionary(u"gy_sjzd_fk", u"付款方式")),
    text(47, u"付佣", u"付佣", dictionary(u"gy_sjzd_fy", u"付佣金方式")),
    text(48, u"看房", u"看房", dictionary(u"gy_sjzd_kf", u"看房方式")),
    text(49, u"", u"钥匙号", {}, Centre),
    text(50, u"  业主", u"业主"),
    text(51, u"联系人", u"联系人"),
    text(52, u"  国籍", u"国籍", dictionary(u"gy_sjzd_gj", u"国籍")),
    text(53, u"手机", u"手机"),
    ListingValue{Memo, 0, {}, u"联系说明"},
    ListingValue{Memo, 1, {}, u"备注"},
    ListingValue{FieldText, 11, u"部门", u"部门名称", Saved::Not, Loaded::Trimmed},
    key(13, u"业务员ID"),
    ListingValue{FieldText, 13, u"经纪人", u"业务员", Saved::Not, Loaded::Trimmed, picker(u"pdmgy")},
    ListingValue{Key, 12, {}, u"用户ID", Saved::Text, Loaded::Not},
    date(9, u"制单日期", u"制单日期"),
    ListingValue{Key, 12, {}, u"用户ID", Saved::Not, Loaded::Trimmed},
    text(12, u"  制单人", u"制单人"),
    date(2, u"登记日期", u"操作日期"),
    ListingValue{FieldText, 54, u"附属房", u"附属房", Saved::Text, Loaded::AsItComes},
};

} // namespace

std::span<const ListingValue> listingValues()
{
    return values;
}

const ListingValue &editorField(int number)
{
    const auto found = std::ranges::find_if(values, [number](const ListingValue &value) {
        return value.holder == FieldText && value.number == number;
    });
    if (found == values.end())
        throw Failure(QStringLiteral("没有编号为 %1 的输入框！").arg(number));
    return *found;
}

} // namespace ebtq
