#include "library/followups/cx_gj.h"

#include "contracts/conversions.h"
#include "library/followups/follow_up_rows.h"
#include "library/frame/desktop.h"
#include "library/lists/common_tables.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr LookUp day{.kind = LookUp::Calendar};
constexpr FilterField::Parameter agentsAlone[] = {{u"组织类型", 1}, {u"lock", 1}};

constexpr FilterField fields[] = {
    {.number = Cx_Gj::From, .caption = u"跟进日期从", .lookUp = day, .judge = qzTxt_S::JudgeDate},
    {.number = Cx_Gj::To, .caption = u"        到", .lookUp = day, .judge = qzTxt_S::JudgeDate},
    departmentFilter(Cx_Gj::Department, u"  部门"),
    agentFilter(Cx_Gj::Agent, agentsAlone),
    {.number = Cx_Gj::Limit, .caption = u"显示记录数", .text = u"100", .judge = qzTxt_S::JudgeLimit},
};

using enum FilterClause::Kind;

constexpr FilterClause clauses[] = {
    {Key, Cx_Gj::Department, u" and B.UserTypeID="},
    agentClause(Cx_Gj::Agent),
    {Text, Cx_Gj::From, u" and 操作日期>=#", u"#"},
    {NextDay, Cx_Gj::To, u" and 操作日期<#", u"#"},
    {Ticks, -1, u" and 房源ID in(select 房源ID from fyxx)", u" and 房源ID in(select 客源ID from fykh)"},
};

constexpr ListFilterTables filter{.fields = fields,
                                  .ticks = {u"房源", u"客源"},
                                  .periods = {},
                                  .clauses = clauses,
                                  .refusalsNameTheField = false};

constexpr int hiddenColumns[] = {0, FollowUpKey};

constexpr ListGrid grid{
    .format = followUpFormat, .hiddenColumns = hiddenColumns, .selectionColor = softYellow};

constexpr ListTables list{.grid = grid,
                          .firstColumn = FollowUpTime,
                          .keyColumn = FollowUpKey,
                          .filter = &filter,
                          .wheel = ListTables::Wheel::Relative,
                          .searchSensitivity = Qt::CaseInsensitive,
                          .refreshTag = u"-->IReportUI_Refresh::",
                          .printTitle = u"跟进信息列表\r"};

} // namespace

/// Its failures are reported under the listings' name with a mark in front, as readers of the messages know
/// it.
Cx_Gj::Cx_Gj(Desktop &desktop)
    : FollowUpList(u"Cx_Gj"_s, desktop, {u"Cx_Fcxx"_s, applicationTitle()}, list)
{}

SqlText Cx_Gj::statement()
{
    SqlText sql(u"select "_s);
    if (const double limit = Val(qzTxt(Limit).Text()); limit > 0)
        sql += u" top "_s + PlainDecimal(limit);
    sql += followUpSource();
    sql += filter().where(desktop().now());
    sql += QStringView(u" order by 操作日期 desc");
    return sql;
}

} // namespace ebtq
