#include "library/followups/frm_gj.h"

#include "contracts/conversions.h"
#include "contracts/inline_list.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

enum FieldNumber : int { Date, Department, Agent, ReminderTime, Range, Reminder, Result, Author };

constexpr LookUp calendar{.kind = LookUp::Calendar};

constexpr EditorField followUpFields[] = {
    {u"跟进日期", u"跟进日期", calendar},
    {u"    部门", u"部门"},
    {u"经纪人", u"经纪人", {.kind = LookUp::Picker, .name = u"pdmgy"}},
    {u"提醒时间", u"提醒时间", calendar},
    {u"提醒范围", u"提醒范围", {.kind = LookUp::InlineList, .name = u"|本人;0|本部;1|全部;2"}},
    {u"提醒内容", u"提醒内容"},
    {u"处理结果", u"处理结果"},
    {u"制单人", u"制单人"},
};

/// What the tick opens and closes.
constexpr int reminderFields[] = {Result, Range, Reminder, ReminderTime};

using enum Holder;

constexpr RecordColumn date{FieldText, Date, u"操作日期", Saved::Date, Loaded::AsItComes};
constexpr RecordColumn trimmedDate{FieldText, Date, u"操作日期", Saved::TrimmedDate, Loaded::AsItComes};
constexpr RecordColumn agent{FieldKey, Agent, u"业务员ID", Saved::Number, Loaded::Number};
constexpr RecordColumn author{FieldKey, Author, u"用户ID"};
constexpr RecordColumn contents{Memo, 0, u"跟进内容"};
constexpr RecordColumn owner{Given, -1, u"房源ID", Saved::AsTyped, Loaded::Not};
constexpr RecordColumn tick{Tick, 0, u"下次提醒", Saved::Number, Loaded::Number};
/// The present time when no date was given, so that every row has one.
constexpr RecordColumn reminderDate{FieldText, ReminderTime, u"提醒日期", Saved::Date, Loaded::AsItComes};
constexpr RecordColumn range{FieldKey, Range, u"提醒范围", Saved::Number, Loaded::Number};
constexpr RecordColumn reminder{FieldText, Reminder, u"提醒内容"};
constexpr RecordColumn result{FieldText, Result, u"处理结果"};

constexpr RecordColumn loadOrder[] = {
    date,
    contents,
    {FieldText, Department, u"部门"},
    agent,
    {FieldText, Agent, u"业务员"},
    author,
    {FieldText, Author, u"制单人"},
    result,
    range,
    reminder,
    {FieldText, ReminderTime, u"提醒时间", Saved::Not, Loaded::AsItComes},
    tick,
};
constexpr RecordColumn insertOrder[] = {date, agent,        author, contents, owner,
                                        tick, reminderDate, range,  reminder, result};
/// An edit leaves the row its author.
constexpr RecordColumn updateOrder[] = {trimmedDate,  agent, contents, owner, tick,
                                        reminderDate, range, reminder, result};

constexpr RecordTable record{u"fygj", u"跟进ID", loadOrder, insertOrder, updateOrder};

} // namespace

FrmGj::FrmGj(Desktop &desktop)
    : EditorForm(u"FrmGj"_s, u"qzTxt"_s, followUpFields, record, desktop)
    , m_contentsLabel(controls().add<Label>(u"lbl"_s, 0))
    , m_contents(addMemo(u"Txt"_s, -1, u"跟进内容"_s))
    , m_reminds(addTick(u"Chk"_s, -1, u"下次提醒"_s))
    , m_hint(controls().add<Label>(u"lblHint"_s))
{
    m_hint.setCaption(u"请填写提醒时间，否则到期不会提醒！"_s);
    m_contentsLabel.setCaption(m_contents.Caption());
    addButtons({u"保存(&S)", u"关闭(&X)"});
    connect(&m_reminds, &CheckBox::Click, this, [this] { openReminder(m_reminds.Value() != 0); });
    connect(&qzTxt(ReminderTime), &qzTxt_S::FieldChange, this, &FrmGj::showHint);
}

QString FrmGj::Caption()
{
    return u"房源跟进记录"_s;
}

void FrmGj::raiseError(const QString &message, int, const QString &)
{
    refuse(message);
}

