#include "library/customers/khxx_tables.h"

#include "library/frame/statements.h"
#include "library/lists/common_tables.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using namespace CustomerFilter;

constexpr FilterField fields[] = {
    districtFilter(District),
    {.number = Rooms, .caption = u"房型", .lookUp = houseTypeLookUp},
    {.number = State, .caption = u"状态", .lookUp = {.kind = LookUp::InlineList, .name = u"|有效;0|失效;1"}},
    departmentFilter(Department, u"  部门"),
    agentFilter(Agent),
    {.number = Grade, .caption = u"等级", .lookUp = dictionaryLookUp(u"gy_sjzd_wtdj", u"委托等级")},
};

using enum FilterClause::Kind;

constexpr FilterClause clauses[] = {
    departmentClause(Department),
    agentClause(Agent),
    {Text, District, u" and A.地区='", u"'"},
    {Text, Grade, u" and A.委托等级='", u"'"},
    {Text, Rooms, u" and 需求户型='", u"'"},
    {Ticks, -1, u" and 方式=1", u" and 方式=2"},
    {TextKey, State, u" and 状态="},
    {PeriodTime, -1, u" and 操作日期>#", u"#"},
};

constexpr ListFilterTables filter{.fields = fields,
                                  .ticks = {u"求购", u"求租"},
                                  .periods = u"显示最近",
                                  .clauses = clauses,
                                  .refusalsNameTheField = false};

constexpr int hiddenColumns[] = {0, CustomerKey};

constexpr ListGrid grid{.format =
                            u" * |方式  |状态  | 委托编号  | 客户名称    | 需求片区                 "
                            u"|需求面积         |求购价格(万元)"
                            u"|求租价格(元/月)|需求房型    | 委托日期        |部门       |经纪人    |客源ID",
                        .hiddenColumns = hiddenColumns,
                        .toolTip = u"提示：双击进入客源信息编辑",
                        .selectionColor = softYellow};

constexpr ListTables list{.grid = grid,
                          .firstColumn = CustomerDeal,
                          .keyColumn = CustomerKey,
                          .filter = &filter,
                          .wheel = ListTables::Wheel::Relative,
                          .searchSensitivity = Qt::CaseInsensitive,
                          .tellsCount = false,
                          .printTitle = u"客源信息列表"};

constexpr auto buttons = recordButtons(u"求购", u"求租", u"新建", u"修改", u"删除");

constexpr int clearedValues[] = {District, Department, Agent};

constexpr SavedCell savedCells[] = {
    {u"方式1", CustomerDeal},       {u"状态1", CustomerState},       {u"委托编号", CustomerCode},
    {u"客户名称", CustomerName},    {u"需求片区", CustomerDistrict}, {u"需求面积", CustomerArea},
    {u"需求购价格", CustomerPrice}, {u"需求租价格", CustomerRent},   {u"需求房型", CustomerRooms},
    {u"委托日期", CustomerDate},    {u"部门", CustomerDepartment},   {u"业务员", CustomerAgent},
    {u"客源ID", CustomerKey}};

/// Deliberately the customers report under the listings' name.
constexpr RecordListTables records{.buttons = buttons,
                                   .clearedValues = clearedValues,
                                   .savedCells = savedCells,
                                   .numberColumn = CustomerCode,
                                   .noun = u"客源",
                                   .openTag = u"-->OpenFrmKh::",
                                   .deleteTitle = u"Fcxx"};

/// The statement up to its where clause; the names are those of the two columns that have none in the list.
SqlText customerSelect(QStringView dealName, QStringView stateName)
{
    QString sql = u"select iif(方式=1,'求购',iif(方式=2,'求租',iif(方式=3,'购租','')))"_s;
    sql += dealName;
    sql += QStringView(u",iif(状态=0,'有效','失效')");
    sql += stateName;
    sql += QStringView(u",客源编号 as 委托编号,客户名称,地区 as 需求片区,"
                       u"面积1 & '-' & 面积2 as 需求面积,求购价格1 & '-' & 求购价格2 as 需求购价格,"
                       u"求租价格1 & '-' & 求租价格2 as 需求租价格,"
                       u"需求户型 as  需求房型,委托日期,C.mtname as 部门,D.姓名 as 业务员,客源ID"
                       u" from ((fykh A left join su_membership B on A.用户ID=B.userID)"
                       u" left join su_usertype C on B.UserTypeID=C.mtID)"
                       u" left join pdmgy D on A.业务员ID=D.雇员ID");
    return sql;
}

} // namespace

const ListTables &customerList()
{
    return list;
}

const RecordListTables &customerRecords()
{
    return records;
}

SqlText customerStatement(const SqlText &where)
{
    return customerSelect({}, {}) + where + u" order by 客源编号"_s;
}

SqlText customerRowStatement(const QString &customer)
{
    return customerSelect(u" as 方式1", u" as 状态1") + u" where 客源ID="_s + quoted(customer);
}

} // namespace ebtq
