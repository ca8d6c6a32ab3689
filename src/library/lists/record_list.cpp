#include "library/lists/record_list.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/lists/record_detail.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int noMenuAttribute = 99;

} // namespace

RecordList::RecordList(const QString &name, Desktop &desktop, FailureNames failures, const ListTables &list,
                       const RecordListTables &records)
    : ListModule(name, desktop, std::move(failures), list)
    , m_records(records)
    , m_toolbar(controls().add<NavToolbar>(u"NavToolbar1"_s))
{
    makeToolbar();
    connect(&VS(), &VSFlexGrid::MouseDown, this, &RecordList::VsMouseDown);
    connect(&VS(), &VSFlexGrid::DblClick, this, &RecordList::openOnDoubleClick);
}

void RecordList::makeToolbar()
{
    std::vector<NavToolbar::Item> items;
    for (const RecordListTables::Button &button : m_records.buttons)
        items.push_back({button.key.toString(), button.caption.toString(), button.icon.toString()});
    m_toolbar.setItems(std::move(items));
    connect(&m_toolbar, &NavToolbar::ButtonClick, this, &RecordList::pressed);
}

void RecordList::applyRights()
{
    const auto rights = app().Rights(moduleId());
    m_toolbar.setEnabled(u"new"_s, rights->Allowed(RightNew));
    m_toolbar.setEnabled(u"edit"_s, rights->Allowed(RightEdit));
    m_toolbar.setEnabled(u"delete"_s, rights->Allowed(RightDelete));
    m_toolbar.setEnabled(u"gj"_s, !app().Db().ReadOnly());
}

bool RecordList::IReportUI_Clear()
{
    VS().setRows(0);
    return ListModule::IReportUI_Clear();
}

QVariant RecordList::IReportUI_Attributes(const QVariant &key)
{
    return Val(key) == noMenuAttribute ? u"nomenu"_s : QString();
}

QString RecordList::named(QStringView text) const
{
    return text.toString().arg(m_records.noun);
}

QString RecordList::currentNumber()
{
    const int row = VS().Row();
    return isRowValid() && !VS().isSubtotal(row) ? VS().TextMatrix(row, m_records.numberColumn) : QString();
}

// Commands

void RecordList::pressed(const QString &key)
{
    static constexpr struct
    {
        QStringView key;
        void (RecordList::*run)();
    } commands[] = {
        {u"all", &RecordList::showAll},         {u"buy", &RecordList::showFirstKind},
        {u"rent", &RecordList::showSecondKind}, {u"new", &RecordList::openNew},
        {u"edit", &RecordList::openCurrent},    {u"delete", &RecordList::deleteCurrent},
        {u"gj", &RecordList::writeFollowUp},    {u"refresh", &RecordList::refreshList},
        {u"close", &RecordList::close},
    };
    const QString wanted = key.toLower();
    for (const auto &command : commands) {
        if (command.key == wanted)
            return (this->*command.run)();
    }
}

void RecordList::showOnly(bool first, bool second)
{
    Chk(0).setValue(first ? 1 : 0);
    Chk(1).setValue(second ? 1 : 0);
    filter().clear(m_records.clearedValues);
    IReportUI_Refresh();
}

void RecordList::close()
{
    bool returning = true;
    Q_EMIT UnLoad(returning);
}

// The current row

void RecordList::rowChanged(const QString &key)
{
    recordDetail().ShowDetail(key);
}

bool RecordList::ShowRecord(const QString &key)
{
    const auto isSeen = [&] { return rowOf(key) >= 0 && !VS().RowHidden(rowOf(key)); };
    if (!isSeen()) {
        SearchBox1().setText({});
        VS().showAllRows();
    }
    if (!isSeen()) {
        if (hasPeriods())
            XPCmb().setText({});
        showAll();
    }
    if (!isSeen())
        return false;
    if (const int row = rowOf(key); row != VS().Row())
        VS().setRow(row);
    else
        rowChanged(key); // its tabs may be older than what one comes from
    return true;
}

/// Nobody edits or deletes what is not seen: a row that the search box has hidden is refused. So is a row of
/// sums, whose empty key could be that of other rows.
bool RecordList::isRowInSight()
{
    if (!isRowValid())
        return false;
    if (VS().isSubtotal(VS().Row()))
        Q_EMIT Message(named(u"当前行是小计或合计，请先在列表中选择%1！"));
    else if (VS().RowHidden(VS().Row()))
        Q_EMIT Message(named(u"当前%1已被过滤隐藏，请先在列表中选择%1！"));
    else
        return true;
    return false;
}

/// The record of the current row; empty when there is none.
QString RecordList::keyInSight()
{
    return isRowInSight() ? keyOf(VS().Row()) : QString();
}

// Editors

void RecordList::open(const QString &key, bool isRestricted)
{
    trapped(m_records.openTag, [&] {
        openEditor(app(), key, isRestricted);
        return true;
    });
}

void RecordList::openCurrent()
{
    if (const QString key = keyInSight(); !key.isEmpty())
        open(key, false);
}

bool RecordList::mayCopy() const
{
    return m_toolbar.isEnabled(u"new"_s) && m_toolbar.isEnabled(u"edit"_s);
}