/// "-->DoSave::" is for the desktop's message bar; the person at the form reads "DoSave:".
QString FrmGj::trappedText(QStringView tag, const QString &description) const
{
    return tag.sliced(3).chopped(1).toString() + description;
}

void FrmGj::setParameters(int, ParameterList &parameters)
{
    parameters.Item(u"组织类型"_s).Value = 1;
    parameters.Item(u"lock"_s).Value = 1;
}

// Opening

void FrmGj::py_Init(HostApp &host, const QString &ownerID, const QString &followUpID, bool disable)
{
    open(host, u"-->Py_Init::", [&] {
        m_ownerId = ownerID;
        m_id = followUpID;
        reset();
        for (const int number : {Date, ReminderTime})
            qzTxt(number).setToday(desktop().now().date());
        m_id.isEmpty() ? NewRecord() : LoadData();
        SetFieldsEnabled(!disable && isWritable());
        clearDirty();
        return true;
    });
}

void FrmGj::activate()
{
    trappedWithoutDatabase(u"-->Form_Activate::", [this] {
        app().FormStyler().Apply(*this);
        return true;
    });
}

void FrmGj::NewRecord()
{
    qzTxt(Date).setText(regionalDate(desktop().now()));
    showAuthor(qzTxt(Author));
    showDepartment(qzTxt(Department), qzTxt(Author));
    beginWithOwnAgent(qzTxt(Agent));
}

/// Deliberately as it is: one bracket for three joins, which the database refuses, and a field 提醒时间 where
/// the column is 提醒日期. No caller passes a follow-up to be edited, and one who did would get the
/// database's message and no form, so that nothing can be saved over the row.
void FrmGj::LoadData()
{
    const SqlText sql = SqlText(u"select A.*,C.mtname as 部门,B.username as 制单人,D.姓名 as 业务员"
                                u" from (fygj A left join su_membership B on A.用户ID=B.userID)"
                                u" left join su_usertype C on B.UserTypeID=C.mtID"
                                u" left join pdmgy D on A.业务员ID=D.雇员ID where 跟进ID="_s) +
                        quoted(m_id);
    const auto rows = openRows(app().Db(), sql);
    if (!isEmpty(*rows))
        showRow(*rows);
}

void FrmGj::showRow(const Recordset &row)
{
    takeRow(row);
    showRange(WholePart(Val(qzTxt(Range).Tag())));
}

bool FrmGj::reload()
{
    LoadData();
    clearDirty();
    return true;
}

void FrmGj::showRange(int range)
{
    if (const auto entry = InlineList(fieldOf(Range).lookUp.name.toString()).find(QString::number(range)))
        qzTxt(Range).setText(entry->text);
}

/// The rule by type enables every field. Those of the reminder are disabled by design and enabled by the
/// tick: without it they stay disabled, although the rule by type has enabled them.
void FrmGj::SetFieldsEnabled(bool enabled)
{
    setTypesEnabled(enabled, {Department, Author});
    openReminder(enabled && m_reminds.Value() != 0);
    Cmd(0).setEnabled(enabled);
}

void FrmGj::openReminder(bool open)
{
    for (const int number : reminderFields)
        qzTxt(number).setEnabled(open);
    showHint();
}

void FrmGj::showHint()
{
    m_hint.setVisible(qzTxt(ReminderTime).Enabled() && qzTxt(ReminderTime).Text().trimmed().isEmpty());
}

// Saving

/// Nothing is required: an empty follow-up can be saved.
bool FrmGj::DoSave()
{
    return trapped(u"-->DoSave::", [this] { return DoCheckTyped() && save(); });
}

bool FrmGj::save()
{
    const auto row = write(m_id);
    if (!row)
        return false;
    Q_EMIT ReturnData(row->key, row->isNew);
    return true;
}

QString FrmGj::held(const RecordColumn &column) const
{
    if (column.holder == Holder::Given)
        return m_ownerId;
    const QString text = EditorForm::held(column);
    const bool isMissing = column.column == reminderDate.column && text.isEmpty();
    return isMissing ? regionalDate(desktop().now()) : text;
}

} // namespace ebtq
