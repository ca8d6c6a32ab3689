#include "contracts/conversions.h"
#include "library/frame/desktop.h"
#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"

namespace ebtq {

namespace {

constexpr QStringView numberColumn = u"房源编号";

struct RequiredField
{
    int number;
    QStringView message;
};
constexpr RequiredField requiredFields[] = {
    {1, u"城区不能为空，请输入"},  {6, u"楼盘字典不能为空，请输入"}, {3, u"栋座不能为空，请输入"},
    {23, u"交易不能为空，请输入"}, {24, u"状态不能为空，请输入"},
};

} // namespace

bool FrmFx::DoCheck()
{
    for (const RequiredField &required : requiredFields) {
        qzTxt_S &field = qzFcTxt(required.number);
        if (!Trim(field.Text()).isEmpty())
            continue;
        desktop().messageBox(required.message.toString(), messageTitle(), Desktop::Icon::Information,
                             Desktop::Buttons::Ok);
        field.SetFocus();
        return false;
    }
    return true;
}

bool FrmFx::DoSave()
{
    return trapped(u"-->DoSave::", [this] { return DoCheck() && save(); });
}

/// A new listing that an attempt before has written after all, its answer lost, is written over under the
/// number that it has got.
bool FrmFx::save()
{
    const bool isNew = m_id.isEmpty();
    const std::optional<QVariant> tried = triedValue(u"fyxx", u"房源ID", numberColumn);
    if (!tried)
        return false;
    const std::optional<QString> number = tried->isValid() ? tried->toString() : billNumber();
    if (!number)
        return false;
    // Without a key, which is told by then, what was typed is saved all the same.
    const QString id = isNew ? newKey() : m_id;
    const bool isInserted = isNew && !tried->isValid();
    if (!execute(isInserted ? insertStatement(id, *number) : updateStatement(id, *number)))
        return false;
    forgetKey();
    Q_EMIT ReturnData(id, isNew);
    if (!isNew)
        return true;
    const auto goOn = desktop().messageBox(QStringLiteral("是否继续新建?"), messageTitle(),
                                           Desktop::Icon::Information, Desktop::Buttons::YesNo);
    if (goOn != Desktop::Answer::Yes)
        return true;
    NewRecord();
    qzFcTxt(0).SetFocus();
    return false;
}

/// The number to be stored; nothing when there is none. A new listing gets the one that is next now, which
/// can differ from the one on the screen: somebody else may have saved meanwhile.
std::optional<QString> FrmFx::billNumber()
{
    QString number = Trim(qzFcTxt(0).Text());
    if (m_id.isEmpty() && !app().NewBillCode(m_moduleID, app().Session().LoginDate(), number, false)) {
        refuse(QStringLiteral("DoSave:") + app().LastError().Description);
        return std::nullopt;
    }
    if (!number.isEmpty())
        return number;
    desktop().messageBox(QStringLiteral("房源编号不能为空，请输入后重试!  "), QStringLiteral("提示："),
                         Desktop::Icon::Critical, Desktop::Buttons::Ok);
    qzFcTxt(0).SetFocus();
    return std::nullopt;
}

QString FrmFx::held(const ListingValue &value) const
{
    switch (value.holder) {
    case Holder::Key:
        return qzFcTxt(value.number).Tag();
    case Holder::Memo:
        return Txt(value.number).Text();
    case Holder::Ticks:
        // The third box is never asked: a listing without a tick counts as recommended.
        return QString::number(Chk(0).Value() == 1 ? 1 : Chk(1).Value() == 1 ? 2 : 3);
    default:
        return qzFcTxt(value.number).Text();
    }
}

SqlText FrmFx::literal(const ListingValue &value, const QString &number) const
{
    const QString text = value.column == numberColumn ? number : held(value);
    if (value.saved == Saved::Number)
        return PlainDecimal(Val(text));
    const QString mark = value.saved == Saved::Date ? QStringLiteral("#") : QStringLiteral("'");
    return SqlText(mark) + typed(value.saved == Saved::Date ? text : Trim(text)) + mark;
}

SqlText FrmFx::insertStatement(const QString &id, const QString &number) const
{
    QString columns = QStringLiteral("insert into fyxx(房源ID");
    SqlText values(QStringLiteral(")values('"));
    values += typed(id);
    values += QStringView(u"'");
    for (const ListingValue &value : listingValues()) {
        if (value.saved == Saved::Not)
            continue;
        columns += u',';
        columns += value.column;
        values += QStringView(u",");
        values += literal(value, number);
    }
    return SqlText(columns) + values + QStringLiteral(")");
}

SqlText FrmFx::updateStatement(const QString &id, const QString &number) const
{
    SqlText sql(QStringLiteral("update fyxx set "));
    QStringView comma;
    for (const ListingValue &value : listingValues()) {
        if (value.saved == Saved::Not)
            continue;
        sql += comma;
        sql += value.column;
        sql += QStringView(u"=");
        sql += literal(value, number);
        comma = u",";
    }
    sql += QStringView(u" where 房源ID='");
    sql += typed(id);
    sql += QStringView(u"'");
    return sql;
}

} // namespace ebtq
