#include "library/followups/frm_gj.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/listings/fcxx.h"
#include "library/listings/fcxx_list.h"

namespace ebtq {

namespace {

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
