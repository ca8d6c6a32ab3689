#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"

namespace ebtq {

namespace {

using enum EditorNumber::Number;

constexpr QStringView numberColumn = u"房源编号";

constexpr std::pair<int, QStringView> requiredFields[] = {
    {District, u"城区不能为空，请输入"}, {Building, u"楼盘字典不能为空，请输入"},
    {Block, u"栋座不能为空，请输入"},    {Deal, u"交易不能为空，请输入"},
    {State, u"状态不能为空，请输入"},
};

} // namespace

bool FrmFx::DoCheck()
{
    return DoCheckTyped() && DoCheckRequired(requiredFields);
}

bool FrmFx::DoSave()
{
    return trapped(u"-->DoSave::", [this] { return DoCheck() && save(); });
}

bool FrmFx::save()
{
    const auto row =
        writeNumbered(m_id, {m_moduleID, numberColumn, u"DoSave:%1", u"房源编号不能为空，请输入后重试!  "});
    if (!row)
        return false;
    Q_EMIT ReturnData(row->key, row->isNew);
    if (!row->isNew || !wantsAnother())
        return true;
    NewRecord();
    qzFcTxt(BillNumber).SetFocus();
    return false;
}

QString FrmFx::held(const RecordColumn &column) const
{
    return column.column == numberColumn ? number() : EditorForm::held(column);
}

} // namespace ebtq
