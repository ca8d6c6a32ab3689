#pragma once

#include "library/controls/field_control.h"
#include "library/records/field_look_ups.h"
#include "library/records/record_table.h"

#include <span>
#include <vector>

namespace ebtq {

/// One field of a form's array, in the array's order.
struct EditorField
{
    QStringView caption; ///< as the control draws it on its left; it may be the unit of the field before it
    QStringView title;   ///< what the field is called on the screen and in messages
    LookUp lookUp = {};
    qzTxt_S::TextAlignment alignment = qzTxt_S::AlignLeft;
    QStringView unit = {};
};

/// The array of fields of a form that writes a row: made by a table, with their look-ups, and numbers taken
/// as people type them.
class EditorFields : public QObject, private ModulePart
{
    Q_OBJECT

public:
    /// `arrayName` names the array; the descriptions, `record` and `rules` outlive it. Failures of the
    /// look-ups are reported as the module's.
    EditorFields(Module &module, const QString &arrayName, std::span<const EditorField> descriptions,
                 const RecordTable &record, LookUpRules &rules);

    [[nodiscard]] qzTxt_S &at(int number) const { return *m_fields.at(static_cast<size_t>(number)); }
    [[nodiscard]] const std::vector<qzTxt_S *> &all() const { return m_fields; }
    /// Throws Failure for a number that no field has.
    [[nodiscard]] const EditorField &describedAt(int number) const;
    [[nodiscard]] FieldLookUps &lookUps() { return m_lookUps; }
    [[nodiscard]] const FieldLookUps &lookUps() const { return m_lookUps; }

    /// The fields as they are when a screen opens.
    void setUp();
    /// Checks what was typed and not checked yet and brings numbers into the form that `Val` reads; the first
    /// field that refuses, or nullptr.
    [[nodiscard]] qzTxt_S *firstRefused() const;

Q_SIGNALS:
    /// The text or the value of any field.
    void changed();

private:
    void add(const EditorField &description, const QString &arrayName);
    [[nodiscard]] bool isNumber(const qzTxt_S &field) const;
    [[nodiscard]] bool takeNumber(qzTxt_S &field) const;

    std::span<const EditorField> m_descriptions;
    const RecordTable &m_record;
    FieldLookUps m_lookUps;
    std::vector<qzTxt_S *> m_fields;
};

} // namespace ebtq
