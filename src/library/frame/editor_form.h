#pragma once

#include "contracts/host_contracts.h"
#include "library/controls/button.h"
#include "library/controls/field_control.h"
#include "library/frame/look_up.h"
#include "library/frame/module.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

namespace ebtq {

/// What the forms that edit one row have in common: an array of fields that know where their values come
/// from, a save that refuses by message box, buttons 0 for saving and 1 for closing. One form is kept and
/// opened again and again; each opening finds it as it was made.
class EditorForm : public Module
{
    Q_OBJECT

public:
    /// 0 save, 1 close, and those that a form has besides.
    [[nodiscard]] Button &Cmd(int number) const { return *m_buttons.at(static_cast<size_t>(number)); }

Q_SIGNALS:
    /// For the view: the form is to be closed.
    void unloaded();

protected:
    /// A typed text that is looked up, and where value and text of what was found go.
    struct Check
    {
        const QString &base;
        const QString &valueField;
        const QString &textField;
        QVariant &value; ///< stays empty when nothing matches
        QString &text;
    };

    /// `fields` names the array of fields.
    EditorForm(const QString &name, QString fields, Desktop &desktop);

    /// The next field of the array, wired. A field's Tag follows the value behind its text.
    qzTxt_S &addField(QStringView caption);
    void addButtons(std::initializer_list<QStringView> captions);
    [[nodiscard]] qzTxt_S &field(int number) const { return *m_fields.at(static_cast<size_t>(number)); }
    [[nodiscard]] const std::vector<qzTxt_S *> &fields() const { return m_fields; }

    [[nodiscard]] virtual const LookUp &lookUpOf(int number) const = 0;
    /// What the picker of a field is to be asked with.
    virtual void setParameters(int number, ParameterList &parameters) = 0;
    /// Looks up what was typed into a field: with its picker, else with the host. False when that cannot be
    /// done.
    virtual bool check(int number, const Check &check);
    /// Told after its picker has looked a field's text up, found or not; not when the database failed, since
    /// what goes with the text is not known then.
    virtual void picked(int, const HostPicker &) {}
    /// The row that goes with a field when its picker has looked it up: the chosen one while the choice
    /// stands, since the look-up finds the first of those that have one name.
    [[nodiscard]] std::shared_ptr<const PickedRow> rowOf(int number, const HostPicker &picker) const;
    /// True when the form may close.
    virtual bool DoSave() = 0;

    /// The form as it was designed, whatever its last opening left in it.
    void reset();
    void emptyFields();
    /// Enables or disables everything that can be filled in but the `fixed` fields, which are never typed.
    void setTypesEnabled(bool enabled, std::initializer_list<int> fixed);
    /// The signed-in user as the author, by id and name, and his department.
    void showAuthor(qzTxt_S &author, qzTxt_S &department);

    /// Both throw Failure for a statement that failed: what it should have filled would be saved as empty.
    [[nodiscard]] QVariant single(const SqlText &sql);
    [[nodiscard]] std::unique_ptr<Recordset> rowsOf(const SqlText &sql);
    /// Runs the statement of a save; false when it failed, which is told by then.
    bool execute(const SqlText &sql);

    /// The key of a new row. A save that failed may have come through all the same, when the connection broke
    /// before the answer was there; so it is kept for the next attempt, which must not write the row twice,
    /// until forgetKey. Empty when no key could be made, which is told by then.
    [[nodiscard]] QString newKey();
    void forgetKey() { m_triedKey.clear(); }
    /// What a column of the row holds that an attempt before this one has written after all; invalid when
    /// there is no such row. Nothing when that cannot be found out, which is told by then.
    [[nodiscard]] std::optional<QVariant> triedValue(QStringView table, QStringView keyColumn,
                                                     QStringView column);
    void refuse(const QString &message);
    [[nodiscard]] static QString messageTitle();

private:
    void connectField(qzTxt_S &field);
    void InitFields();
    static void InitField(qzTxt_S &field, const LookUp &source);
    [[nodiscard]] HostPicker *picker(int number);
    void saveAndClose();
    /// The tag of an event of the array of fields.
    [[nodiscard]] QString tag(QStringView event) const;
    bool hasSucceeded();

    QString m_fieldsName;
    std::vector<qzTxt_S *> m_fields;
    std::vector<Button *> m_buttons;
    int m_chosenField = -1;
    std::shared_ptr<const PickedRow> m_chosenRow;
    QString m_triedKey; ///< of the new row that could not be saved yet
};

} // namespace ebtq
