#include "library/listings/frm_fx.h"

#include "database/values/date_text.h"
#include "library/frame/conversions.h"
#include "library/frame/desktop.h"
#include "library/frame/null_conv.h"
#include "library/listings/frm_fx_fields.h"

namespace ebtq {

namespace {

constexpr int fieldCount = 55;
constexpr QStringView labels[] = {u"基本信息", u"城区", u"楼盘字典", u"栋座/位置", u"房号",
                                  u"楼层",     u"总层", u"联系",     u"备注",      u"底价"};
constexpr QStringView contactLabel = u"联系";
constexpr QStringView ticks[] = {u"加密房", u"特别房", u"推介房"};
constexpr QStringView buttons[] = {u"保存(&S)", u"关闭(&X)", u"选择(&R)", u"选择(&L)"};

constexpr int ownerFields[] = {50, 51, 52, 53};
/// Department, author and the author's date are never typed.
constexpr int fixedFields[] = {11, 12, 9};

/// "{...}" and apostrophes come with the session's id; columns hold it without them.
QString bareId(QString id)
{
    for (const QChar extra : {u'{', u'}', u'\''})
        id.remove(extra);
    return id;
}

} // namespace

FrmFx::FrmFx(Desktop &desktop)
    : Module(QStringLiteral("FrmFx"), desktop)
{
    setObjectName(name());
    makeControls();
    connectFields();
}

QString FrmFx::Caption()
{
    return QStringLiteral("房源信息");
}

qzTxt_S &FrmFx::qzFcTxt(int number) const
{
    return *m_fields.at(static_cast<size_t>(number));
}

void FrmFx::makeControls()
{
    for (int number = 0; number < fieldCount; ++number) {
        m_fields.push_back(&controls().add<qzTxt_S>(QStringLiteral("qzFcTxt"), number));
        m_fields.back()->setCaption(editorField(number).caption.toString());
    }
    for (int number = 0; number < 2; ++number)
        m_memos[number] = &controls().add<TextBox>(QStringLiteral("Txt"), number, TextBox::Lines::Many);
    for (int number = 0; number < 3; ++number) {
        m_ticks[number] = &controls().add<CheckBox>(QStringLiteral("Chk"), number);
        m_ticks[number]->setCaption(ticks[number].toString());
    }
    for (int number = 0; number < 4; ++number) {
        m_buttons[number] = &controls().add<Button>(QStringLiteral("Cmd"), number);
        m_buttons[number]->setCaption(buttons[number].toString());
    }
    int number = 0;
    for (const QStringView caption : labels) {
        auto &label = controls().add<Label>(QStringLiteral("lbl"), number++);
        label.setCaption(caption.toString());
        if (caption == contactLabel)
            m_contactLabel = &label;
    }
}

// Opening

void FrmFx::py_Init(HostApp &host, int moduleID, const QString &listingID, bool hideOwner)
{
    setApp(&host);
    m_moduleID = moduleID;
    m_id = listingID;
    trapped(u"-->Py_Init::", [&] {
        load();
        if (!(m_id.isEmpty() ? NewRecord() : LoadData()))
            return false; // a form without its listing would be saved over it
        SetFieldsEnabled(!hideOwner);
        if (hideOwner)
            hideOwnerBlock();
        desktop().showModal(*this);
        return true;
    });
    setApp(nullptr);
}

/// A form that is loaded stands as it was designed, whatever the last listing left in it.
void FrmFx::load()
{
    emptyFields();
    for (const auto &control : controls()) {
        control->setVisible(true);
        control->setEnabled(true);
    }
    InitFields();
    app().FormStyler().Apply(*this);
}

void FrmFx::emptyFields()
{
    for (TextBox *memo : m_memos)
        memo->setText({});
    for (qzTxt_S *field : m_fields) {
        field->setValue(0);
        field->setText({});
    }
    for (CheckBox *tick : m_ticks)
        tick->setValue(0);
}

bool FrmFx::NewRecord()
{
    emptyFields();
    m_id.clear();
    HostSession &session = app().Session();
    const QString today = regionalDate(session.LoginDate());
    QString number;
    // A number that could not be had now is asked for again by the save, which tells why.
    app().NewBillCode(m_moduleID, session.LoginDate(), number, true);
    qzFcTxt(0).setText(number);
    for (const int date : {2, 35, 9, 33})
        qzFcTxt(date).setText(today);
    qzFcTxt(52).setText(QStringLiteral("中国"));
    qzFcTxt(12).setValue(bareId(session.UserID()));
    qzFcTxt(12).setText(session.UserName());
    qzFcTxt(49).setEnabled(false);
    SqlText department(QStringLiteral("select mtname from su_usertype where mtID in(select usertypeID from "
                                      "su_membership where userID='"));
    department += typed(qzFcTxt(12).Tag());
    department += QStringView(u"')");
    qzFcTxt(11).setText(NullConv::ToText(single(department)));
    Chk(0).setValue(1);
    return true;
}

bool FrmFx::LoadData()
{
    return trapped(u"-->LoadData::", [this] {
        SqlText sql(QStringLiteral("select A.*,C.mtname as 部门名称,D.姓名 as 业务员 from ((fyxx A left join "
                                   "su_membership B on A.用户ID=B.userID)"
                                   " left join su_usertype C on B.UserTypeID=C.mtID)"
                                   " left join pdmgy D on A.业务员ID=D.雇员ID"
                                   " where 房源ID='"));
        sql += typed(m_id);
        sql += QStringView(u"'");
        const auto rows = rowsOf(sql);
        if (!(rows->Eof() && rows->Bof()))
            takeRow(*rows);
        return true;
    });
}

void FrmFx::takeRow(const Recordset &row)
{
    for (const ListingValue &value : listingValues()) {
        const auto read = [&] { return NullConv::ToText(row.Fields(value.column.toString()).Value); };
        if (value.loaded == Loaded::AsItComes)
            put(value, read());
        else if (value.loaded == Loaded::Trimmed)
            put(value, Trim(read()));
        else if (value.loaded == Loaded::Number)
            put(value, NumberText(Val(read())));
    }
}

void FrmFx::put(const ListingValue &value, const QString &text)
{
    switch (value.holder) {
    case Holder::FieldText:
        qzFcTxt(value.number).setText(text);
        break;
    case Holder::Key:
        qzFcTxt(value.number).setValue(text);
        break;
    case Holder::Memo:
        Txt(value.number).setText(text);
        break;
    case Holder::Ticks:
        // Whatever is no 1 or 2 is a recommended one, as a listing without a tick is stored.
        Chk(text == u"1" ? 0 : text == u"2" ? 1 : 2).setValue(1);
        break;
    }
}

/// A list of types, since the forms of this family are walked alike. It is the last word of an opening: the
/// key number is open at first whatever 看房 says, and closed when 看房 is changed to one without a key.
void FrmFx::SetFieldsEnabled(bool enabled)
{
    for (const auto &control : controls()) {
        const QString &type = control->TypeName();
        if (type == u"TextBox" || type == u"qzTxt_S" || type == u"ComboBox" || type == u"CheckBox")
            control->setEnabled(enabled);
        else if (type == u"TreeView" || type == u"ListView")
            control->setEnabled(!enabled);
    }
    for (const int number : fixedFields)
        qzFcTxt(number).setEnabled(false);
    for (const int number : {2, 3, 0})
        Cmd(number).setEnabled(enabled);
}

void FrmFx::hideOwnerBlock()
{
    for (const int number : ownerFields)
        qzFcTxt(number).setVisible(false);
    Txt(0).setVisible(false);
    Cmd(3).setVisible(false);
    m_contactLabel->setVisible(false);
}

/// Both throw Failure for a statement that failed: what it should have filled would be saved as empty.
QVariant FrmFx::single(const SqlText &sql)
{
    const QVariant value = app().Db().CreateQuery(sql, 1)->Scalar();
    if (const QString error = app().Db().LastError().Description; !error.isEmpty())
        throw Failure(error);
    return value;
}

std::unique_ptr<Recordset> FrmFx::rowsOf(const SqlText &sql)
{
    auto rows = app().Db().CreateQuery(sql, 1)->Open();
    if (const QString error = app().Db().LastError().Description; !error.isEmpty())
        throw Failure(error);
    return rows;
}

} // namespace ebtq
