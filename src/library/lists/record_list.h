#pragma once

#include "library/controls/nav_toolbar.h"
#include "library/lists/list_module.h"

#include <array>
#include <memory>
#include <span>

namespace ebtq {

class RecordDetail;

/// Where a column of a saved record's row goes in the grid.
struct SavedCell
{
    QStringView name;
    int column;
};

/// What a list of records with an editor consists of, besides a list. All of it is constant.
struct RecordListTables
{
    struct Button
    {
        QStringView key; ///< empty for a separator
        QStringView caption;
        QStringView icon = {};
    };

    std::span<const Button> buttons;
    std::span<const int>
        clearedValues; ///< fields of which a command that clears the filter empties the value, too
    std::span<const SavedCell> savedCells;
    int numberColumn;        ///< with the document number
    QStringView noun;        ///< what a record is called
    QStringView openTag;     ///< of a failure to open the editor
    QStringView deleteTitle; ///< of a deletion's failure
};

/// The base of the lists whose records are written: tool bar, editor of the record and of its follow-ups,
/// deletion, return of a saved row, tabs below the list.
class RecordList : public ListModule
{
    Q_OBJECT

public:
    [[nodiscard]] NavToolbar &NavToolbar1() { return m_toolbar; }

    /// Leaves no rows.
    bool IReportUI_Clear() override;
    /// "nomenu" for 99: the module has a tool bar of its own and wants no menu.
    QVariant IReportUI_Attributes(const QVariant &key) override;
    /// Makes the record with this key current, for a host that comes from elsewhere; filters and a search
    /// that leave it out are cleared. False when there is none.
    Q_INVOKABLE bool ShowRecord(const QString &key);
    /// What a command is called that opens the editor for a copy of the current record; empty where the list
    /// has none.
    [[nodiscard]] virtual QString copyCaption() const { return {}; }
    /// Whoever may make new records and see all of an existing one may copy it.
    [[nodiscard]] bool mayCopy() const;
    void copyCurrent();

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    void FormRefreshed();
    void Property(const QString &psName, const QVariant &psValue, bool pbAutoUpdate);
    void VsMouseDown(short &Button, short &shift, float &X, float &Y);
    void RefreshGetGridStatus();
    void UnLoad(bool &pbReturn);

protected:
    /// The statements of a deletion, in their order, and which of them is the record's own.
    struct Deletion
    {
        std::array<SqlText, 2> statements;
        size_t ofRecord;
    };

    RecordList(const QString &name, Desktop &desktop, FailureNames failures, const ListTables &list,
               const RecordListTables &records);

    [[nodiscard]] virtual RecordDetail &recordDetail() = 0;
    /// Shows the editor of a record, empty for a new one; `isRestricted` for who may only look at it.
    virtual void openEditor(HostApp &host, const QString &key, bool isRestricted) = 0;
    /// Shows the editor of a new record with what another one holds.
    virtual void openCopy(HostApp & /*host*/, const QString & /*key*/) {}
    /// The row of one record; its columns have names.
    [[nodiscard]] virtual SqlText rowStatement(const QString &key) const = 0;
    [[nodiscard]] virtual Deletion deletion(const QString &key) const = 0;
    /// Shows the editor of a new follow-up.
    virtual void openFollowUpEditor(HostApp &host, const QString &owner) = 0;

    void applyRights() override;
    void rowChanged(const QString &key) override;
    void raiseMessage(const QString &text) override { Q_EMIT Message(text); }
    void raiseRefreshGetGridStatus() override { Q_EMIT RefreshGetGridStatus(); }
    void raiseError(const QString &message, int level, const QString &title) override
    {
        Q_EMIT ErrMessage(message, level, title);
    }

    /// The document number in the current row; empty for none.
    [[nodiscard]] QString currentNumber();
    /// Makes the record `step` rows further current, past hidden rows and sums, and gives its key; empty
    /// where there is none, which is told.
    [[nodiscard]] QString goToNeighbour(int step);
    /// Writes a record's row as it was saved; a new one stands on top until the next refresh. Throws.
    void showSaved(const QString &key, bool isNew);

private:
    void makeToolbar();
    void pressed(const QString &key);
    void showAll() { showOnly(false, false); }
    void showFirstKind() { showOnly(true, false); }
    void showSecondKind() { showOnly(false, true); }
    void showOnly(bool first, bool second);
    void openNew() { open({}, false); }
    void openCurrent();
    void openOnDoubleClick();
    void open(const QString &key, bool isRestricted);
    void writeFollowUp();
    void deleteCurrent();
    void refreshList() { IReportUI_Refresh(); }
    void close();

    [[nodiscard]] bool isRowInSight();
    [[nodiscard]] QString keyInSight();
    [[nodiscard]] bool isDeletionAgreed();
    /// The statement on the record itself as it was run; nullptr when one failed, of which the host has been
    /// told.
    [[nodiscard]] std::unique_ptr<HostQuery> deleteRows(const QString &key);
    [[nodiscard]] int rowToRewrite(const QString &key);
    /// A text that names a record as this list does.
    [[nodiscard]] QString named(QStringView text) const;

    const RecordListTables m_records;
    NavToolbar &m_toolbar;
};

} // namespace ebtq
