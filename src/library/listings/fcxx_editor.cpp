#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/followups/frm_gj.h"
#include "library/frame/statements.h"
#include "library/listings/fcxx.h"
#include "library/listings/fcxx_list.h"
#include "library/listings/frm_fx.h"

namespace ebtq {

namespace {

/// Where the columns of a saved listing's row go. The marker of attachments and their number stay as they
/// are.
struct Cell
{
    QStringView name;
    int column;
};
constexpr Cell cells[] = {{u"部门", 17},
                          {u"朝向", 12},
                          {u"城区", 4},
                          {u"栋座", ListingBlock},
                          {u"房号", ListingRoom},
                          {u"房型", 10},
                          {u"房源ID", ListingKey},
                          {u"房源编号", 1},
                          {u"交易", 2},
                          {u"楼层1", 8},
                          {u"楼盘字典", 5},
                          {u"面积", 11},
                          {u"售总价", 14},
                          {u"委托日", 16},
                          {u"业务员", 18},
                          {u"租总价", 15},
                          {u"状态", 3},
                          {u"附属房", 9},
                          {u"装修", 13}};

} // namespace

void Fcxx::makeEditors()
{
    m_editor = std::make_unique<FrmFx>(desktop());
    connect(m_editor.get(), &FrmFx::Message, this, &Fcxx::Message);
    connect(m_editor.get(), &FrmFx::ErrMessage, this, &Fcxx::ErrMessage);
    connect(m_editor.get(), &FrmFx::ReturnData, this, &Fcxx::mFrmFx_ReturnData);
    m_followUpEditor = std::make_unique<FrmGj>(desktop());
    connect(m_followUpEditor.get(), &FrmGj::ReturnData, &m_detail, &ListingDetail::mFrmGj_ReturnData);
}

bool Fcxx::isRowValid() const
{
    return m_grid.Row() >= m_grid.FixedRows() && m_grid.Row() < m_grid.Rows();
}

/// Nobody edits or deletes what is not seen: a row that the search box has hidden is refused. So is a row of
/// sums, whose empty key could be that of other rows.
bool Fcxx::isRowInSight()
{
    if (!isRowValid())
        return false;
    const bool isSum = m_grid.isSubtotal(m_grid.Row());
    if (isSum)
        Q_EMIT Message(QStringLiteral("当前行是小计或合计，请先在列表中选择房源！"));
    else if (m_grid.RowHidden(m_grid.Row()))
        Q_EMIT Message(QStringLiteral("当前房源已被过滤隐藏，请先在列表中选择房源！"));
    else
        return true;
    return false;
}

/// The listing of the current row; empty when there is none.
QString Fcxx::listingInSight()
{
    return isRowInSight() ? m_grid.TextMatrix(m_grid.Row(), ListingKey) : QString();
}

void Fcxx::openEditor(const QString &listing, bool hideOwner)
{
    trapped(u"-->OpenFrmFx::", [&] {
        HostApp &host = app();
        m_editor->py_Init(host, m_moduleId, listing, hideOwner);
        return true;
    });
}

void Fcxx::editListing()
{
    if (const QString listing = listingInSight(); !listing.isEmpty())
        openEditor(listing, false);
}

/// Everybody may look at a listing; who may not edit does not see its owner.
void Fcxx::viewListing()
{
    trapped(u"-->VS_DblClick::", [&] {
        if (const QString listing = listingInSight(); !listing.isEmpty())
            openEditor(listing, !app().Rights(m_moduleId)->Allowed(RightEdit));
        return true;
    });
}

void Fcxx::mFrmFx_ReturnData(const QString &psID, bool pbNew)
{
    trapped(u"-->mFrmFx_ReturnData::", [&] {
        if (pbNew) {
            m_grid.insertRow(m_grid.FixedRows());
            m_grid.setRow(m_grid.FixedRows());
            setWheelRange();
        }
        showSavedRow(psID, pbNew ? m_grid.Row() : rowToRewrite(psID));
        m_layout.recount();
        showDetailOfNumber();
        if (pbNew) {
            reportCount();
            m_detail.showCurrent(); // its row became current before it had a key
        }
        return true;
    });
}

/// The current row. A search that was still to come when the editor was opened can have moved it since; then
/// the row of the saved listing, not that of another one.
int Fcxx::rowToRewrite(const QString &listing) const
{
    const int current = m_grid.Row();
    if (m_grid.TextMatrix(current, ListingKey) == listing)
        return current;
    const int own = rowOf(listing);
    return own < 0 ? current : own;
}

/// The key is a GUID and its leading number no listing's key, so the tabs show nothing new until the row
/// changes. That is as it is to be: what was just saved need not be read again.
void Fcxx::showDetailOfNumber()
{
    if (!isRowValid())
        return;
    if (const QString listing = m_grid.TextMatrix(m_grid.Row(), ListingKey); !listing.isEmpty())
        m_detail.ShowDetail(PlainDecimal(Val(listing)));
}

void Fcxx::showSavedRow(const QString &listing, int row)
{
    const auto saved = openRows(app().Db(), listingRowStatement(m_moduleId, listing));
    if (isEmpty(*saved))
        return;
    for (const Cell &cell : cells)
        m_grid.setTextMatrix(row, cell.column, NullConv::ToText(saved->Fields(cell.name.toString()).Value));
}

} // namespace ebtq
