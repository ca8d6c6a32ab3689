#include "library/listings/frm_fx_fields.h"

namespace ebtq {

namespace {

constexpr auto Left = qzTxt_S::AlignLeft;
constexpr auto Right = qzTxt_S::AlignRight;
constexpr auto Centre = qzTxt_S::AlignCentre;

constexpr LookUp picker(QStringView name)
{
    return {.kind = LookUp::Picker, .name = name};
}

constexpr LookUp calendar{.kind = LookUp::Calendar};

constexpr LookUp propertyRights{.kind = LookUp::HostList,
                                .name = u"gy_cq",
                                .valueColumn = u"产权编号",
                                .textColumn = u"产权名称",
                                .statement =
                                    u"select 产权编号,产权名称,证件名称,付款方式,付佣金方式 from pdmcq where "
                                    u"(产权编号='@' or 产权名称='@')"};

/// The captions of the room counts are deliberately shifted by one: each names what the field before it
/// counts.
constexpr EditorField fields[] = {
    {u"房源编号", u"房源编号"},
    {u"地址", u"城区", picker(u"pdmdq")},
    {u"登记日期", u"登记日期", calendar},
    {u"", u"栋座/位置", picker(u"selpdmdz")},
    {u"房型", u"房型", houseTypeLookUp, Centre},
    {u"㎡ 实用面积", u"实用面积", {}, Right, u"㎡"},
    {u"", u"楼盘字典", picker(u"selpdmlpzd")},
    {u"面积", u"面积", {}, Right, u"㎡"},
    {u"", u"房号", {}, Centre},
    {u"制单日期", u"制单日期", calendar},
    {u"", u"总层", {}, Centre},
    {u"部门", u"部门"},
    {u"  制单人", u"制单人"},
    {u"经纪人", u"经纪人", picker(u"pdmgy")},
    {u"", u"楼层", {}, Centre},
    {u"阳台", u"阳台"},
    {u"卫", u"房型（阳台）", {}, Centre},
    {u"㎡ 朝向", u"朝向", dictionaryLookUp(u"gy_sjzd_cx", u"房屋朝向")},
    {u"厅", u"房型（卫）", {}, Centre},
    {u"房", u"房型（厅）", {}, Centre},
    {u"用途", u"用途", dictionaryLookUp(u"gy_sjzd_yt", u"物业用途")},
    {u"类型", u"类型", dictionaryLookUp(u"gy_sjzd_lx", u"物业类型")},
    {u"建房年代", u"建房年代"},
    {u"交易", u"交易", dictionaryLookUp(u"gy_sjzd_jy", u"交易类型")},
    {u"状态", u"状态", dictionaryLookUp(u"gy_sjzd_zt", u"交易状态")},
    {u"售价", u"售价", {}, Right, u"万元"},
    {u"万元  ", u"单价", {}, Right, u"万元/㎡"},
    {u"/㎡ ", u"底价", {}, Right, u"万元"},
    {u"包税费", u"包税费", dictionaryLookUp(u"gy_sjzd_bsf", u"包税费类型")},
    {u"租价", u"租价", {}, Right, u"元/月"},
    {u"元/月 ", u"单价", {}, Right, u"元/㎡"},
    {u"/㎡ ", u"底价", {}, Right, u"元/月"},
    {u"原购价", u"原购价", {}, Right},
    {u"委托日期", u"委托日期", calendar},
    {u"委托方式", u"委托方式", dictionaryLookUp(u"gy_sjzd_wt", u"委托方式")},
    {u"交房日期", u"交房日期", calendar},
    {u"委托编号", u"委托编号"},
    {u"管理费", u"管理费", {}, Right},
    {u"  来源", u"来源", dictionaryLookUp(u"gy_sjzd_ly", u"房屋来源")},
    {u"现状", u"现状", dictionaryLookUp(u"gy_sjzd_xz", u"房屋现状")},
    {u"装修", u"装修", dictionaryLookUp(u"gy_sjzd_zx", u"装修程度")},
    {u"配套", u"配套", dictionaryLookUp(u"gy_sjzd_pt", u"配套设施")},
    {u"家具", u"家具", dictionaryLookUp(u"gy_sjzd_jj", u"家具配置")},
    {u"家电", u"家电", dictionaryLookUp(u"gy_sjzd_jd", u"家电配置")},
    {u"产权", u"产权", propertyRights},
    {u"证件", u"证件", dictionaryLookUp(u"gy_sjzd_zj", u"证件名称")},
    {u"付款", u"付款", dictionaryLookUp(u"gy_sjzd_fk", u"付款方式")},
    {u"付佣", u"付佣", dictionaryLookUp(u"gy_sjzd_fy", u"付佣金方式")},
    {u"看房", u"看房", dictionaryLookUp(u"gy_sjzd_kf", u"看房方式")},
    {u"", u"钥匙号", {}, Centre},
    {u"  业主", u"业主"},
    {u"联系人", u"联系人"},
    {u"  国籍", u"国籍", dictionaryLookUp(u"gy_sjzd_gj", u"国籍")},
    {u"手机", u"手机"},
    {u"附属房", u"附属房"},
};

using enum Holder;
using enum EditorNumber::Number;
using enum EditorNumber::MemoNumber;

constexpr RecordColumn text(int field, QStringView column)
{
    return {FieldText, field, column};
}

constexpr RecordColumn number(int field, QStringView column)
{
    return {FieldText, field, column, Saved::Number, Loaded::Number};
}

constexpr RecordColumn key(int field, QStringView column)
{
    return {FieldKey, field, column, Saved::Number, Loaded::Number};
}

constexpr RecordColumn count(int field, QStringView column)
{
    return {FieldText, field, column, Saved::Number, Loaded::Trimmed};
}

constexpr RecordColumn date(int field, QStringView column)
{
    return {FieldText, field, column, Saved::Date, Loaded::AsItComes};
}

/// The author's id is listed twice: statements write it before 制单日期, a load reads it after.
constexpr RecordColumn columns[] = {
    text(BillNumber, u"房源编号"),
    key(District, u"地区ID"),
    text(District, u"地区"),
    key(Building, u"楼盘ID"),
    text(Building, u"楼盘字典"),
    key(Block, u"栋座ID"),
    text(Block, u"栋座位置"),
    text(Room, u"房号"),
    text(Floor, u"楼层"),
    text(Floors, u"总楼层"),
    count(Rooms, u"房型_房"),
    count(Halls, u"房型_厅"),
    count(Bathrooms, u"房型_卫"),
    count(Balconies, u"房型_阳台"),
    text(Usage, u"用途"),
    number(Area, u"总面积"),
    number(UsableArea, u"实用面积"),
    text(Orientation, u"朝向"),
    text(PropertyType, u"类型"),
    text(BuiltIn, u"建房年代"),
    {FirstTick, 0, u"房源属性", Saved::Number, Loaded::Number},
    text(Deal, u"交易方式"),
    text(State, u"交易状态"),
    number(SalePrice, u"售房价格"),
    number(LowestSalePrice, u"售房底价"),
    text(SaleTaxes, u"售房包税费"),
    number(Rent, u"租房价格"),
    number(LowestRent, u"租房底价"),
    number(PurchasePrice, u"租房原购价"),
    date(EntrustedOn, u"委托日期"),
    text(EntrustedHow, u"委托方式"),
    number(ManagementFee, u"管理费"),
    date(HandedOverOn, u"交房日期"),
    text(EntrustNumber, u"委托编号"),
    text(Source, u"来源"),
    text(Condition, u"现状"),
    text(Decoration, u"装修"),
    text(Facilities, u"配套"),
    text(Furniture, u"家具"),
    text(Appliances, u"家电"),
    text(PropertyRight, u"产权"),
    text(Certificate, u"证件"),
    text(Payment, u"付款"),
    text(Commission, u"付佣"),
    text(Viewing, u"看房"),
    text(KeyNumber, u"钥匙号"),
    text(Owner, u"业主"),
    text(Contact, u"联系人"),
    text(Nationality, u"国籍"),
    text(Mobile, u"手机"),
    {Memo, ContactRemark, u"联系说明"},
    {Memo, Remark, u"备注"},
    {FieldText, Department, u"部门名称", Saved::Not, Loaded::Trimmed},
    key(Agent, u"业务员ID"),
    {FieldText, Agent, u"业务员", Saved::Not, Loaded::Trimmed},
    {FieldKey, Author, u"用户ID", Saved::Text, Loaded::Not},
    date(AuthoredOn, u"制单日期"),
    {FieldKey, Author, u"用户ID", Saved::Not, Loaded::Trimmed},
    text(Author, u"制单人"),
    date(RegisteredOn, u"操作日期"),
    {FieldText, Annex, u"附属房", Saved::Text, Loaded::AsItComes},
};

constexpr RecordTable record{u"fyxx", u"房源ID", columns, columns, columns};

} // namespace

std::span<const EditorField> editorFields()
{
    return fields;
}

const RecordTable &listingRecord()
{
    return record;
}

} // namespace ebtq
