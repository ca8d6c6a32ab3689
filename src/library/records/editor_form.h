#pragma once

#include "contracts/host_contracts.h"
#include "library/controls/button.h"
#include "library/frame/module.h"
#include "library/records/editor_fields.h"
#include "library/records/loaded_row.h"

#include <QDate>

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace ebtq {

class CheckBox;
class OptionButton;
class TextBox;

/// The base of forms that edit one row: an array of fields with their look-ups, a table of the row's columns,
/// a save that refuses by message box, buttons 0 for saving and 1 for closing. A form is created once and
/// reused; each opening resets it.
class EditorForm : public Module, protected LookUpRules
{
    Q_OBJECT

public:
    /// 0 save, 1 close, and those that a form has besides.
    [[nodiscard]] Button &Cmd(int number) const { return *m_buttons.at(static_cast<size_t>(number)); }
    [[nodiscard]] const EditorField &fieldOf(int number) const { return m_fields.describedAt(number); }

    /// Something on the form was changed since it was loaded or emptied; never on one for reading only.
    [[nodiscard]] bool isDirty() const { return m_isDirty && Cmd(0).Enabled(); }
    /// What the record is called in the window's title; empty for one without a number.
    [[nodiscard]] virtual QString recordNumber() const;
    /// What a view asks before Esc, the close box or the window manager closes the form: a changed one asks
    /// whether to save. False when it stays open.
    bool mayClose();

Q_SIGNALS:
    /// For the view: the form is to be closed.
    void unloaded();
    /// recordNumber() or isDirty() may have changed.
    void titleChanged();

protected:
    /// The number of a field and the message when it is empty.
    using RequiredField = std::pair<int, QStringView>;
    /// How a form gets its row's document number.
    struct NumberRule
    {
        int moduleId;
        QStringView column;  ///< that holds it
        QStringView failure; ///< "%1" is the host's reason
        QStringView missing; ///< said when the number is empty
    };
    /// A document number that the host has given and no row has got.
    struct TakenNumber
    {
        int moduleId;
        QDate date;
        QString number;
        int connection; ///< over which it was given
    };
    /// A row that was written.
    struct SavedRow
    {
        QString key;
        bool isNew;
    };

    /// `arrayName` names the array of fields; `fields` and `record` outlive the form. `failureTitle` is the
    /// title of raised failures.
    EditorForm(const QString &name, const QString &arrayName, std::span<const EditorField> fields,
               const RecordTable &record, Desktop &desktop, const QString &failureTitle = applicationTitle());

    void addButtons(std::initializer_list<QStringView> captions);
    TextBox &addMemo(const QString &name, int index, const QString &caption);
    CheckBox &addTick(const QString &name, int index, const QString &caption);
    /// One of the form's group of option buttons.
    OptionButton &addOption(const QString &name, int index, const QString &caption);
    [[nodiscard]] qzTxt_S &field(int number) const { return m_fields.at(number); }
    [[nodiscard]] const std::vector<qzTxt_S *> &fields() const { return m_fields.all(); }
    [[nodiscard]] TextBox &memo(int number) const { return *m_memos.at(static_cast<size_t>(number)); }
    [[nodiscard]] CheckBox &tick(int number) const { return *m_ticks.at(static_cast<size_t>(number)); }
    [[nodiscard]] OptionButton &option(int number) const
    {
        return *m_options.at(static_cast<size_t>(number));
    }

    bool check(int number, const Check &check) override { return m_fields.lookUps().lookUp(number, check); }
    [[nodiscard]] std::shared_ptr<const PickedRow> rowOf(int number, const HostPicker &picker) const
    {
        return m_fields.lookUps().rowOf(number, picker);
    }
    /// True when the form may close.
    virtual bool DoSave() = 0;
    /// What buttons 0 and 1 do: by default a save closes the form, and closing asks nothing.
    virtual void savePressed();
    virtual void closePressed();
    /// Asks what becomes of the changes; nothing when the form is to stay as it is.
    [[nodiscard]] std::optional<bool> wantsSave();

    /// One opening, from loading to closing: `load` brings what the form shows and is false when there is
    /// nothing to show. A form that is open already stays as it is, with what was typed: a command can still
    /// arrive in the form's own event loop.
    void open(HostApp &host, QStringView tag, const std::function<bool()> &load);
    /// Resets the form to its initial state.
    void reset();
    void emptyFields();
    /// What is on the form now is what it was opened with.
    void clearDirty() { setDirty(false); }
    /// False where the whole database is read-only: forms then open disabled for everybody.
    [[nodiscard]] bool isWritable();
    /// Enables or disables everything that can be filled in but the `fixed` fields, which are never typed.
    void setTypesEnabled(bool enabled, std::initializer_list<int> fixed);
    /// The signed-in user as the author, by id and name.
    void showAuthor(qzTxt_S &author);
    /// The author's department.
    void showDepartment(qzTxt_S &department, const qzTxt_S &author);

    /// Fills in the signed-in user as the agent of a new row, where he wants it so (user parameter
    /// "ownagent" of group 12) and is an employee.
    void beginWithOwnAgent(qzTxt_S &agent);

    /// Fills the form by the record's table and keeps what the row holds, to find others' changes later.
    void takeRow(const Recordset &row);
    /// The text that is saved in a column. A form answers for the columns that no control holds
    /// (Holder::Given).
    [[nodiscard]] virtual QString held(const RecordColumn &column) const;
    /// What is on the form is from now on a new row's, not that of the row that was loaded.
    void becomeNewRow();
    /// Reads the row again after somebody else has changed it; false when it could not be read.
    virtual bool reload() = 0;

    /// True when all have a text; the first that has none is named and gets the keyboard.
    bool DoCheckRequired(std::span<const RequiredField> required);
    /// Checks what was typed and not checked yet, since a save can come without the keyboard leaving the
    /// field, and brings numbers into the form that `Val` reads. False when a field refuses: the user has
    /// seen a message and the field has the focus.
    bool DoCheckTyped();
    /// Gives the row its document number and writes it; the number is field 0's, or for a new row the host's,
    /// which may be another one than the screen shows.
    [[nodiscard]] std::optional<SavedRow> writeNumbered(const QString &id, const NumberRule &rule);
    /// The document number that a save writes.
    [[nodiscard]] const QString &number() const { return m_number; }
    /// Asks whether to go on with another new row.
    [[nodiscard]] bool wantsAnother();
    /// Writes the row with one statement: `id` of the row that was loaded, empty for a new one. Nothing when
    /// it was not written; the user has been told and what was typed stays.
    [[nodiscard]] std::optional<SavedRow> write(const QString &id);
    void refuse(const QString &message);
    [[nodiscard]] static QString messageTitle();

private:
    void setDirty(bool dirty);
    [[nodiscard]] bool wantsOwnAgent() const;

    // The row
    void put(const RecordColumn &column, const QString &text);
    void putFirstTick(int number);
    [[nodiscard]] int firstTick() const;
    [[nodiscard]] bool isInSum(size_t tick, const QString &sum) const;
    [[nodiscard]] int tickSum() const;
    [[nodiscard]] OptionButton &optionOf(const QString &number) const;
    [[nodiscard]] int chosenOption() const;
    [[nodiscard]] HeldText heldTexts() const;
    [[nodiscard]] QString titleOf(const RecordColumn &column) const;

    // Saving
    /// The document number to be saved, from field 0, for a new row from the host, which may give another one
    /// than the screen shows. A number that a failed save has taken is kept for the next new row, also after
    /// the form was closed, so that none is left out. Nothing when there is none; the user has been told.
    [[nodiscard]] std::optional<QString> documentNumber(bool isNew, const NumberRule &rule);
    /// The value of a column of the new row if an earlier attempt has written it after all, else invalid.
    /// Nothing when that cannot be determined; the user has been told.
    [[nodiscard]] std::optional<QVariant> triedValue(QStringView column);
    [[nodiscard]] std::optional<QString> numberOfNewRow(const NumberRule &rule);
    [[nodiscard]] bool isStillFree(const NumberRule &rule);
    template<class Body> bool succeeds(Body body);
    /// Refuses a save in the database's words. Where a text has an apostrophe, it is named and gets the
    /// keyboard.
    void refuseWrite(const QString &failure);
    [[nodiscard]] QString newKey();
    bool insert(const QString &key);
    bool update(const QString &key);
    /// Empty on success, else the message to show once the transaction has ended.
    [[nodiscard]] QString runUpdate(const QString &key);
    /// The same, if nobody else has changed the row since it was loaded; else these changes.
    [[nodiscard]] QString tryUpdate(const QString &key, std::vector<ForeignChange> &changes);
    [[nodiscard]] QString updateUnchanged(const QString &key, std::vector<ForeignChange> &changes);
    [[nodiscard]] std::vector<ForeignChange> foreignChanges(const QString &key);
    /// Runs a statement on the edited row; a deleted row is a failure too.
    [[nodiscard]] QString runOnRow(const SqlText &sql);
    [[nodiscard]] bool isSaveChecked();
    bool settle(const std::vector<ForeignChange> &changes);
    void takeOver(const ForeignChange &change);
    [[nodiscard]] QString described(const ForeignChange &change) const;
    /// A stored text as a person reads it on the form.
    [[nodiscard]] QString shown(const RecordColumn &column, const QString &text) const;

    const RecordTable &m_record;
    EditorFields m_fields;
    std::vector<Button *> m_buttons;
    std::vector<TextBox *> m_memos;
    std::vector<CheckBox *> m_ticks;
    std::vector<OptionButton *> m_options;
    LoadedRow m_loaded;
    bool m_isOpen = false;
    bool m_isDirty = false;
    QString m_triedKey; ///< of the new row that could not be saved yet
    std::optional<TakenNumber> m_taken;
    QString m_number;
};

} // namespace ebtq
