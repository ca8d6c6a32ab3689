#include "library/listings/frm_fx.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/listings/frm_fx_fields.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using enum EditorNumber::Number;
using enum EditorNumber::MemoNumber;

constexpr QStringView labels[] = {u"基本信息", u"城区", u"楼盘字典", u"栋座/位置", u"房号",
                                  u"楼层",     u"总层", u"联系",     u"备注",      u"底价"};
constexpr int contactLabel = 7;
constexpr int remarkLabel = 8;
constexpr QStringView ticks[] = {u"加密房", u"特别房", u"推介房"};

enum ButtonNumber : int { Previous = 4, Next = 5 };
constexpr int neighbourButtons[] = {Previous, Next};

/// What another listing cannot have, too.
constexpr int ownTexts[] = {Room, KeyNumber, EntrustNumber};
constexpr int ownerFields[] = {Owner, Contact, Nationality, Mobile};

} // namespace

FrmFx::FrmFx(Desktop &desktop)
    : EditorForm(u"FrmFx"_s, u"qzFcTxt"_s, editorFields(), listingRecord(), desktop)
{
    makeControls();
    connectFields();
}

QString FrmFx::Caption()
{
    return u"房源信息"_s;
}

void FrmFx::makeControls()
{
    addMemo(u"Txt"_s, ContactRemark, labels[contactLabel].toString());
    addMemo(u"Txt"_s, Remark, labels[remarkLabel].toString());
    int tickNumber = 0;
    for (const QStringView caption : ticks)
        addTick(u"Chk"_s, tickNumber++, caption.toString());
    addButtons({u"保存(&S)", u"关闭(&X)", u"选择(&R)", u"选择(&L)", u"上一条(&P)", u"下一条(&N)"});
    for (const int button : neighbourButtons)
        Cmd(button).setKept(false);
    connect(&Cmd(Previous), &Button::Click, this, [this] { go(-1); });
    connect(&Cmd(Next), &Button::Click, this, [this] { go(1); });
    for (const QStringView caption : labels) {
        m_labels.push_back(&controls().add<Label>(u"lbl"_s, static_cast<int>(m_labels.size())));
        m_labels.back()->setCaption(caption.toString());
    }
}

// Opening

void FrmFx::py_Init(HostApp &host, int moduleID, const QString &listingID, bool hideOwner)
{
    open(host, u"-->Py_Init::", [&] {
        m_moduleID = moduleID;
        m_id = listingID;
        m_hidesOwner = hideOwner;
        load();
        if (!(m_id.isEmpty() ? NewRecord() : LoadData()))
            return false; // a form without its listing would be saved over it
        SetFieldsEnabled(!hideOwner && isWritable());
        if (hideOwner)
            hideOwnerBlock();
        clearDirty();
        return true;
    });
}

void FrmFx::openCopy(HostApp &host, int moduleID, const QString &listingID)
{
    open(host, u"-->OpenCopy::", [&] {
        m_moduleID = moduleID;
        m_id = listingID;
        m_hidesOwner = false;
        load();
        if (!LoadData())
            return false;
        keepForCopy();
        SetFieldsEnabled(isWritable());
        return true;
    });
}

void FrmFx::keepForCopy()
{
    for (const int number : ownTexts)
        qzFcTxt(number).setText({});
    stampAsNew();
    becomeNewRow();
}

/// Another listing of the list comes onto the form as if it had been opened. One that cannot be read closes
/// the form: it would be saved over.
void FrmFx::go(int step)
{
    if (m_id.isEmpty() || !mayClose())
        return;
    QString key;
    Q_EMIT neighbourWanted(step, key);
    if (!key.isEmpty())
        showNeighbour(key);
}

void FrmFx::showNeighbour(const QString &key)
{
    m_id = key;
    emptyFields();
    if (!LoadData())
        return Q_EMIT unloaded();
    SetFieldsEnabled(!m_hidesOwner && isWritable());
    clearDirty();
}

void FrmFx::load()
{
    reset();
    app().FormStyler().Apply(*this);
}

bool FrmFx::NewRecord()
{
    emptyFields();
    stampAsNew();
    qzFcTxt(HandedOverOn).setText(regionalDate(app().Session().LoginDate()));
    qzFcTxt(Nationality).setText(u"中国"_s);
    qzFcTxt(KeyNumber).setEnabled(false);
    Chk(0).setValue(1);
    beginWithOwnAgent(qzFcTxt(Agent));
    clearDirty();
    return true;
}

/// Number, dates and author of a new listing.
void FrmFx::stampAsNew()
{
    m_id.clear();
    HostSession &session = app().Session();
    QString number;
    // If no number is available now, the save asks again and reports the reason.
    app().NewBillCode(m_moduleID, session.LoginDate(), number, true);
    qzFcTxt(BillNumber).setText(number);
    for (const int date : {RegisteredOn, AuthoredOn, EntrustedOn})
        qzFcTxt(date).setText(regionalDate(session.LoginDate()));
    showAuthor(qzFcTxt(Author));
    showDepartment(qzFcTxt(Department), qzFcTxt(Author));
}

bool FrmFx::LoadData()
{
    return trapped(u"-->LoadData::", [this] {
        const SqlText sql =
            SqlText(u"select A.*,C.mtname as 部门名称,D.姓名 as 业务员 from ((fyxx A left join "
                    u"su_membership B on A.用户ID=B.userID)"
                    u" left join su_usertype C on B.UserTypeID=C.mtID)"
                    u" left join pdmgy D on A.业务员ID=D.雇员ID"
                    u" where 房源ID="_s) +
            quoted(m_id);
        const auto rows = openRows(app().Db(), sql);
        if (!isEmpty(*rows))
            takeRow(*rows);
        clearDirty();
        return true;
    });
}

/// Runs last when the form opens: the key number is enabled at first for any 看房, and disabled when 看房
/// changes to one without a key.
void FrmFx::SetFieldsEnabled(bool enabled)
{
    setTypesEnabled(enabled, {Department, Author, AuthoredOn});
    for (const int number : {2, 3, 0})
        Cmd(number).setEnabled(enabled);
    for (const int number : neighbourButtons)
        Cmd(number).setEnabled(!m_id.isEmpty());
}

void FrmFx::hideOwnerBlock()
{
    for (const int number : ownerFields)
        qzFcTxt(number).setVisible(false);
    Txt(ContactRemark).setVisible(false);
    Cmd(3).setVisible(false);
    lbl(contactLabel).setVisible(false);
}

} // namespace ebtq
