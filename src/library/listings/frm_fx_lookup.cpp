#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/frame/statements.h"
#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"
#include "library/pickers/picked_rows.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using enum EditorNumber::Number;
using enum EditorNumber::MemoNumber;

void set(ParameterList &parameters, QStringView name, const QVariant &value)
{
    parameters.Item(name.toString()).Value = value;
}

} // namespace

void FrmFx::connectFields()
{
    for (const qzTxt_S *field : fields())
        connect(field, &qzTxt_S::FieldChange, this,
                [this, number = field->Index()] { fieldChanged(number); });
    connect(&Cmd(2), &Button::Click, this, [this] { pickRemark(Cmd(2), u"房源备注", Txt(Remark)); });
    connect(&Cmd(3), &Button::Click, this,
            [this] { pickRemark(Cmd(3), u"业主联系备注", Txt(ContactRemark)); });
}

// A changed field

void FrmFx::fieldChanged(int number)
{
    if (number == Viewing)
        followViewing();
    if (number == Area || number == SalePrice)
        showUnitPrice(SalePrice, SaleUnitPrice);
    if (number == Area || number == Rent)
        showUnitPrice(Rent, RentUnitPrice);
}

/// A key number belongs to a viewing with a key. One that was typed stays and is saved all the same.
void FrmFx::followViewing()
{
    qzFcTxt(KeyNumber).setEnabled(qzFcTxt(Viewing).Text().contains(u'匙'));
}

/// The price of a square metre in the unit of the price. Without area or price the last one stays.
void FrmFx::showUnitPrice(int price, int result)
{
    const double area = Val(qzFcTxt(Area).Text());
    const double whole = Val(qzFcTxt(price).Text());
    if (area != 0 && whole != 0)
        qzFcTxt(result).setText(Format(whole / area, u"#0.00"));
}

// Help and check

void FrmFx::setParameters(int number, ParameterList &parameters)
{
    if (number == District) {
        set(parameters, u"pdmsfmx", 1);
        return;
    }
    set(parameters, u"lock", 1);
    if (number == Agent)
        set(parameters, u"组织类型", 1);
    else if (number == Building)
        set(parameters, u"地区", qzFcTxt(District).Text());
    else
        set(parameters, u"楼盘", qzFcTxt(Building).Text());
}

/// What no list knows is stored as it was typed, with its own text as its key; only the kind of deal must be
/// a known one, since lists and matching go by it.
bool FrmFx::check(int number, const Check &check)
{
    if (!EditorForm::check(number, check))
        return false;
    if (number == Rooms)
        fillFromHouseType(check.value, check.text);
    else if (number == PropertyRight)
        fillFromPropertyRight(check.value);
    if (NullConv::ToText(check.value).isEmpty() && number != Deal) {
        check.text = qzFcTxt(number).Text();
        check.value = check.text;
    }
    return true;
}

/// What goes with a building or block. After a text that is none the row is empty, and so is what the last
/// building left here.
void FrmFx::picked(int number, const HostPicker &picker)
{
    const auto row = rowOf(number, picker);
    if (number == Building) {
        if (const auto building = std::dynamic_pointer_cast<const clsLpzd>(row)) {
            qzFcTxt(Usage).setText(building->s物业用途);
            qzFcTxt(PropertyType).setText(building->s物业类型);
            qzFcTxt(BuiltIn).setText(building->s建房年代);
            qzFcTxt(ManagementFee).setText(NumberText(building->d管理费));
        }
    } else if (number == Block) {
        if (const auto block = std::dynamic_pointer_cast<const clsDz>(row))
            qzFcTxt(Floors).setText(QString::number(block->l总楼层));
    }
}

void FrmFx::fillFromHouseType(const QVariant &value, QString &text)
{
    const SqlText sql = SqlText(u"select 房间数,客厅数,卫生间数,阳台数 from pdmfx where 房型编号="_s) +
                        quoted(NullConv::ToText(value));
    const auto rows = openRows(app().Db(), sql);
    if (isEmpty(*rows))
        return;
    const auto read = [&](QStringView column) {
        return NullConv::ToText(rows->Fields(column.toString()).Value);
    };
    qzFcTxt(Rooms).setText(read(u"房间数"));
    qzFcTxt(Halls).setText(read(u"客厅数"));
    qzFcTxt(Bathrooms).setText(read(u"卫生间数"));
    qzFcTxt(Balconies).setText(read(u"阳台数"));
    text = read(u"房间数"); // the field shows the number of rooms, not the name of the type
}

void FrmFx::fillFromPropertyRight(const QVariant &value)
{
    const SqlText sql = SqlText(u"select 证件名称,付款方式,付佣金方式 from pdmcq where 产权编号="_s) +
                        quoted(NullConv::ToText(value));
    const auto rows = openRows(app().Db(), sql);
    if (isEmpty(*rows))
        return;
    const std::pair<int, QStringView> filled[] = {
        {Certificate, u"证件名称"}, {Payment, u"付款方式"}, {Commission, u"付佣金方式"}};
    for (const auto &[number, column] : filled)
        qzFcTxt(number).setText(NullConv::ToText(rows->Fields(column.toString()).Value));
}

// Remarks

void FrmFx::pickRemark(const Button &button, QStringView kind, TextBox &target)
{
    trapped(u"-->Cmd_Click::", [&] {
        HostPicker &list = app().Picker(u"selpdm"_s);
        if (!list.Ready(0))
            return false;
        ParameterList &parameters = list.Parameters();
        set(parameters, u"编号", u"代码"_s);
        set(parameters, u"名称", u"名称"_s);
        set(parameters, u"ID", u"代码"_s);
        set(parameters, u"table", u"pdmsjzd"_s);
        set(parameters, u"where", u"类型='%1'"_s.arg(kind));
        set(parameters, u"order", u"代码"_s);
        QString text = target.Text();
        QVariant value;
        list.Show(button.Left(), button.Top(), text, value, 0, {});
        target.setText(text);
        return true;
    });
}

} // namespace ebtq
