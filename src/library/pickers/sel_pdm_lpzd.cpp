#include "library/pickers/sel_pdm_lpzd.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/pickers/picked_rows.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int hiddenColumns[] = {12, 13};
constexpr int rightColumns[] = {7, 8};

constexpr char16_t rowsOfBuildings[] =
    u"select 楼盘编号,拼音缩写,楼盘名称,物业用途,物业类型,建房年代,售均价,管理费,详细地址,备注,地区,"
    u"A.地区ID,楼盘ID from pdmlpzd A left join pdmdq B on A.地区ID=B.地区ID";

constexpr NarrowedList buildings{
    .grid = {.format = u" |楼盘编号|拼音缩写|楼盘名称  |物业用途|物业类型|建房年代|售均价  |管理费  "
                       u"|详细地址           |备注|地区    |地区ID|楼盘ID",
             .hidden = hiddenColumns,
             .right = rightColumns},
    .list = rowsOfBuildings,
    .columns = u"楼盘编号,拼音缩写,楼盘名称,物业用途,物业类型,建房年代,售均价,管理费,详细地址,备注,地区,"
               u"地区ID,楼盘ID",
    .key = u"楼盘ID",
    .text = u"楼盘名称",
    .order = u"楼盘编号",
    .check = rowsOfBuildings,
    .matches = u"楼盘编号,楼盘名称,拼音缩写",
    .caption = u"地区(&T):",
    .owners = u"select 地区ID,地区 from pdmdq where 是否明细=1 order by 编码",
    .ownerKey = u"地区ID",
    .ownerName = u"地区",
    .listOwner = u"A.地区ID",
    .parameter = u"地区",
};

template<class T> struct RowField
{
    T clsLpzd::*field;
    QStringView column;
};
constexpr RowField<double> numberFields[] = {{&clsLpzd::d管理费, u"管理费"}, {&clsLpzd::d售均价, u"售均价"}};
constexpr RowField<int> keyFields[] = {{&clsLpzd::l地区ID, u"地区ID"}, {&clsLpzd::l楼盘ID, u"楼盘ID"}};
constexpr RowField<QString> textFields[] = {
    {&clsLpzd::s备注, u"备注"},         {&clsLpzd::s建房年代, u"建房年代"},
    {&clsLpzd::s楼盘编号, u"楼盘编号"}, {&clsLpzd::s楼盘名称, u"楼盘名称"},
    {&clsLpzd::s拼音缩写, u"拼音缩写"}, {&clsLpzd::s物业类型, u"物业类型"},
    {&clsLpzd::s物业用途, u"物业用途"}, {&clsLpzd::s详细地址, u"详细地址"},
};

} // namespace

selPdmLpzd::selPdmLpzd(Desktop &desktop)
    : NarrowedPicker(u"selPdmLpzd"_s, desktop, buildings)
{}

std::shared_ptr<const PickedRow> selPdmLpzd::emptyRow() const
{
    return std::make_shared<clsLpzd>();
}

std::shared_ptr<const PickedRow> selPdmLpzd::readRow(const RowReader &read) const
{
    const auto row = std::make_shared<clsLpzd>();
    for (const auto &[field, column] : numberFields)
        (*row).*field = Val(read(column.toString()));
    for (const auto &[field, column] : keyFields)
        (*row).*field = NullConv::ToLong(read(column.toString()));
    for (const auto &[field, column] : textFields)
        (*row).*field = NullConv::ToText(read(column.toString()));
    return row;
}

} // namespace ebtq
