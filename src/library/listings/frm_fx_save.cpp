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

/// A new listing that an attempt before has written after all, its answer lost, is written over under the
/// number that it has got.
bool FrmFx::save()
{
    const std::optional<QVariant> tried = triedValue(numberColumn);
    if (!tried)
        return false;
    const std::optional<QString> number =
        tried->isValid() ? tried->toString()
                         : documentNumber(m_id.isEmpty(), {m_moduleID, numberColumn, u"DoSave:%1",
                                                           u"房源编号不能为空，请输入后重试!  "});
    if (!number)
        return false;
    m_number = *number;
    const auto row = write(m_id);
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
    return column.column == numberColumn ? m_number : EditorForm::held(column);
}

} // namespace ebtq
