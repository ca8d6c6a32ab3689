#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/followups/frm_gj.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/listings/fcxx.h"
#include "library/listings/fcxx_list.h"

namespace ebtq {

namespace {

/// Columns of the grid of follow-ups that take a value as it was saved.
struct FollowUpCell
{
    QStringView name;
    int column;
};
constexpr FollowUpCell followUpCells[] = {{u"部门", 3},      {u"业务员", 4},   {u"跟进ID", 11},
                                          {u"跟进内容", 2},  {u"操作日期", 1}, {u"处理结果", 9},
                                          {u"处理日期", 10}, {u"提醒内容", 8}, {u"提醒日期", 6}};
constexpr int remindsColumn = 5;
constexpr int rangeColumn = 7;
constexpr QStringView ranges[] = {u"本人", u"本部", u"全部"};

SqlText followUpStatement(const QString &followUp)
{
    return SqlText(QStringLiteral(
               "select 操作日期,跟进内容,C.mtname as 部门,D.姓名 as 业务员,跟进ID,下次提醒,提醒日期,提醒范围,"
               "提醒内容,处理结果,处理日期 from ((fygj A left join su_membership B on A.用户ID=B.userID)"
               " left join su_usertype C on B.UserTypeID=C.mtID) left join pdmgy D on A.业务员ID=D.雇员ID"
               " where 跟进ID='")) +
           typed(followUp) + QStringLiteral("' order by 操作日期 desc");
}

void showFollowUp(VSFlexGrid &grid, int row, const Recordset &saved)
{
    const auto value = [&](QStringView name) { return saved.Fields(name.toString()).Value; };
    for (const FollowUpCell &cell : followUpCells)
        grid.setTextMatrix(row, cell.column, NullConv::ToText(value(cell.name)));
    const QVariant range = value(u"提醒范围");
    for (int known = 0; known < 3; ++known)
        if (!NullConv::ToText(range).isEmpty() && Val(range) == known)
            grid.setTextMatrix(row, rangeColumn, ranges[known].toString());
    grid.setTextMatrix(row, remindsColumn,
                       Val(value(u"下次提醒")) == 1 ? QStringLiteral("是") : QStringLiteral("否"));
}

SqlText deletion(const QString &table, const QString &listing)
{
    return SqlText(QStringLiteral(" Delete from %1 where 房源ID='").arg(table)) + typed(listing) +
           QStringLiteral("'");
}

} // namespace

// Follow-ups

/// A follow-up is written whatever row is current, also in an empty list, whose row is the header: what an
/// agent has heard must not wait for a listing. Where it is not plain to see what it will belong to, he is
/// told.
void Fcxx::writeFollowUp()
{
    trapped(u"-->OpenFrmGj::", [&] {
        HostApp &host = app();
        const int row = m_grid.Row();
        if (!isRowValid() || m_grid.isSubtotal(row))
            Q_EMIT Message(QStringLiteral("列表中没有当前房源，所写跟进将不属于任何房源！"));
        else if (m_grid.RowHidden(row))
            Q_EMIT Message(QStringLiteral("当前房源 %1 已被过滤隐藏，所写跟进将属于该房源！")
                               .arg(m_grid.TextMatrix(row, ListingNumber)));
        m_followUpEditor->py_Init(host, m_grid.TextMatrix(row, ListingKey), {}, false);
        return true;
    });
}

/// A new follow-up stands at the bottom until the tab is loaded again, newest first.
void Fcxx::mFrmGj_ReturnData(const QString &psID, bool pbNew)
{
    trapped(u"-->mFrmGj_ReturnData::", [&] {
        VSFlexGrid &grid = m_detail.VsGj();
        if (pbNew)
            grid.setRows(grid.Rows() + 1);
        const int row = pbNew ? grid.Rows() - 1 : grid.Row();
        const auto saved = openRows(app().Db(), followUpStatement(psID));
        if (!isEmpty(*saved))
            showFollowUp(grid, row, *saved);
        return true;
    });
}

// Deletion

/// Two statements without a transaction around them: when the second one fails, the follow-ups stay deleted
/// and the listing stays, in the list as well. Attachments and pictures are left in the database.
void Fcxx::deleteListing()
{
    trapped(u"-->Delete::", [&] {
        if (!isRowInSight())
            return false;
        const int row = m_grid.Row();
        const QString listing = m_grid.TextMatrix(row, ListingKey);
        const auto deleted = isDeletionAgreed() ? deleteRows(listing) : nullptr;
        if (!deleted)
            return false;
        if (deleted->RowsChanged() == 0)
            raiseError(QStringLiteral("所选房源已被他人删除，现从列表中移除！"), Refusal, name());
        m_grid.RemoveItem(row);
        m_layout.recount();
        setWheelRange();
        reportCount();
        m_detail.showCurrent();
        return true;
    });
}

/// A search that was still to come can move or hide the current row while the question stands; then the
/// answer was meant for another row than the one that is seen.
bool Fcxx::isDeletionAgreed()
{
    const int asked = m_grid.Row();
    const auto answer = desktop().messageBox(QStringLiteral("是否删除当前所选记录:"), QStringLiteral("提示:"),
                                             Desktop::Icon::Question, Desktop::Buttons::YesNo);
    if (answer != Desktop::Answer::Yes)
        return false;
    if (m_grid.Row() == asked && !m_grid.RowHidden(asked))
        return true;
    Q_EMIT Message(QStringLiteral("当前房源已经改变，没有删除，请重新选择房源！"));
    return false;
}

std::unique_ptr<HostQuery> Fcxx::deleteRows(const QString &listing)
{
    try {
        executeStatement(app().Db(), deletion(QStringLiteral("fygj"), listing));
        return executeStatement(app().Db(), deletion(QStringLiteral("fyxx"), listing));
    } catch (const StatementFailure &failure) {
        raiseError(QString::fromUtf8(failure.what()), FailureLevel, name());
        return nullptr;
    }
}

} // namespace ebtq
