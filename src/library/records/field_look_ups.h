#pragma once

#include "library/controls/field_control.h"
#include "library/frame/module_part.h"
#include "library/records/look_up.h"

#include <map>
#include <memory>

namespace ebtq {

/// What a screen adds to the look-ups of its fields.
class LookUpRules
{
public:
    /// A typed text to look up, and the fields that get value and text of the match.
    struct Check
    {
        const QString &base;
        const QString &valueField;
        const QString &textField;
        QVariant &value; ///< stays empty when nothing matches
        QString &text;
    };

    virtual ~LookUpRules() = default;
    /// Sets the parameters of a field's picker.
    virtual void setParameters(int number, ParameterList &parameters) = 0;
    /// Looks up what was typed into a field, as FieldLookUps::lookUp does, and may add to it. False when that
    /// cannot be done.
    virtual bool check(int number, const Check &check) = 0;
    /// Called after a picker has looked a field's text up, found or not; not when the database failed, since
    /// what goes with the text is not known then.
    virtual void picked(int, const HostPicker &) {}
};

/// The look-ups of an array of fields: help and check of each by its LookUp, with the host's lists and
/// pickers.
class FieldLookUps : public QObject, private ModulePart
{
    Q_OBJECT

public:
    /// `arrayName` names the array of fields in failures; `rules` outlive the look-ups.
    FieldLookUps(Module &module, QString arrayName, LookUpRules &rules);

    /// `lookUp` outlives the field.
    void add(qzTxt_S &field, const LookUp &lookUp);
    /// The fields as they are when a screen opens. A look-up of the kind None leaves its field as it is.
    void setUp();

    bool lookUp(int number, const LookUpRules::Check &check);
    /// The row that goes with a field when its picker has looked it up: the chosen one while it is unchanged,
    /// since the look-up finds the first of several with the same name.
    [[nodiscard]] std::shared_ptr<const PickedRow> rowOf(int number, const HostPicker &picker) const;

    /// The message for a text that is not found, after the field's caption.
    [[nodiscard]] static QString refusal();

private:
    struct Field
    {
        qzTxt_S *control;
        const LookUp *lookUp;
    };
    [[nodiscard]] const Field &at(int number) const { return m_fields.at(number); }
    [[nodiscard]] HostPicker *picker(int number);
    [[nodiscard]] bool show(int number, int left, int top, QString &text, QVariant &value);
    /// The tag of an event of the array.
    [[nodiscard]] QString tag(QStringView event) const;

    QString m_arrayName;
    LookUpRules &m_rules;
    std::map<int, Field> m_fields;
    int m_chosenField = -1;
    std::shared_ptr<const PickedRow> m_chosenRow;
};

} // namespace ebtq
