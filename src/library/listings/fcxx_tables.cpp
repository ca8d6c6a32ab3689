#include "library/listings/fcxx_tables.h"

#include "library/frame/statements.h"
#include "library/lists/common_tables.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using namespace ListingFilter;

constexpr FilterField fields[] = {
    districtFilter(District),
    {.number = Rooms,
     .caption = u"房型",
     .lookUp = {.kind = LookUp::HostList,
                .name = u"gy_fxrpt",
                .valueColumn = u"房型编号",
                .textColumn = u"房型名称",
                .statement = u"select 房型编号,房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数 as "
                             u"房型名称,房间数,客厅数,卫生间数,阳台数 from pdmfx where (房型编号='@' or "
                             u"房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数='@')"}},
    {.number = State, .caption = u"状态", .lookUp = dictionaryLookUp(u"gy_sjzd_zt", u"交易状态")},
    departmentFilter(Department, u"部门"),
    agentFilter(Agent),
    {.number = Building,
     .caption = u"楼盘",
     .lookUp = {.kind = LookUp::Picker, .name = u"selpdmlpzd"},
     .narrowedBy = District,
     .narrowedAs = u"地区"},
};

using enum FilterClause::Kind;

constexpr FilterClause clauses[] = {
    departmentClause(Department),
    agentClause(Agent),
    {Text, District, u" and A.地区='", u"'"},
    {Text, Building, u" and A.楼盘字典='", u"'"},
    {Text, Rooms, u" and 房型_房 & '-' & 房型_厅 & '-' & 房型_卫 & '-' & 房型_阳台='", u"'"},
    {Ticks, -1, u" and 交易方式 like '%售%'", u" and 交易方式 like '%租%'"},
    {Text, State, u" and 交易状态='", u"'"},
    {Period, -1, u" and 操作日期>#", u"#"},
};

constexpr ListFilterTables filter{.fields = fields, .ticks = {u"出售", u"出租"}, .clauses = clauses};

constexpr int hiddenColumns[] = {ListingKey, ListingAttachments, ListingBlock, ListingRoom};

constexpr ListGrid grid{
    .format =
        u" |房源编号  |交易  |状态  |城区                |楼盘字典        |栋座    |房号  |楼层|附属房       "
        u" "
        u"  |房型    |面积      |朝向|装修  |售总价    |租总价    |委托日      |部门  |经纪人|房源ID|附件",
    .fixedColumns = 0,
    .hiddenColumns = hiddenColumns,
    .toolTip = u"提示：双击进入原始单据查询",
    .alternateColor = softYellow};

constexpr ListTables list{.grid = grid,
                          .firstColumn = ListingMarker,
                          .keyColumn = ListingKey,
                          .filter = &filter,
                          .printTitle = u"房源信息列表"};

constexpr auto buttons = recordButtons(u"出售", u"出租", u"新建房源", u"修改房源", u"删除房源");

/// Nothing reads the values behind the others.
constexpr int clearedValues[] = {District, Department, Agent};

/// The marker of attachments and their number stay as they are.
constexpr SavedCell savedCells[] = {
    {u"部门", ListingDepartment},  {u"朝向", ListingFacing},       {u"城区", ListingDistrict},
    {u"栋座", ListingBlock},       {u"房号", ListingRoom},         {u"房型", ListingRooms},
    {u"房源ID", ListingKey},       {u"房源编号", ListingNumber},   {u"交易", ListingDeal},
    {u"楼层1", ListingFloor},      {u"楼盘字典", ListingBuilding}, {u"面积", ListingArea},
    {u"售总价", ListingSalePrice}, {u"委托日", ListingDate},       {u"业务员", ListingAgent},
    {u"租总价", ListingRent},      {u"状态", ListingState},        {u"附属房", ListingAnnex},
    {u"装修", ListingFitting}};

constexpr RecordListTables records{.buttons = buttons,
                                   .clearedValues = clearedValues,
                                   .savedCells = savedCells,
                                   .numberColumn = ListingNumber,
                                   .noun = u"房源",
                                   .openTag = u"-->OpenFrmFx::",
                                   .deleteTitle = u"Fcxx"};

} // namespace

const ListTables &listingList()
{
    return list;
}

const RecordListTables &listingRecords()
{
    return records;
}

namespace {

/// The statement up to its where clause; `floors` names the column of the floors, which has no name in the
/// list.
SqlText listingSelect(int moduleId, QStringView floors)
{
    QString sql =
        u"select '',房源编号,交易方式  as 交易,交易状态 as 状态,地区 as 城区,楼盘字典,栋座位置 as 栋座,房号,"
        u"楼层 & '/' & 总楼层"_s;
    sql += floors;
    sql += QStringView(
        u", 附属房,"
        u"房型_房 & '房' & 房型_厅 & '厅' & 房型_卫 & '卫' & 房型_阳台 &'阳台' as 房型,"
        u"总面积 as 面积,朝向,装修,售房价格 & '万元' as 售总价,租房价格 & '元/月' as 租总价,委托日期 as "
        u"委托日,"
        u"C.mtname as 部门,D.姓名 as 业务员,房源ID"
        u",(select count(rowindex) from pubAttach where isActive=1 and isPicture<>1 and progID=");
    sql += QString::number(moduleId);
    sql += QStringView(u" and ids=A.房源ID) as 附件"
                       u" from ((fyxx A left join su_membership B on A.用户ID=B.userID)"
                       u" left join su_usertype C on B.UserTypeID=C.mtID)"
                       u" left join pdmgy D on A.业务员ID=D.雇员ID");
    return sql;
}

} // namespace

SqlText listingStatement(int moduleId, const SqlText &where)
{
    return listingSelect(moduleId, {}) + where + u" order by 房源编号 desc"_s;
}

SqlText listingRowStatement(int moduleId, const QString &listing)
{
    return listingSelect(moduleId, u" as 楼层1") + u" where 房源ID="_s + quoted(listing);
}

} // namespace ebtq
