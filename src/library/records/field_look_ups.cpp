#include "library/records/field_look_ups.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

void setUpHelp(qzTxt_S &field, const LookUp &lookUp)
{
    field.set_help_flag(true);
    field.set_help_menuflag(true);
    field.set_judge_time(qzTxt_S::JudgeOnLeaving);
    field.set_error_message(Trim(field.Caption()) + FieldLookUps::refusal());
    if (lookUp.kind == LookUp::Calendar) {
        field.set_help_type(qzTxt_S::Calendar);
        field.set_judge_type(qzTxt_S::JudgeDate);
        return;
    }
    const bool isInline = lookUp.kind == LookUp::InlineList;
    field.set_judge_type(isInline ? qzTxt_S::JudgeInlineList : qzTxt_S::JudgeStatement);
    if (lookUp.kind == LookUp::Picker) {
        field.set_help_type(qzTxt_S::Custom);
        return;
    }
    field.set_help_type(isInline ? qzTxt_S::InlineList : qzTxt_S::HostList);
    field.set_text_field_code(lookUp.valueColumn.toString());
    field.set_text_field_name(lookUp.textColumn.toString());
    field.set_help_code(lookUp.name.toString());
    field.set_judge_base(lookUp.check());
}

} // namespace

FieldLookUps::FieldLookUps(Module &module, QString arrayName, LookUpRules &rules)
    : ModulePart(module)
    , m_arrayName(std::move(arrayName))
    , m_rules(rules)
{}

QString FieldLookUps::refusal()
{
    return u"输入有误，请重新输入！"_s;
}

QString FieldLookUps::tag(QStringView event) const
{
    return u"-->%1_%2::"_s.arg(m_arrayName, event);
}

void FieldLookUps::add(qzTxt_S &field, const LookUp &lookUp)
{
    const int number = field.Index();
    m_fields.insert_or_assign(number, Field{&field, &lookUp});
    connect(&field, &qzTxt_S::FieldHelp, this, [=, this](int left, int top, QString &text, QVariant &value) {
        trapped(tag(u"FieldHelp"), [&] { return show(number, left, top, text, value); });
    });
    connect(&field, &qzTxt_S::FieldCheck, this,
            [=, this](const QString &base, const QString &valueField, const QString &textField,
                      QVariant &value, QString &text) {
                trapped(tag(u"FieldCheck"), [&] {
                    return m_rules.check(number, {base, valueField, textField, value, text});
                });
            });
    connect(&field, &qzTxt_S::FieldGenericHelp, this,
            [this](const QString &key, const QVariant &control, const QVariant &left, const QVariant &top) {
                trapped(tag(u"FieldGenericHelp"), [&] { return app().ShowHelp(key, control, left, top); });
            });
}

void FieldLookUps::setUp()
{
    for (const auto &[number, field] : m_fields) {
        if (field.lookUp->kind == LookUp::None)
            continue;
        setUpHelp(*field.control, *field.lookUp);
        field.control->setToday(app().Session().LoginDate());
    }
}

/// The picker of a field, ready and with its parameters; nullptr when it cannot be used. The host shares a
/// picker among its screens: parameters of another one must not narrow this list.
HostPicker *FieldLookUps::picker(int number)
{
    HostPicker &list = app().Picker(at(number).lookUp->name.toString());
    if (!list.Ready(0))
        return nullptr;
    list.Parameters().Clear();
    m_rules.setParameters(number, list.Parameters());
    return &list;
}

bool FieldLookUps::show(int number, int left, int top, QString &text, QVariant &value)
{
    HostPicker *list = picker(number);
    if (!list || !list->Show(left, top, text, value, 0, {}))
        return false;
    m_chosenField = number;
    m_chosenRow = list->Objects();
    return true;
}

bool FieldLookUps::lookUp(int number, const LookUpRules::Check &check)
{
    const QString typedText = at(number).control->Text();
    if (at(number).lookUp->kind != LookUp::Picker) {
        // The host itself reports a check that failed without a database.
        app().JudgeText(check.base, check.valueField, check.textField, typedText, check.value, check.text);
        return true;
    }
    HostPicker *list = picker(number);
    if (!list)
        return false;
    if (list->Validate(check.base, check.valueField, check.textField, typedText, check.value, check.text) ||
        app().Db().LastError().Description.isEmpty())
        m_rules.picked(number, *list);
    return true;
}

/// Typing empties a field's value, so a value means that it was chosen.
std::shared_ptr<const PickedRow> FieldLookUps::rowOf(int number, const HostPicker &picker) const
{
    const bool isChosen = m_chosenField == number && !NullConv::ToText(at(number).control->Value()).isEmpty();
    return isChosen ? m_chosenRow : picker.Objects();
}

} // namespace ebtq
