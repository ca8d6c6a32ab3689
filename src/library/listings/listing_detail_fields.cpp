#include "library/listings/listing_detail_fields.h"

#include "contracts/conversions.h"
#include "contracts/host_contracts.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using Text = std::optional<QString>;

/// Every listing has this date from the day on that it was entered; one without it is broken.
Text asDate(const DetailRecord &record, QStringView column)
{
    if (record.isNull(column))
        throw Failure(u"房源的%1是空值，无法显示！"_s.arg(column));
    return record.text(column);
}

Text asRooms(const DetailRecord &record, QStringView)
{
    return record.text(u"房型_房") + u'房' + record.text(u"房型_厅") + u'厅' + record.text(u"房型_卫") +
           u'卫' + record.text(u"房型_阳台") + u"阳台"_s;
}

Text asPlace(const DetailRecord &record, QStringView)
{
    const auto trimmed = [&](QStringView column) { return Trim(record.text(column)); };
    return trimmed(u"楼盘字典") + trimmed(u"栋座位置") + u'栋' + trimmed(u"房号") + u'室' + u'(' +
           trimmed(u"楼层") + u'/' + trimmed(u"总楼层") + u')';
}

/// A price for each square metre. Deliberately the field keeps its figure, the one of the listing before,
/// when there is no price or no area.
Text asUnitPrice(const DetailRecord &record, QStringView column)
{
    const double area = record.number(u"总面积");
    const double price = record.number(column);
    if (area == 0 || price == 0)
        return std::nullopt;
    return Format(price / area, u"#0.00");
}

Text asViewing(const DetailRecord &record, QStringView column)
{
    const QString viewing = record.text(column);
    return viewing.contains(u'匙') ? viewing + u" 钥匙号:"_s + record.text(u"钥匙号") : viewing;
}

Text untouched(const DetailRecord &, QStringView)
{
    return std::nullopt;
}

/// Deliberately field 42 shows the appliances under the furniture's caption, and 43 is never written: users
/// know them there.
constexpr DetailField fields[] = {
    {0, u"房源编号", ListingTab, u"房源编号"},
    {1, u"房屋地址", ListingTab, u"地区", nullptr, u"地区ID"},
    {2, u"楼盘位置", OwnerTab, u"楼盘字典", asPlace, u"楼盘ID"},
    {3, u"房型", ListingTab, u"房型_房", asRooms},
    {4, u"用途", ListingTab, u"用途"},
    {5, u"实用面积", ListingTab, u"实用面积"},
    {6, u"登记日期", ListingTab, u"操作日期", asDate},
    {7, u"房屋面积", ListingTab, u"总面积"},
    {8, u"附属房", ListingTab, u"附属房"},
    {9, u"制单日期", ListingTab, u"制单日期", asDate},
    {11, u"委托日期", ListingTab, u"委托日期"},
    {12, u"制单人", ListingTab, u"制单人"},
    {13, u"交房日期", ListingTab, u"交房日期"},
    {14, u"委托编号", OwnerTab, u"委托编号"},
    {15, u"信息来源", ListingTab, u"来源"},
    {17, u"朝向", ListingTab, u"朝向"},
    {21, u"类型", ListingTab, u"类型"},
    {22, u"建房年代", ListingTab, u"建房年代"},
    {23, u"交易方式", OwnerTab, u"交易方式"},
    {24, u"状态", OwnerTab, u"交易状态"},
    {25, u"出售价格", OwnerTab, u"售房价格", nullptr, {}, u"出售总价（万元）"},
    {26, u"万元", OwnerTab, u"售房价格", asUnitPrice, {}, u"出售单价（万元/㎡）"},
    {27, u"/㎡", OwnerTab, u"售房底价", nullptr, {}, u"出售底价（万元）"},
    {28, u"包税费", OwnerTab, u"售房包税费"},
    {29, u"出租价格", OwnerTab, u"租房价格", nullptr, {}, u"租金（元/月）"},
    {30, u"元/月", OwnerTab, u"租房价格", asUnitPrice, {}, u"租金单价（元/月/㎡）"},
    {31, u"/㎡", OwnerTab, u"租房底价", nullptr, {}, u"出租底价（元/月）"},
    {32, u"原购价", OwnerTab, u"租房原购价", nullptr, {}, u"业主买入时的价格"},
    {34, u"委托方式", ListingTab, u"委托方式"},
    {37, u"管理费", OwnerTab, u"管理费"},
    {39, u"现状", ListingTab, u"现状"},
    {40, u"装修", ListingTab, u"装修"},
    {41, u"配套", ListingTab, u"配套"},
    {42, u"家具", ListingTab, u"家电"},
    {43, u"家电", ListingTab, {}, untouched},
    {44, u"产权", ListingTab, u"产权"},
    {45, u"证件", ListingTab, u"证件"},
    {46, u"付款", ListingTab, u"付款"},
    {47, u"付佣", ListingTab, u"付佣"},
    {48, u"看房", ListingTab, u"看房", asViewing},
    {50, u"业主", OwnerTab, u"业主"},
    {51, u"联系人", OwnerTab, u"联系人"},
    {52, u"国籍", OwnerTab, u"国籍"},
    {53, u"手机", OwnerTab, u"手机"},
};

constexpr DetailBox boxes[] = {{0, u"联系", u"联系说明"}, {1, u"备注", u"备注"}};

} // namespace

std::span<const DetailField> detailFields()
{
    return fields;
}

std::span<const DetailBox> detailBoxes()
{
    return boxes;
}

} // namespace ebtq
