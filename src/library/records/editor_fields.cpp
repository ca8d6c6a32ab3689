#include "library/records/editor_fields.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

EditorFields::EditorFields(Module &module, const QString &arrayName,
                           std::span<const EditorField> descriptions, const RecordTable &record,
                           LookUpRules &rules)
    : ModulePart(module)
    , m_descriptions(descriptions)
    , m_record(record)
    , m_lookUps(module, arrayName, rules)
{
    for (const EditorField &description : descriptions)
        add(description, arrayName);
}

void EditorFields::add(const EditorField &description, const QString &arrayName)
{
    auto &field = controls().add<qzTxt_S>(arrayName, static_cast<int>(m_fields.size()));
    field.setCaption(description.caption.toString());
    field.setAlignment(description.alignment);
    m_fields.push_back(&field);
    connect(&field, &qzTxt_S::FieldChange, this, &EditorFields::changed);
    connect(&field, &qzTxt_S::valueChanged, this, [this, &field] {
        field.setTag(NullConv::ToText(field.Value()));
        Q_EMIT changed();
    });
    m_lookUps.add(field, description.lookUp);
}

const EditorField &EditorFields::describedAt(int number) const
{
    if (number < 0 || static_cast<size_t>(number) >= m_descriptions.size())
        throw Failure(u"没有编号为 %1 的输入框！"_s.arg(number));
    return m_descriptions[static_cast<size_t>(number)];
}

void EditorFields::setUp()
{
    m_lookUps.setUp();
    for (qzTxt_S *field : m_fields) {
        const EditorField &description = describedAt(field->Index());
        if (description.lookUp.kind != LookUp::None || !isNumber(*field))
            continue;
        field->set_judge_type(qzTxt_S::JudgeNumber);
        field->set_judge_time(qzTxt_S::JudgeOnLeaving);
        field->set_error_message(description.title.toString() + FieldLookUps::refusal());
    }
}

qzTxt_S *EditorFields::firstRefused() const
{
    const auto refused = std::ranges::find_if(m_fields, [this](qzTxt_S *field) {
        return (field->isTyped() && !field->check()) || !takeNumber(*field);
    });
    return refused == m_fields.end() ? nullptr : *refused;
}

bool EditorFields::isNumber(const qzTxt_S &field) const
{
    return std::ranges::any_of(m_record.insert, [&](const RecordColumn &column) {
        return column.holder == Holder::FieldText && column.number == field.Index() &&
               column.saved == Saved::Number;
    });
}

/// A field whose text is looked up may hold a name, of which `Val` takes what it can.
bool EditorFields::takeNumber(qzTxt_S &field) const
{
    if (!isNumber(field))
        return true;
    const auto number = TypedNumber(field.Text());
    field.setText(number.value_or(field.Text()));
    return number || describedAt(field.Index()).lookUp.kind != LookUp::None;
}

} // namespace ebtq
