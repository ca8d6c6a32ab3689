#include "screens/listings/frm_fx_layout.h"

namespace ebtq {

namespace {

using enum EditorCell::Group;
using enum EditorCell::Kind;

constexpr EditorCell cells[] = {
    {Basics, 0, 0, Field, 0, u"房源编号"},
    {Basics, 0, 1, Required, 1, u"城区"},
    {Basics, 0, 2, Required, 6, u"楼盘字典"},
    {Basics, 0, 3, Required, 3, u"栋座/位置"},
    {Basics, 0, 4, Field, 8, u"房号"},
    {Basics, 1, 0, Field, 14, u"楼层"},
    {Basics, 1, 1, Field, 10, u"总层"},
    {Basics, 1, 2, Rooms, 4, u"房型"},
    {Basics, 1, 4, Field, 7, u"面积", u"㎡"},
    {Basics, 2, 0, Field, 5, u"实用面积", u"㎡"},
    {Basics, 2, 1, Field, 17, u"朝向"},
    {Basics, 2, 2, Field, 20, u"用途"},
    {Basics, 2, 3, Field, 21, u"类型"},
    {Basics, 2, 4, Field, 22, u"建房年代"},

    {Deal, 0, 0, Required, 23, u"交易"},
    {Deal, 0, 1, Required, 24, u"状态"},
    {Deal, 0, 2, Field, 25, u"售价", u"万元"},
    {Deal, 0, 3, Computed, 26, u"单价", u"万元/㎡"},
    {Deal, 0, 4, Field, 27, u"底价", u"万元"},
    {Deal, 1, 0, Field, 28, u"包税费"},
    {Deal, 1, 1, Field, 29, u"租价", u"元/月"},
    {Deal, 1, 2, Computed, 30, u"单价", u"元/㎡"},
    {Deal, 1, 3, Field, 31, u"底价", u"元/月"},
    {Deal, 1, 4, Field, 32, u"原购价"},
    {Deal, 2, 0, Field, 33, u"委托日期"},
    {Deal, 2, 1, Field, 34, u"委托方式"},
    {Deal, 2, 2, Field, 35, u"交房日期"},
    {Deal, 2, 3, Field, 36, u"委托编号"},
    {Deal, 2, 4, Field, 37, u"管理费"},

    {House, 0, 0, Field, 38, u"来源"},
    {House, 0, 1, Field, 39, u"现状"},
    {House, 0, 2, Field, 40, u"装修"},
    {House, 0, 3, Field, 41, u"配套"},
    {House, 0, 4, Field, 42, u"家具"},
    {House, 1, 0, Field, 43, u"家电"},
    {House, 1, 1, Field, 44, u"产权"},
    {House, 1, 2, Field, 45, u"证件"},
    {House, 1, 3, Field, 46, u"付款"},
    {House, 1, 4, Field, 47, u"付佣"},
    {House, 2, 0, Field, 48, u"看房"},
    {House, 2, 1, Field, 49, u"钥匙号"},
    {House, 2, 2, Field, 54, u"附属房"},
    {House, 2, 3, Field, 2, u"登记日期"},
    {House, 2, 4, Field, 13, u"经纪人"},

    {Owner, 0, 0, Field, 50, u"业主"},
    {Owner, 0, 1, Field, 51, u"联系人"},
    {Owner, 0, 2, Field, 52, u"国籍"},
    {Owner, 0, 3, Field, 53, u"手机"},
    {Owner, 0, 4, Field, 11, u"部门"},
    {Owner, 1, 0, Memo, 0, u"联系"},
    {Owner, 1, 2, Memo, 1, u"备注"},
    {Owner, 1, 4, Field, 12, u"制单人"},
    {Owner, 2, 4, Field, 9, u"制单日期"},
};

constexpr QStringView titles[] = {u"基本信息", u"交易与价格", u"房屋与手续", u"业主与备注"};
constexpr RoomCount rooms[] = {{4, u"房"}, {19, u"厅"}, {18, u"卫"}, {16, u"阳台"}};

} // namespace

std::span<const EditorCell> editorCells()
{
    return cells;
}

QStringView editorGroupTitle(EditorCell::Group group)
{
    return titles[group];
}

std::span<const RoomCount> roomCounts()
{
    return rooms;
}

} // namespace ebtq
