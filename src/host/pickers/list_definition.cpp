#include "host/pickers/list_definition.h"

namespace ebtq::host {

namespace {

constexpr ListDefinition lists[] = {
    {
        .name = u"gy_fx",
        .title = u"房型",
        .select = u"select 房型编号,房型名称,房间数,客厅数,卫生间数,阳台数 from pdmfx",
        .order = u"房型编号",
        .matches = u"房型编号;房型名称",
        .valueColumn = u"房型编号",
        .textColumn = u"房型名称",
        .shown = u"房型编号;房型名称;房间数;客厅数;卫生间数;阳台数",
    },
    {
        .name = u"gy_fxrpt",
        .title = u"房型",
        .select = u"select 房型编号,房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数 as 房型名称,"
                  u"房间数,客厅数,卫生间数,阳台数 from pdmfx",
        .order = u"房型编号",
        .matches = u"房型编号;房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数",
        .valueColumn = u"房型编号",
        .textColumn = u"房型名称",
        .shown = u"房型编号;房型名称;房间数;客厅数;卫生间数;阳台数",
    },
    {
        .name = u"gy_cq",
        .title = u"产权",
        .select = u"select 产权编号,产权名称,证件名称,付款方式,付佣金方式 from pdmcq",
        .order = u"产权编号",
        .matches = u"产权编号;产权名称",
        .valueColumn = u"产权编号",
        .textColumn = u"产权名称",
        .shown = u"产权编号;产权名称;证件名称;付款方式;付佣金方式",
    },
    {
        .name = u"sy_usertype",
        .title = u"部门",
        .select = u"select mtcode,mtName,mtID from su_usertype",
        .order = u"mtcode",
        .matches = u"mtcode;mtName",
        .valueColumn = u"mtID",
        .textColumn = u"mtName",
        .shown = u"mtcode=编号;mtName=部门",
    },
    {
        .name = u"pdmdq",
        .title = u"地区",
        .select = u"select 编码,地区,地区ID,是否明细 from pdmdq",
        .order = u"级次,编码",
        .matches = u"编码;地区",
        .valueColumn = u"地区ID",
        .textColumn = u"地区",
        .shown = u"编码;地区",
        .levelCodeColumn = u"编码",
        .detailColumn = u"是否明细",
        .detailParameter = u"pdmsfmx",
    },
    // All employees are of one kind here, so the parameter "组织类型" that callers set narrows nothing.
    {
        .name = u"pdmgy",
        .title = u"经纪人",
        .select = u"select 雇员ID,姓名 from pdmgy",
        .order = u"雇员ID",
        .matches = u"姓名",
        .numberKey = u"雇员ID",
        .valueColumn = u"雇员ID",
        .textColumn = u"姓名",
        .shown = u"雇员ID=编号;姓名",
    },
};

/// Kinds of the data dictionary by the help code of the fields that use them.
struct DictionaryKind
{
    QStringView helpCode;
    QStringView kind;
};

constexpr DictionaryKind dictionaryKinds[] = {
    {u"gy_sjzd_yt", u"物业用途"},   {u"gy_sjzd_lx", u"物业类型"}, {u"gy_sjzd_cx", u"房屋朝向"},
    {u"gy_sjzd_jy", u"交易类型"},   {u"gy_sjzd_zt", u"交易状态"}, {u"gy_sjzd_bsf", u"包税费类型"},
    {u"gy_sjzd_wt", u"委托方式"},   {u"gy_sjzd_ly", u"房屋来源"}, {u"gy_sjzd_xz", u"房屋现状"},
    {u"gy_sjzd_zx", u"装修程度"},   {u"gy_sjzd_pt", u"配套设施"}, {u"gy_sjzd_jj", u"家具配置"},
    {u"gy_sjzd_jd", u"家电配置"},   {u"gy_sjzd_zj", u"证件名称"}, {u"gy_sjzd_fk", u"付款方式"},
    {u"gy_sjzd_fy", u"付佣金方式"}, {u"gy_sjzd_kf", u"看房方式"}, {u"gy_sjzd_gj", u"国籍"},
    {u"gy_sjzd_wtdj", u"委托等级"},
};

/// The row's ID is read too, because the building dictionary keeps it as a field's value.
constexpr ListDefinition dictionaryList(const DictionaryKind &entry)
{
    return {
        .name = entry.helpCode,
        .title = entry.kind,
        .select = u"select 代码,名称,ID from pdmsjzd",
        .kind = entry.kind,
        .order = u"代码",
        .matches = u"代码;名称",
        .valueColumn = u"代码",
        .textColumn = u"名称",
        .shown = u"代码;名称",
    };
}

} // namespace

std::optional<ListDefinition> listNamed(QStringView name)
{
    for (const ListDefinition &list : lists) {
        if (list.name.compare(name, Qt::CaseInsensitive) == 0)
            return list;
    }
    for (const DictionaryKind &entry : dictionaryKinds) {
        if (entry.helpCode.compare(name, Qt::CaseInsensitive) == 0)
            return dictionaryList(entry);
    }
    return std::nullopt;
}

} // namespace ebtq::host
