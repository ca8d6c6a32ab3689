#include "library/customers/frm_kh.h"

#include "database/values/date_text.h"
#include "library/customers/frm_kh_fields.h"
#include "library/frame/desktop.h"

namespace ebtq {

namespace {

using Number = CustomerNumber;

} // namespace

frmKh::frmKh(Desktop &desktop)
    : EditorForm(QStringLiteral("FrmKh"), QStringLiteral("qzTxt"), customerFields(), customerRecord(),
                 desktop, QStringLiteral("FrmKh"))
    , m_stateLabel(controls().add<Label>(QStringLiteral("lbl"), 0))
    , m_positionLabel(controls().add<Label>(QStringLiteral("lbl"), 1))
{
    makeControls();
    connectButtons();
    for (const auto &control : controls())
        control->setKept(false); // all of it is a customer's
}

QString frmKh::Caption()
{
    return QStringLiteral("客源信息");
}

void frmKh::makeControls()
{
    addTick(QStringLiteral("Chk"), Number::Buys, QStringLiteral("求购价"));
    addTick(QStringLiteral("Chk"), Number::Rents, QStringLiteral("求租价"));
    addOption(QStringLiteral("Opt"), 0, QStringLiteral("有效"));
    addOption(QStringLiteral("Opt"), 1, QStringLiteral("失效"));
    m_stateLabel.setCaption(QStringLiteral("状态"));
    addMemo(QStringLiteral("Txt"), -1, QStringLiteral("备注"));
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

/// Help fields share one message for a text that is not found, without the field's name. The date is checked
/// when its field is left.
void frmKh::load()
{
    reset();
    for (qzTxt_S *each : fields()) {
        if (fieldOf(each->Index()).lookUp.kind != LookUp::None)
            each->set_error_message(FieldLookUps::refusal());
    }
    qzTxt_S &date = qzTxt(Number::EntrustedOn);
    date.set_judge_time(qzTxt_S::JudgeOnLeaving);
    date.set_error_message(fieldOf(date.Index()).title.toString() + FieldLookUps::refusal());
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
        Q_EMIT ErrMessage(QStringLiteral("这条客源已被删除，无法打开！"), Refusal, name());
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
    m_positionLabel.setCaption(QStringLiteral("新建"));
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
        parameters.Item(QStringLiteral("pdmsfmx")).Value = 1;
        return;
    }
    parameters.Item(QStringLiteral("组织类型")).Value = 1;
    parameters.Item(QStringLiteral("lock")).Value = 1;
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
