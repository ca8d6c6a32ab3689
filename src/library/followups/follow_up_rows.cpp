#include "library/followups/follow_up_rows.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/controls/flex_grid.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// Columns that take a value as it was saved.
struct Cell
{
    QStringView name;
    FollowUpColumn column;
};
constexpr Cell cells[] = {
    {u"操作日期", FollowUpTime},   {u"跟进内容", FollowUpContents},     {u"部门", FollowUpDepartment},
    {u"业务员", FollowUpAgent},    {u"提醒日期", FollowUpReminderTime}, {u"提醒内容", FollowUpReminder},
    {u"处理结果", FollowUpResult}, {u"处理日期", FollowUpResultTime},   {u"跟进ID", FollowUpKey}};
constexpr QStringView ranges[] = {u"本人", u"本部", u"全部"};

constexpr QStringView tables = u" from ((fygj A left join su_membership B on A.用户ID=B.userID)"
                               u" left join su_usertype C on B.UserTypeID=C.mtID)"
                               u" left join pdmgy D on A.业务员ID=D.雇员ID";

constexpr QStringView newestFirst = u" order by 操作日期 desc";

SqlText rowStatement(const QString &followUp)
{
    SqlText sql(u"select 操作日期,跟进内容,C.mtname as 部门,D.姓名 as 业务员,跟进ID,下次提醒,提醒日期,"
                u"提醒范围,提醒内容,处理结果,处理日期"_s);
    sql += tables;
    return sql + QStringView(u" where 跟进ID=") + quoted(followUp) + newestFirst;
}

void showRange(VSFlexGrid &grid, int row, const QVariant &range)
{
    for (int known = 0; known < static_cast<int>(std::size(ranges)); ++known) {
        if (!NullConv::ToText(range).isEmpty() && Val(range) == known)
            grid.setTextMatrix(row, FollowUpRange, ranges[known].toString());
    }
}

} // namespace

const ListGrid &followUpGrid()
{
    static constexpr int hidden[] = {0, FollowUpKey};
    static constexpr ListGrid grid{
        .format = followUpFormat, .hiddenColumns = hidden, .toolTip = u"提示：双击进入原始单据查询"};
    return grid;
}

SqlText followUpSource()
{
    SqlText sql(u" 操作日期,跟进内容,C.mtname as 部门,D.姓名 as 业务员,iif(下次提醒=1,'是','否'),提醒日期,"
                u"iif(提醒范围=0 or 提醒范围 is "
                u"null,'本人',iif(提醒范围=1,'本部','全部')),提醒内容,处理结果,处理日期,跟进ID"_s);
    sql += tables;
    return sql;
}

SqlText followUpsOf(const QString &owner)
{
    return SqlText(u"select"_s) + followUpSource() + QStringView(u" where 房源ID=") + quoted(owner) +
           newestFirst;
}

void showFollowUp(HostDb &db, VSFlexGrid &grid, int row, const QString &followUp)
{
    const auto saved = openRows(db, rowStatement(followUp));
    if (isEmpty(*saved))
        return;
    const auto value = [&](QStringView name) { return saved->Fields(name.toString()).Value; };
    for (const Cell &cell : cells)
        grid.setTextMatrix(row, cell.column, NullConv::ToText(value(cell.name)));
    showRange(grid, row, value(u"提醒范围"));
    grid.setTextMatrix(row, FollowUpReminds, Val(value(u"下次提醒")) == 1 ? u"是"_s : u"否"_s);
}

} // namespace ebtq
