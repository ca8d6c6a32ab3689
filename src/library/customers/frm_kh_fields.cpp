#include "library/customers/frm_kh_fields.h"

namespace ebtq {

namespace {

constexpr auto Right = qzTxt_S::AlignRight;

/// The way of paying commission has a dictionary kind that differs from its column's name.
constexpr EditorField fields[] = {
    {u"委托编号 *", u"委托编号"},
    {u"客户名称 *", u"客户名称"},
    {u"客户类别", u"客户类别"},
    {u"委托等级", u"委托等级", dictionaryLookUp(u"gy_sjzd_wtdj", u"委托等级")},
    {u"联系电话 *", u"联系电话"},
    {u"电子邮件", u"电子邮件"},
    {u"其他联系", u"其他联系"},
    {u"需求片区", u"需求片区", {.kind = LookUp::Picker, .name = u"pdmdq"}},
    {u"地段要求", u"地段要求"},
    {u"需求房型", u"需求房型", houseTypeLookUp},
    {u"物业要求", u"物业要求"},
    {u"购房用途", u"购房用途", dictionaryLookUp(u"gy_sjzd_yt", u"物业用途")},
    {u"房屋朝向", u"房屋朝向", dictionaryLookUp(u"gy_sjzd_cx", u"房屋朝向")},
    {u"装修要求", u"装修要求"},
    {u"面积", u"最小面积", {}, Right},
    {u"", u"最大面积", {}, Right, u"㎡"},
    {u"楼层", u"最低楼层", {}, Right},
    {u"", u"最高楼层", {}, Right, u"层"},
    {u"", u"最低求购价", {}, Right},
    {u"", u"最高求购价", {}, Right, u"万元"},
    {u"付款方式", u"付款方式", dictionaryLookUp(u"gy_sjzd_fk", u"付款方式")},
    {u"付佣方式", u"付佣方式", dictionaryLookUp(u"gy_sjzd_fy", u"付佣金方式")},
    {u"委托协议", u"委托协议"},
    {u"信息来源", u"信息来源"},
    {u"  经纪人", u"经纪人", {.kind = LookUp::Picker, .name = u"pdmgy"}},
    {u"委托日期", u"委托日期", {.kind = LookUp::Calendar}},
    {u"", u"最低求租价", {}, Right},
    {u"", u"最高求租价", {}, Right, u"元/月"},
    {u"制单人", u"制单人"},
    {u"制单日期", u"制单日期"},
};

using enum Holder;
using enum CustomerNumber::Number;

constexpr RecordColumn text(int field, QStringView column)
{
    return {FieldText, field, column, Saved::Text, Loaded::AsItComes};
}

constexpr RecordColumn number(int field, QStringView column)
{
    return {FieldText, field, column, Saved::Number, Loaded::AsItComes};
}

constexpr RecordColumn billNumber = text(BillNumber, u"客源编号");
constexpr RecordColumn districtKey{FieldKey, District, u"地区ID", Saved::Number, Loaded::AsItComes};
constexpr RecordColumn district = text(District, u"地区");
constexpr RecordColumn entrustedOn{FieldText, EntrustedOn, u"委托日期", Saved::Date, Loaded::AsItComes};
/// Nobody fills these two in, so every save empties them.
constexpr RecordColumn entrustedHow{Given, -1, u"委托方式", Saved::Text, Loaded::Not};
constexpr RecordColumn mobile{Given, -1, u"手机", Saved::Text, Loaded::Not};
constexpr RecordColumn grade = text(Grade, u"委托等级");
constexpr RecordColumn agreement = text(Agreement, u"委托协议");
constexpr RecordColumn name = text(Name, u"客户名称");
constexpr RecordColumn telephone = text(Telephone, u"电话");
constexpr RecordColumn mail = text(Mail, u"邮件");
constexpr RecordColumn otherContact = text(OtherContact, u"其他联系方式");
constexpr RecordColumn location = text(Location, u"地段要求");
constexpr RecordColumn houseType = text(HouseType, u"需求户型");
constexpr RecordColumn property = text(Property, u"物业要求");
constexpr RecordColumn usage = text(Usage, u"用途");
constexpr RecordColumn orientation = text(Orientation, u"朝向");
constexpr RecordColumn decoration = text(Decoration, u"装修要求");
constexpr RecordColumn areaFrom = number(AreaFrom, u"面积1");
constexpr RecordColumn areaTo = number(AreaTo, u"面积2");
constexpr RecordColumn floorFrom = number(FloorFrom, u"楼层1");
constexpr RecordColumn floorTo = number(FloorTo, u"楼层2");
constexpr RecordColumn priceFrom = number(PriceFrom, u"求购价格1");
constexpr RecordColumn priceTo = number(PriceTo, u"求购价格2");
constexpr RecordColumn rentFrom = number(RentFrom, u"求租价格1");
constexpr RecordColumn rentTo = number(RentTo, u"求租价格2");
constexpr RecordColumn payment = text(Payment, u"付款方式");
constexpr RecordColumn commission = text(Commission, u"付佣方式");
constexpr RecordColumn source = text(Source, u"信息来源");
constexpr RecordColumn remark{Memo, 0, u"备注", Saved::AsTyped, Loaded::AsItComes};
constexpr RecordColumn agentKey{FieldKey, Agent, u"业务员ID", Saved::Number, Loaded::AsItComes};
constexpr RecordColumn agent{FieldText, Agent, u"业务员", Saved::Not, Loaded::AsItComes};
constexpr RecordColumn authorKey{FieldKey, Author, u"用户ID", Saved::Text, Loaded::AsItComes};
constexpr RecordColumn authoredOn{FieldText, AuthoredOn, u"制单日期", Saved::Date, Loaded::AsItComes};
constexpr RecordColumn author = text(Author, u"制单人");
constexpr RecordColumn changedOn{Given, -1, u"操作日期", Saved::Date, Loaded::Not};
constexpr RecordColumn state{Option, 0, u"状态", Saved::Number, Loaded::AsItComes};
constexpr RecordColumn wish{TickSum, 0, u"方式", Saved::Number, Loaded::AsItComes};

constexpr RecordColumn loadOrder[] = {
    billNumber,  grade,     name,       telephone,  mail,        otherContact, location,
    districtKey, district,  property,   houseType,  orientation, decoration,   usage,
    areaFrom,    areaTo,    floorFrom,  floorTo,    priceFrom,   priceTo,      rentFrom,
    rentTo,      payment,   commission, agreement,  source,      agentKey,     agent,
    entrustedOn, authorKey, author,     authoredOn, remark,      state,        wish,
};
constexpr RecordColumn insertOrder[] = {
    billNumber,  districtKey, district,  entrustedOn,  entrustedHow, grade,     agreement, name,
    telephone,   mobile,      mail,      otherContact, location,     houseType, property,  usage,
    orientation, decoration,  areaFrom,  areaTo,       floorFrom,    floorTo,   priceFrom, priceTo,
    rentFrom,    rentTo,      payment,   commission,   source,       remark,    agentKey,  authorKey,
    authoredOn,  author,      changedOn, state,        wish,
};
/// A change leaves the row its author, its dates of making and of the last operation.
constexpr RecordColumn updateOrder[] = {
    billNumber,  districtKey, district,     entrustedOn, entrustedHow, name,     telephone,
    mobile,      mail,        otherContact, location,    houseType,    property, usage,
    orientation, decoration,  areaFrom,     areaTo,      floorFrom,    floorTo,  priceFrom,
    priceTo,     rentFrom,    rentTo,       payment,     commission,   source,   remark,
    agentKey,    grade,       agreement,    state,       wish,
};

constexpr RecordTable record{u"Fykh", u"客源ID", loadOrder, insertOrder, updateOrder};

} // namespace

std::span<const EditorField> customerFields()
{
    return fields;
}

const RecordTable &customerRecord()
{
    return record;
}

} // namespace ebtq