void RecordList::copyCurrent()
{
    trapped(m_records.openTag, [&] {
        if (const QString key = mayCopy() ? keyInSight() : QString(); !key.isEmpty())
            openCopy(app(), key);
        return true;
    });
}

QString RecordList::goToNeighbour(int step)
{
    int row = VS().Row() + step;
    const auto isRow = [&] { return row >= VS().FixedRows() && row < VS().Rows(); };
    while (isRow() && (VS().RowHidden(row) || VS().isSubtotal(row) || keyOf(row).isEmpty()))
        row += step;
    if (!isRow()) {
        Q_EMIT Message(named(step < 0 ? u"已是列表中的第一条%1！" : u"已是列表中的最后一条%1！"));
        return {};
    }
    VS().setRow(row);
    return keyOf(row);
}

/// Everybody may look at a record.
void RecordList::openOnDoubleClick()
{
    trapped(u"-->VS_DblClick::", [&] {
        if (const QString key = keyInSight(); !key.isEmpty())
            open(key, !app().Rights(moduleId())->Allowed(RightEdit));
        return true;
    });
}

/// A follow-up is written whatever row is current, also in an empty list, whose row is the header: what an
/// agent has heard must not wait for a record. Where it is not plain to see what it will belong to, he is
/// told.
void RecordList::writeFollowUp()
{
    trapped(u"-->OpenFrmGj::", [&] {
        const int row = VS().Row();
        if (!isRowValid() || VS().isSubtotal(row))
            Q_EMIT Message(named(u"列表中没有当前%1，所写跟进将不属于任何%1！"));
        else if (VS().RowHidden(row))
            Q_EMIT Message(named(u"当前%1 %2 已被过滤隐藏，所写跟进将属于该%1！")
                               .arg(VS().TextMatrix(row, m_records.numberColumn)));
        openFollowUpEditor(app(), keyOf(row));
        return true;
    });
}

// Return of a saved record

void RecordList::showSaved(const QString &key, bool isNew)
{
    if (isNew) {
        VS().insertRow(VS().FixedRows());
        VS().setRow(VS().FixedRows());
    }
    const int row = isNew ? VS().Row() : rowToRewrite(key);
    const auto saved = openRows(app().Db(), rowStatement(key));
    if (isEmpty(*saved)) {
        raiseError(named(u"这条%1保存之后已被他人删除！"), Refusal, name());
    } else if (row >= 0) {
        for (const SavedCell &cell : m_records.savedCells)
            VS().setTextMatrix(row, cell.column, NullConv::ToText(saved->Fields(cell.name.toString()).Value));
    }
    isNew ? rowsChanged() : layout().recount();
    if (row >= 0 && !isEmpty(*saved))
        Q_EMIT Message(u"已保存 "_s + VS().TextMatrix(row, m_records.numberColumn));
}

/// The current row. A search that was still to come when the editor was opened can have moved it since, and
/// an editor can go on to other records; then the row of the saved record. Of one that the list does not show
/// no row is rewritten: -1.
int RecordList::rowToRewrite(const QString &key)
{
    const int current = VS().Row();
    return keyOf(current) == key ? current : rowOf(key);
}

// Deletion

/// Two statements without a transaction around them: when the second one fails, what the first one has
/// deleted stays so, and the row stays in the list. Attachments and pictures are left in the database.
void RecordList::deleteCurrent()
{
    trapped(u"-->Delete::", [&] {
        if (!isRowInSight())
            return false;
        const int row = VS().Row();
        const QString key = keyOf(row);
        const auto deleted = isDeletionAgreed() ? deleteRows(key) : nullptr;
        if (!deleted)
            return false;
        if (deleted->RowsChanged() == 0)
            raiseError(named(u"所选%1已被他人删除，现从列表中移除！"), Refusal, name());
        VS().RemoveItem(row);
        rowsChanged();
        recordDetail().showCurrent();
        return true;
    });
}

/// A search that was still to come can move or hide the current row while the question stands; then the
/// answer was meant for another row than the one that is seen.
bool RecordList::isDeletionAgreed()
{
    const int asked = VS().Row();
    const auto answer = desktop().messageBox(u"是否删除当前所选记录:"_s, u"提示:"_s, Desktop::Icon::Question,
                                             Desktop::Buttons::YesNo);
    if (answer != Desktop::Answer::Yes)
        return false;
    if (VS().Row() == asked && !VS().RowHidden(asked))
        return true;
    Q_EMIT Message(named(u"当前%1已经改变，没有删除，请重新选择%1！"));
    return false;
}

std::unique_ptr<HostQuery> RecordList::deleteRows(const QString &key)
{
    try {
        const Deletion wanted = deletion(key);
        std::array<std::unique_ptr<HostQuery>, 2> run;
        for (size_t at = 0; at < run.size(); ++at)
            run[at] = executeStatement(app().Db(), wanted.statements[at]);
        return std::move(run[wanted.ofRecord]);
    } catch (const StatementFailure &failure) {
        raiseError(QString::fromUtf8(failure.what()), FailureLevel, m_records.deleteTitle.toString());
        return nullptr;
    }
}

} // namespace ebtq
