#include "library/listings/fcxx_controls.h"

#include "contracts/host_contracts.h"

#include <algorithm>
#include <array>

namespace ebtq {

namespace {

constexpr std::array<ListingField, 6> fields{{
    {0, u"城区", u"pdmdq", {}, {}, {}, {}},
    {1,
     u"房型",
     {},
     u"房型编号",
     u"房型名称",
     u"gy_fxrpt",
     u"select 房型编号,房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数 as "
     u"房型名称,房间数,客厅数,卫生间数,阳台数 "
     u"from pdmfx where (房型编号='@' or 房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数='@')"},
    {3,
     u"状态",
     {},
     u"代码",
     u"名称",
     u"gy_sjzd_zt",
     u"select 代码,名称 from pdmsjzd where 类型='交易状态' and (代码='@' or 名称='@')"},
    {4,
     u"部门",
     {},
     u"mtID",
     u"mtName",
     u"sy_usertype",
     u"select mtcode,mtName,mtID from su_usertype where mtcode='@' or mtname='@'"},
    {5, u"经纪人", u"pdmgy", {}, {}, {}, {}},
    {7, u"楼盘", u"selpdmlpzd", {}, {}, {}, {}},
}};

NavToolbar::Item button(QStringView key, QStringView caption, QStringView icon)
{
    return {key.toString(), caption.toString(), icon.toString()};
}

} // namespace

std::span<const ListingField> listingFields()
{
    return fields;
}

const ListingField &listingField(int number)
{
    const auto found = std::ranges::find(fields, number, &ListingField::number);
    if (found == fields.end())
        throw Failure(QStringLiteral("没有编号为 %1 的筛选栏！").arg(number));
    return *found;
}

std::vector<NavToolbar::Item> listingCommands()
{
    return {
        button(u"all", u"全部", u"view-list-details"),
        button(u"buy", u"出售", u"tag"),
        button(u"rent", u"出租", u""),
        button(u"", u"", u""),
        button(u"new", u"新建房源", u"list-add"),
        button(u"edit", u"修改房源", u"document-edit"),
        button(u"delete", u"删除房源", u"edit-delete"),
        button(u"", u"", u""),
        button(u"gj", u"写跟进", u"edit-comment"),
        button(u"", u"", u""),
        button(u"refresh", u"刷新", u"view-refresh"),
        button(u"", u"", u""),
        button(u"close", u"关闭", u"dialog-close"),
    };
}

} // namespace ebtq
