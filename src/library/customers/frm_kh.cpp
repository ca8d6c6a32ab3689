#include "library/customers/frm_kh.h"

#include "database/values/date_text.h"
#include "library/customers/frm_kh_fields.h"
#include "library/frame/desktop.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using Number = CustomerNumber;

} // namespace

frmKh::frmKh(Desktop &desktop)
    : EditorForm(u"FrmKh"_s, u"qzTxt"_s, customerFields(), customerRecord(), desktop, u"FrmKh"_s)
    , m_stateLabel(controls().add<Label>(u"lbl"_s, 0))
    , m_positionLabel(controls().add<Label>(u"lbl"_s, 1))
{
    makeControls();
    connectButtons();
    for (const auto &control : controls())
        control->setKept(false); // all of it is a customer's
}

QString frmKh::Caption()
{
    return u"客源信息"_s;
}

void frmKh::makeControls()
{
    addTick(u"Chk"_s, Number::Buys, u"求购价"_s);
    addTick(u"Chk"_s, Number::Rents, u"求租价"_s);
    addOption(u"Opt"_s, 0, u"有效"_s);
    addOption(u"Opt"_s, 1, u"失效"_s);
    m_stateLabel.setCaption(u"状态"_s);
    addMemo(u"Txt"_s, -1, u"备注"_s);
    addButtons(
        {u"保存(&S)", u"关闭(&X)", u"首条(&F)", u"上一条(&P)", u"下一条(&N)", u"末条(&L)", u"删除(&D)"});
}

void frmKh::connectButtons()
{
    connect(&Cmd(Number::Top), &Button::Click, this, &frmKh::RecordTop);
    connect(&Cmd(Number::Previous), &Button::Click, this, &frmKh::RecordPrevious);
    connect(&Cmd(Number::Next), &Button::Click, this, &frmKh::RecordNext);
    connect(&Cmd(Number::Bottom), &Button::Click, this, &frmKh::RecordBottom);
    connect(&Cmd(Number::Delete), &Button::Click, this, &frmKh::deletePressed);
}

// Opening

void frmKh::py_Init(HostApp &host, int moduleId, const QString &id, bool bReadOnly)
{
    open(host, u"-->py_Init::", [&] {
        m_moduleId = moduleId;
        load();
        if (!openRow(id))
            return false; // a form without its row would be saved as a new one
        SetEnabled(!bReadOnly && isWritable());
        return true;
    });
}

/// Help fields share one message for a text that is not found, without the field's name.
void frmKh::load()
{
    reset();
    for (qzTxt_S *each : fields()) {
        const LookUp::Kind kind = fieldOf(each->Index()).lookUp.kind;
        if (kind != LookUp::None && kind != LookUp::Calendar)
            each->set_error_message(FieldLookUps::refusal());
    }
    app().FormStyler().Apply(*this);
}

bool frmKh::openRow(const QString &id)
{
    if (id.isEmpty()) {
        ClearForNew();
        return true;
    }
    const Found found = read(Last, id);
    if (found == Found::Nothing)
        Q_EMIT ErrMessage(u"这条客源已被删除，无法打开！"_s, Refusal, name());
    return found == Found::Row;
}

/// The ticks stay as they are: the next request is often of the same kind.
void frmKh::ClearForNew()
{
    Txt().setText({});
    for (qzTxt_S *each : fields()) {
        each->setValue({});
        each->setText({});
    }
    m_id.clear();
    m_code.clear();
    const HostSession &session = app().Session();
    // Where none can be had, the save asks the person for one.
    app().NewBillCode(m_moduleId, session.LoginDate(), m_code, true);
    qzTxt(Number::BillNumber).setText(m_code);
    for (const int date : {Number::EntrustedOn, Number::AuthoredOn})
        qzTxt(date).setText(regionalDate(session.LoginDate()));
    showAuthor(qzTxt(Number::Author));
    Opt(0).setValue(1);
    clearDirty();
    m_positionLabel.setCaption(u"新建"_s);
    enableDeletion();
}

/// By type: option buttons are none of those that are opened and closed.
void frmKh::SetEnabled(bool enabled)
{
    setTypesEnabled(enabled, {Number::Author, Number::AuthoredOn});
    Cmd(Number::Save).setEnabled(enabled);
    enableDeletion();
}

void frmKh::enableDeletion()
{
    Cmd(Number::Delete).setEnabled(Cmd(Number::Save).Enabled() && !m_id.isEmpty());
}

// Help

void frmKh::setParameters(int number, ParameterList &parameters)
{
    if (number == Number::District) {
        parameters.Item(u"pdmsfmx"_s).Value = 1;
        return;
    }
    parameters.Item(u"组织类型"_s).Value = 1;
    parameters.Item(u"lock"_s).Value = 1;
}

// Closing

void frmKh::closePressed()
{
    if (mayClose())
        EditorForm::closePressed();
}

/// After a save that continues with another new request the form stays open.
bool frmKh::DoSave()
{
    bool isSaved = false;
    DoSave(false, isSaved);
    return isSaved && !m_id.isEmpty();
}

void frmKh::savePressed()
{
    bool isSaved = false;
    DoSave(true, isSaved);
}

} // namespace ebtq
