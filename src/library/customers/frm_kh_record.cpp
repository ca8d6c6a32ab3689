#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"
#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using Number = CustomerNumber;

constexpr QStringView numberColumn = u"客源编号";

constexpr std::pair<int, QStringView> requiredFields[] = {
    {Number::BillNumber, u"委托编号不能为空，请输入"},
    {Number::Name, u"客户名称不能为空，请输入"},
    {Number::Telephone, u"联系电话不能为空，请输入"},
};

SqlText between(const QString &head, const QString &value, const QString &tail)
{
    return SqlText(head) + typed(value) + tail;
}

} // namespace

// Loading

void frmKh::LoadData(int nMode, const QString &id)
{
    read(nMode, id);
}

frmKh::Found frmKh::read(int mode, const QString &id)
{
    Found found = Found::Failed;
    trapped(u"-->LoadData::", [&] {
        const auto rows = openRows(app().Db(), rowStatement(mode, id));
        found = isEmpty(*rows) ? Found::Nothing : Found::Row;
        if (found == Found::Row)
            showRow(*rows);
        clearDirty();
        countRows();
        return true;
    });
    return found;
}

SqlText frmKh::rowStatement(int mode, const QString &id) const
{
    const SqlText head(
        u"select top 1 A.*,B.姓名 as 业务员 from fykh A left join pdmgy B on A.业务员ID=B.雇员ID"_s);
    if (!id.isEmpty())
        return head + between(u" where 客源ID='"_s, id, u"'"_s);
    switch (mode) {
    case First:
        return head + u" order by 客源编号"_s;
    case Before:
        return head + between(u" where 客源编号<'"_s, m_code, u"' order by 客源编号 desc"_s);
    case Behind:
        return head + between(u" where 客源编号>'"_s, m_code, u"' order by 客源编号"_s);
    default:
        return head + u" order by 客源编号 desc"_s;
    }
}

void frmKh::showRow(const Recordset &row)
{
    takeRow(row);
    m_id = NullConv::ToText(row.Fields(customerRecord().key.toString()).Value);
    m_code = NullConv::ToText(row.Fields(numberColumn.toString()).Value);
}

void frmKh::countRows()
{
    const auto count = [this](const SqlText &sql) { return WholePart(Val(singleValue(app().Db(), sql))); };
    m_recordCount = count(u"select count(*) from fykh"_s);
    m_recordPosition = count(between(u"select count(*) from fykh where 客源编号<='"_s, m_code, u"'"_s));
    m_positionLabel.setCaption(u"第 %1 条，共 %2 条"_s.arg(m_recordPosition).arg(m_recordCount));
    enableDeletion();
}

bool frmKh::reload()
{
    return read(Last, m_id) == Found::Row;
}

// Going to another row

void frmKh::RecordTop()
{
    move(First);
}

void frmKh::RecordPrevious()
{
    move(Before);
}

void frmKh::RecordNext()
{
    move(Behind);
}

void frmKh::RecordBottom()
{
    move(Last);
}

void frmKh::move(Mode mode)
{
    bool isSaved = false;
    if (isDirty()) {
        const auto saves = wantsSave();
        if (saves && *saves)
            DoSave(false, isSaved);
        if (!saves || *saves != isSaved)
            return;
    }
    // Where there is no other row, the saved one is still shown: as it is stored.
    if (read(mode, {}) == Found::Nothing && isSaved && !m_id.isEmpty())
        read(Last, m_id);
}

// Saving

void frmKh::DoSave(bool bReload, bool &bOK)
{
    bOK = isDirty() && trapped(u"-->DoSave::", [&] { return save(bReload); });
}

bool frmKh::save(bool reloads)
{
    if (!DoCheckTyped() || !DoCheckRequired(requiredFields))
        return false;
    const auto row =
        writeNumbered(m_id, {m_moduleId, numberColumn, u"%1DoSave:", u"委托编号不能为空，请输入后重试!  "});
    if (!row)
        return false;
    m_id = row->key; // from now on it is the row that is shown: saved again, it is no new one
    m_code = number();
    Q_EMIT ReturnData(row->key, row->isNew);
    if (row->isNew && wantsAnother()) {
        ClearForNew();
        qzTxt(Number::BillNumber).SetFocus();
    } else if (reloads) {
        read(Last, row->key);
    }
    return true;
}

QString frmKh::held(const RecordColumn &column) const
{
    if (column.column == numberColumn)
        return number();
    if (column.column == u"操作日期")
        return regionalDate(app().Session().LoginDate());
    return EditorForm::held(column);
}

// Deleting

/// Nobody deletes here who may not delete in the list.
void frmKh::deletePressed()
{
    const bool isAllowed = trapped(u"-->DoDelete::", [this] {
        if (app().Rights(m_moduleId)->Allowed(RightDelete))
            return true;
        refuse(u"您没有删除客源的权限！"_s);
        return false;
    });
    if (isAllowed)
        DoDelete();
}

void frmKh::DoDelete()
{
    if (m_id.isEmpty() || desktop().messageBox(u"是否删除当前记录？"_s, u"提示："_s, Desktop::Icon::Question,
                                               Desktop::Buttons::YesNo) != Desktop::Answer::Yes)
        return;
    if (!trapped(u"-->DoDelete::", [this] { return deleteRow(); }))
        return;
    // The last one stays on the form, which covers the message that it is gone.
    if (read(Behind, {}) == Found::Nothing)
        m_positionLabel.setCaption(u"已删除，共 %1 条"_s.arg(m_recordCount));
}

bool frmKh::deleteRow()
{
    try {
        const auto query =
            executeStatement(app().Db(), between(u"delete from fykh where 客源ID='"_s, m_id, u"'"_s));
        if (query->RowsChanged() == 0)
            refuse(u"数据库中已没有这条客源！"_s);
        Q_EMIT Message(u"客源 %1 已删除，刷新后不再列出！"_s.arg(m_code));
        return true;
    } catch (const StatementFailure &failure) {
        Q_EMIT ErrMessage(QString::fromUtf8(failure.what()), FailureLevel, u"提示："_s);
        return false;
    }
}

} // namespace ebtq
