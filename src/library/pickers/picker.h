#pragma once

#include "library/controls/button.h"
#include "library/controls/combo_box.h"
#include "library/controls/label.h"
#include "library/frame/focus_helper.h"
#include "library/frame/module.h"
#include "library/pickers/picker_search.h"

#include <QScopeGuard>

#include <functional>
#include <span>

namespace ebtq {

/// The grid of a picker: the loaded rows fill the columns from 1 on.
struct PickerGrid
{
    QStringView format;
    std::span<const int> hidden;
    std::span<const int> right = {};
    std::span<const int> centred = {};
};

/// A list from which one row, or several, are chosen for a field, and the look-up of a text typed there,
/// which needs no screen. The base of all pickers: frame, search, keys, opening and closing.
///
/// It has no event for failures: operations that the host calls throw and leave a statement's failure in
/// HostDb.LastError; failures of the user's actions are trapped and shown on the panel.
class Picker : public Module, public IPickerUI
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IPickerUI)

public:
    Picker(const QString &name, Desktop &desktop, const PickerGrid &grid);

    [[nodiscard]] VSFlexGrid &VS() const { return m_grid; }
    [[nodiscard]] PickerSearch &search() { return m_search; }
    /// Numbers 0, the text that is looked for, and 1, the searched columns.
    [[nodiscard]] TextBox &Txt(int number);
    [[nodiscard]] CheckBox &Check() const { return m_search.filters(); }
    [[nodiscard]] CheckBox &ChkFind() const { return m_search.strictMatchBox(); }
    /// Numbers 0 确认, 1 取消, 2 刷新 and, with ticks, 3 全选 and 4 全清.
    [[nodiscard]] Button &btn(int number);
    /// nullptr for a picker whose list is not narrowed.
    [[nodiscard]] virtual XPCombo *Cmb() { return nullptr; }
    /// Why the rows could not be loaded; empty when they were.
    [[nodiscard]] Label &lblFailure() const { return m_failure; }
    /// The host's folder of layouts; pickers keep none there.
    [[nodiscard]] const QString &layoutFolder() const { return m_layoutFolder; }

    /// What a view calls for a click on a data row.
    virtual void clickRow(int /*row*/) {}
    /// What a view calls for a click on a column's caption: puts the rows in its order, and the next click on
    /// the same one in the opposite order.
    void sortBy(int column);
    /// What a view calls for Ctrl+B.
    void findByKey() { m_focus.SetFocus(m_search.text()); }
    /// What a view calls for Ctrl+Shift+E.
    void askForColumns();

    bool IPickerUI_Init(HostApp &app, int unused, const QString &name) override;
    void IPickerUI_Clear() override;
    bool IPickerUI_Refresh() override;
    bool IPickerUI_IsDirty() override { return false; }
    void IPickerUI_IsDirty(bool) override {}
    void IPickerUI_DoGetFormStatus() override {}
    void IPickerUI_DoSaveFormStatus() override {}
    QVariant IPickerUI_Attributes(const QString &) override { return {}; }
    ParameterList &IPickerUI_Parameters() override { return m_parameters; }
    /// The parameters of the next use; those of the previous one are dropped.
    void IPickerUI_Parameters(const ParameterList &list) override;
    QVariant IPickerUI_Value() override { return m_value; }
    void IPickerUI_Value(const QVariant &value) override { m_value = value; }
    QString IPickerUI_Text() override { return m_text; }
    void IPickerUI_Text(const QString &text) override { m_text = text; }
    std::shared_ptr<const PickedRow> IPickerUI_Objects() override { return m_row; }
    bool IPickerUI_Validate(const QString &unused, const QString &valueField, const QString &textField,
                            const QString &typedText, QVariant &value, QString &text) override;

Q_SIGNALS:
    void DoSelect();
    void DoCancel();

protected:
    /// Reads a column of one row by its name, from the grid or from a recordset.
    using RowReader = std::function<QVariant(const QString &column)>;

    // What makes a picker.
    /// The statement whose rows fill the grid.
    [[nodiscard]] virtual SqlText listStatement() = 0;
    /// The statement that looks a typed text up.
    [[nodiscard]] virtual SqlText checkStatement(const QString &typedText) const = 0;
    /// Names of the grid's columns, from column 1 on.
    [[nodiscard]] virtual QStringList columns() const = 0;
    [[nodiscard]] virtual QString keyColumn() const = 0;
    [[nodiscard]] virtual QString textColumn() const = 0;
    [[nodiscard]] virtual std::shared_ptr<const PickedRow> emptyRow() const = 0;
    [[nodiscard]] virtual std::shared_ptr<const PickedRow> readRow(const RowReader &read) const = 0;
    /// Prepares what the list depends on; false when the database fails.
    [[nodiscard]] virtual bool prepareList() { return true; }
    virtual void beginUse() {}
    /// Value and text of the choice when it is more than the current row; the row keeps its own.
    virtual void takeTicked() {}
    /// A double click and Enter in the grid choose.
    [[nodiscard]] virtual bool choosesByRow() const { return true; }

    [[nodiscard]] const ParameterList &parameters() const { return m_parameters; }
    [[nodiscard]] bool isData(int row) const { return row >= m_grid.FixedRows() && row < m_grid.Rows(); }
    void setChoice(const QVariant &value, const QString &text);
    Button &addButton(int number, const QString &caption);
    /// Runs a statement; LastError and the label show its failure.
    [[nodiscard]] std::unique_ptr<Recordset> open(const SqlText &sql);
    /// Loads the rows again, for the person.
    void reload();
    void raiseError(const QString &message, int level, const QString &title) override;

private:
    /// Runs the body of an operation that the host calls.
    template<class Body> bool released(Body body)
    {
        HostDb &database = app().Db();
        const auto release = qScopeGuard([&database] { database.Release(); });
        return body();
    }
    void setUpGrid();
    bool load();
    void confirm();
    void takeRow();
    bool lookUp(const QString &valueField, const QString &textField, const QString &typedText);

    PickerGrid m_shape;
    VSFlexGrid &m_grid;
    PickerSearch m_search;
    Label &m_failure;
    FocusHelper m_focus;
    ParameterList m_parameters;
    std::shared_ptr<const PickedRow> m_row;
    QVariant m_value;
    QString m_text;
    QString m_layoutFolder;
    int m_sortedColumn = -1;
    bool m_isDescending = false;
};

/// " Where (" and each of the columns compared with the typed text, " OR " between them, and ")".
[[nodiscard]] SqlText whereAnyEquals(const QStringList &columns, const QString &typedText);

} // namespace ebtq
