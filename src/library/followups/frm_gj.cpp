#include "library/followups/frm_gj.h"

#include "contracts/conversions.h"
#include "contracts/inline_list.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"
#include "library/frame/desktop.h"

#include <algorithm>

namespace ebtq {

/// One column of fygj and what on the form fills it.
struct FollowUpValue
{
    enum Holder {
        Contents,     ///< trimmed, between apostrophes, as all texts
        Owner,        ///< the key that the form was opened with
        Tick,         ///< 0 or 1
        FieldText,    ///< a text
        FieldDate,    ///< between "#": the database is to refuse what is no date
        ReminderDate, ///< the same; the present time when none was given, so that every row has one
        KeyNumber,    ///< the key behind a field, as a number
        KeyText,      ///< the same as a text
    };

    QStringView column;
    Holder holder;
    int number = -1; ///< of the field
    bool isOnlyInserted = false;
};

namespace {

enum FieldNumber : int { Date, Department, Agent, ReminderTime, Range, Reminder, Result, Author };

constexpr LookUp calendar{.kind = LookUp::Calendar};

struct FollowUpField
{
    QStringView caption;
    LookUp lookUp = {};
};
constexpr FollowUpField followUpFields[] = {
    {u"跟进日期", calendar},
    {u"    部门"},
    {u"经纪人", {.kind = LookUp::Picker, .name = u"pdmgy"}},
    {u"提醒时间", calendar},
    {u"提醒范围", {.kind = LookUp::InlineList, .name = u"|本人;0|本部;1|全部;2"}},
    {u"提醒内容"},
    {u"处理结果"},
    {u"制单人"},
};

/// What the tick opens and closes.
constexpr int reminderFields[] = {Result, Range, Reminder, ReminderTime};

/// In the order in which both statements write them. An edit leaves the row its author.
constexpr FollowUpValue values[] = {
    {u"操作日期", FollowUpValue::FieldDate, Date},
    {u"业务员ID", FollowUpValue::KeyNumber, Agent},
    {u"用户ID", FollowUpValue::KeyText, Author, true},
    {u"跟进内容", FollowUpValue::Contents},
    {u"房源ID", FollowUpValue::Owner},
    {u"下次提醒", FollowUpValue::Tick},
    {u"提醒日期", FollowUpValue::ReminderDate, ReminderTime},
    {u"提醒范围", FollowUpValue::KeyNumber, Range},
    {u"提醒内容", FollowUpValue::FieldText, Reminder},
    {u"处理结果", FollowUpValue::FieldText, Result},
};

SqlText between(QStringView mark, const QString &text)
{
    return SqlText(mark.toString()) + typed(text) + mark.toString();
}

} // namespace

FrmGj::FrmGj(Desktop &desktop)
    : EditorForm(QStringLiteral("FrmGj"), QStringLiteral("qzTxt"), desktop)
    , m_contentsLabel(controls().add<Label>(QStringLiteral("lbl"), 0))
    , m_contents(controls().add<TextBox>(QStringLiteral("Txt"), -1, TextBox::Lines::Many))
    , m_reminds(controls().add<CheckBox>(QStringLiteral("Chk")))
{
    for (const FollowUpField &each : followUpFields)
        addField(each.caption);
    m_contentsLabel.setCaption(QStringLiteral("跟进内容"));
    m_reminds.setCaption(QStringLiteral("下次提醒"));
    addButtons({u"保存(&S)", u"关闭(&X)"});
    connect(&m_reminds, &CheckBox::Click, this, [this] { openReminder(m_reminds.Value() != 0); });
}

QString FrmGj::Caption()
{
    return QStringLiteral("房源跟进记录");
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

const LookUp &FrmGj::lookUpOf(int number) const
{
    return followUpFields[number].lookUp;
}

void FrmGj::setParameters(int, ParameterList &parameters)
{
    parameters.Item(QStringLiteral("组织类型")).Value = 1;
    parameters.Item(QStringLiteral("lock")).Value = 1;
}

// Opening

void FrmGj::py_Init(HostApp &host, const QString &ownerID, const QString &followUpID, bool disable)
{
    setApp(&host);
    m_ownerId = ownerID;
    m_id = followUpID;
    trapped(u"-->Py_Init::", [&] {
        reset();
        m_id.isEmpty() ? NewRecord() : LoadData();
        SetFieldsEnabled(!disable);
        desktop().showModal(*this);
        return true;
    });
    setApp(nullptr);
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
    showAuthor(qzTxt(Author), qzTxt(Department));
}

/// Deliberately as it is: one bracket for three joins, which the database refuses, and a field 提醒时间 where
/// the column is 提醒日期. No caller passes a follow-up to be edited, and one who did would get the
/// database's message and no form, so that nothing can be saved over the row.
void FrmGj::LoadData()
{
    SqlText sql(QStringLiteral("select A.*,C.mtname as 部门,B.username as 制单人,D.姓名 as 业务员"
                               " from (fygj A left join su_membership B on A.用户ID=B.userID)"
                               " left join su_usertype C on B.UserTypeID=C.mtID"
                               " left join pdmgy D on A.业务员ID=D.雇员ID where 跟进ID='"));
    sql += typed(m_id);
    sql += QStringView(u"'");
    const auto rows = rowsOf(sql);
    if (!(rows->Eof() && rows->Bof()))
        takeRow(*rows);
}

void FrmGj::takeRow(const Recordset &row)
{
    const auto text = [&](QStringView column) {
        return NullConv::ToText(row.Fields(column.toString()).Value);
    };
    const auto number = [&](QStringView column) { return WholePart(Val(text(column))); };
    qzTxt(Date).setText(text(u"操作日期"));
    m_contents.setText(Trim(text(u"跟进内容")));
    qzTxt(Department).setText(Trim(text(u"部门")));
    qzTxt(Agent).setValue(number(u"业务员ID"));
    qzTxt(Agent).setText(Trim(text(u"业务员")));
    qzTxt(Author).setValue(Trim(text(u"用户ID")));
    qzTxt(Author).setText(Trim(text(u"制单人")));
    qzTxt(Result).setText(Trim(text(u"处理结果")));
    showRange(number(u"提醒范围"));
    qzTxt(Reminder).setText(Trim(text(u"提醒内容")));
    qzTxt(ReminderTime).setText(text(u"提醒时间"));
    m_reminds.setValue(number(u"下次提醒"));
}

void FrmGj::showRange(int range)
{
    qzTxt(Range).setValue(range);
    if (const auto entry = InlineList(lookUpOf(Range).name.toString()).find(QString::number(range)))
        qzTxt(Range).setText(entry->text);
}

/// The rule by type opens every field. Those of the reminder are designed closed, and the tick is the way to
/// them: a form without it shows what it would remind of as closed, whatever the rule has opened.
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
}

// Saving

/// Nothing is required: an empty follow-up can be saved.
bool FrmGj::DoSave()
{
    return trapped(u"-->DoSave::", [this] { return save(); });
}

bool FrmGj::save()
{
    const bool isNew = m_id.isEmpty();
    const std::optional<QVariant> tried = triedValue(u"fygj", u"跟进ID", u"跟进ID");
    if (!tried)
        return false;
    // Without a key, which is told by then, what was typed is saved all the same.
    const QString id = isNew ? newKey() : m_id;
    // One that an attempt before has written after all, its answer lost, is written over.
    if (!execute(isNew && !tried->isValid() ? insertStatement(id) : updateStatement(id)))
        return false;
    forgetKey();
    Q_EMIT ReturnData(id, isNew);
    return true;
}

SqlText FrmGj::literal(const FollowUpValue &value) const
{
    const auto fieldText = [&] { return qzTxt(value.number).Text(); };
    const auto key = [&] { return qzTxt(value.number).Tag(); };
    switch (value.holder) {
    case FollowUpValue::Contents:
        return between(u"'", Trim(m_contents.Text()));
    case FollowUpValue::Owner:
        return between(u"'", m_ownerId);
    case FollowUpValue::Tick:
        return QString::number(m_reminds.Value());
    case FollowUpValue::FieldDate:
        return between(u"#", m_id.isEmpty() ? fieldText() : Trim(fieldText()));
    case FollowUpValue::ReminderDate:
        return between(u"#", fieldText().isEmpty() ? regionalDate(desktop().now()) : fieldText());
    case FollowUpValue::KeyNumber:
        return PlainDecimal(Val(key()));
    case FollowUpValue::KeyText:
        return between(u"'", Trim(key()));
    default:
        return between(u"'", Trim(fieldText()));
    }
}

SqlText FrmGj::insertStatement(const QString &id) const
{
    QString columns = QStringLiteral("insert into fygj(跟进ID");
    SqlText literals = SqlText(QStringLiteral(")values(")) + between(u"'", id);
    for (const FollowUpValue &value : values) {
        columns += u',';
        columns += value.column;
        literals += QStringView(u",");
        literals += literal(value);
    }
    return SqlText(columns) + literals + QStringLiteral(")");
}

SqlText FrmGj::updateStatement(const QString &id) const
{
    SqlText sql(QStringLiteral("update fygj set "));
    QStringView comma;
    for (const FollowUpValue &value : values) {
        if (value.isOnlyInserted)
            continue;
        sql += comma;
        sql += value.column;
        sql += QStringView(u"=");
        sql += literal(value);
        comma = u",";
    }
    return sql + QStringLiteral(" where 跟进ID=") + between(u"'", id);
}

} // namespace ebtq
