#include "library/pickers/sel_pdm_dz.h"

#include "contracts/null_conv.h"
#include "library/pickers/picked_rows.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int hiddenColumns[] = {4, 5};
constexpr int rightColumns[] = {3};

/// A look-up joins the building for its name; the list has the building's key already.
constexpr NarrowedList blocks{
    .grid = {.format = u" |栋座编号|栋座名称  |总楼层|栋座ID|楼盘ID",
             .hidden = hiddenColumns,
             .right = rightColumns},
    .list = u"select 栋座编号,栋座名称,总楼层,栋座ID,楼盘ID from pdmDz",
    .columns = u"栋座编号,栋座名称,总楼层,栋座ID,楼盘ID",
    .key = u"栋座ID",
    .text = u"栋座名称",
    .order = u"栋座编号",
    .check = u"select 栋座编号,栋座名称,总楼层,栋座ID,A.楼盘ID from pdmDz A left join pdmlpzd B"
             u" on A.楼盘ID=B.楼盘ID",
    .matches = u"栋座编号,栋座名称",
    .caption = u"楼盘字典(&T):",
    .owners = u"select 楼盘ID,楼盘名称 from pdmlpzd order by 楼盘编号",
    .ownerKey = u"楼盘ID",
    .ownerName = u"楼盘名称",
    .listOwner = u"楼盘ID",
    .parameter = u"楼盘",
};

} // namespace

selPdmDz::selPdmDz(Desktop &desktop)
    : NarrowedPicker(u"selPdmDz"_s, desktop, blocks)
{}

std::shared_ptr<const PickedRow> selPdmDz::emptyRow() const
{
    return std::make_shared<clsDz>();
}

std::shared_ptr<const PickedRow> selPdmDz::readRow(const RowReader &read) const
{
    const auto row = std::make_shared<clsDz>();
    row->l栋座ID = NullConv::ToLong(read(u"栋座ID"_s));
    row->l楼盘ID = NullConv::ToLong(read(u"楼盘ID"_s));
    row->s栋座编号 = NullConv::ToText(read(u"栋座编号"_s));
    row->s栋座名称 = NullConv::ToText(read(u"栋座名称"_s));
    row->l总楼层 = NullConv::ToLong(read(u"总楼层"_s));
    return row;
}

} // namespace ebtq
