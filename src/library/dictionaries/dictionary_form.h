#pragma once

#include "library/controls/c_tree_view.h"
#include "library/controls/search_box.h"
#include "library/controls/splitter.h"
#include "library/frame/id_generator.h"
#include "library/frame/module.h"
#include "library/records/editor_fields.h"

namespace ebtq {

/// A data-entry module as data. All of it is constant.
struct Dictionary
{
    QStringView name;                    ///< of the module and its layout
    QStringView caption;                 ///< title of its messages
    QStringView root;                    ///< text of the tree's first node
    std::span<const EditorField> fields; ///< 0 is the number, 1 the name: both required and unique
    const RecordTable &record;           ///< its load begins with the columns of the number and the name
};

/// A dictionary that is kept in the host's window: a tree on the left that leads to the records, their fields
/// on the right, browsed until one is made or edited; the tree is dead meanwhile. The current id alone tells
/// a save whether it updates or inserts.
class DictionaryForm : public Module, public IFormUI, protected LookUpRules
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IFormUI)
    /// A record is being made or edited.
    Q_PROPERTY(bool Editing READ Editing NOTIFY editingChanged)
    /// Whether a node may be dragged, which begins to edit its record; a host switches it off for users who
    /// may not. Nothing where the module has no use for it.
    Q_PROPERTY(bool DragEnabled READ DragEnabled WRITE setDragEnabled)

public:
    DictionaryForm(const Dictionary &dictionary, Desktop &desktop);

    [[nodiscard]] TreeView &TV() const { return m_tree; }
    /// What is typed there filters the tree.
    [[nodiscard]] SearchBox &filter() const { return m_filter; }
    [[nodiscard]] Splitter &Sp() const { return m_splitter; }
    [[nodiscard]] qzTxt_S &qzTxt(int number) const { return m_fields.at(number); }
    [[nodiscard]] const EditorField &fieldOf(int number) const { return m_fields.describedAt(number); }
    /// The name of the frame in which a view shows the fields.
    [[nodiscard]] static QString frameName();

    [[nodiscard]] bool Editing() const { return m_isEditing; }
    [[nodiscard]] bool DragEnabled() const { return m_tv.DragEnabled(); }
    virtual void setDragEnabled(bool) {}

    bool IFormUI_Init(HostApp &app, int unused1, int unused2) override;
    bool IFormUI_Clear() override;
    bool IFormUI_FileNew() override;
    bool IFormUI_FileNewNext() override { return false; }
    bool IFormUI_FileEdit() override;
    bool IFormUI_FileDelete() override;
    bool IFormUI_FileSave() override;
    bool IFormUI_FileCancel() override;
    bool IFormUI_Find(const QVariant &condition) override;
    bool IFormUI_FindNext() override;
    bool IFormUI_Filter(const QVariant &) override { return false; }
    bool IFormUI_Refresh() override;
    bool IFormUI_RecordTop() override;
    bool IFormUI_RecordPrevious() override { return m_tv.MoveNodePrevious(); }
    bool IFormUI_RecordNext() override { return m_tv.MoveNodeNext(); }
    bool IFormUI_RecordBottom() override;
    bool IFormUI_Check() override { return false; }
    bool IFormUI_UnCheck() override { return false; }
    bool IFormUI_PrintPreview() override { return false; }
    bool IFormUI_DoPrint() override { return false; }
    bool IFormUI_PrintSetup() override { return false; }
    bool IFormUI_Help() override { return false; }
    bool IFormUI_DoSetStatus(const QString &, const QVariant &) override { return false; }
    int IFormUI_GetID() override { return 0; }
    bool IFormUI_CheckStatus(const QString &) override { return false; }
    QString IFormUI_ReturnPrintName() override { return {}; }
    bool IFormUI_IsDirty() override { return m_isDirty; }
    void IFormUI_DoGetFormStatus() override;
    void IFormUI_DoSaveFormStatus() override;
    QVariant IFormUI_Attributes(const QVariant &) override { return {}; }

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    void editingChanged();

protected:
    /// A key that could not be made; the save is given up.
    class KeyFailure : public Failure
    {
        using Failure::Failure;
    };
    /// Where a failed statement of a save is reported.
    struct SaveReport
    {
        QString prefix;
        QString title;
    };

    [[nodiscard]] cTreeView &tv() { return m_tv; }
    [[nodiscard]] static QString rootKey();
    [[nodiscard]] const RecordTable &record() const { return m_dictionary.record; }
    [[nodiscard]] HostDb &db() const { return app().Db(); }
    [[nodiscard]] QString caption() const { return m_dictionary.caption.toString(); }
    void setDirty() { m_isDirty = true; }
    void SetEditMode(bool on);
    /// Empties the screen: no record is shown.
    virtual void clearRecord();
    void refuse(const QString &text) { raiseError(text, Refusal, caption()); }
    void tell(const QString &text, const QString &title);
    /// Gives up a save whose row somebody else has deleted.
    void executeOnRow(const SqlText &sql);
    [[nodiscard]] int nextId(const RecordTable &table);

    // What differs between the dictionaries

    /// Adds what stands below the root. False when it was given up; the failure has been raised.
    virtual bool fillTree() = 0;
    /// Whether the node stands for a record.
    [[nodiscard]] virtual bool isRecord(const Node &node) const = 0;
    [[nodiscard]] virtual SqlText recordStatement(int id) const = 0;
    /// Loads what a record has beside its row.
    virtual void loadParts(int) {}
    /// Refusals by message box, before editing and deleting.
    [[nodiscard]] virtual bool mayEdit() = 0;
    [[nodiscard]] virtual bool mayDelete() = 0;
    [[nodiscard]] virtual std::vector<SqlText> deleteStatements(int id) const = 0;
    /// Required fields after those of all dictionaries.
    [[nodiscard]] virtual std::span<const int> furtherRequired() const { return {}; }
    [[nodiscard]] virtual SaveReport saveReport() const = 0;
    /// Statements of a save before and after that of the row itself.
    virtual void writeBefore() {}
    virtual void writeParts(int /*id*/) {}
    /// Where the node of a new record goes, read before the commit, and its key.
    [[nodiscard]] virtual QString parentKey() = 0;
    [[nodiscard]] virtual QString recordKey(const QString &number) const = 0;
    virtual void saved() {}
    /// The answer to the commit was lost, or it failed: nobody knows whether the save was done.
    virtual void unsettled() {}
    /// The row is there, though nobody heard so.
    [[nodiscard]] bool isWritten(const RecordTable &table, int id);
    /// Sets parameters of the pickers: by default there are none.
    void setParameters(int, ParameterList &) override {}
    bool check(int number, const Check &check) override { return m_fields.lookUps().lookUp(number, check); }

    void raiseError(const QString &message, int level, const QString &title) override;
    /// Runs the body; what it throws is raised after `prefix`. Without a Release, which some operations have
    /// not.
    template<class Body> bool reporting(const QString &prefix, int level, Body body)
    {
        try {
            return body();
        } catch (const std::exception &failure) {
            raiseError(prefix + QString::fromUtf8(failure.what()), level, caption());
        }
        return false;
    }

private:
    void selected(Node *node);
    bool show(const Node &node);
    void makeFields();
    void loadRecord(int id);
    [[nodiscard]] bool isShown(const Node &node);
    /// False when listings use the record, and when that cannot be determined; the refusal has been raised.
    bool isCanDelete();
    /// Nothing when that cannot be determined; the failure has been raised.
    [[nodiscard]] std::optional<bool> isCulterUse();
    [[nodiscard]] bool hasListingColumn(const QString &name);
    bool remove();

    // Saving
    bool isCanSave();
    [[nodiscard]] bool hasText(int number);
    [[nodiscard]] bool isUnique(int number);
    [[nodiscard]] bool isTypedRight();
    bool save();
    bool written(int &id, QString &parent);
    int writeRow();
    void commit(int id);
    [[nodiscard]] QString nodeText() const;
    void showSaved(int id, const QString &parent);
    [[nodiscard]] QString apostropheNote() const;
    void giveUp(const QString &text, const QString &title);
    [[nodiscard]] QString held(const RecordColumn &column) const;

    const Dictionary &m_dictionary;
    cTreeView m_tv;
    TreeView &m_tree;
    SearchBox &m_filter;
    Splitter &m_splitter;
    EditorFields m_fields;
    IdGenerator m_ids;
    int m_currentId = 0;
    int m_triedId = 0; ///< of a new record whose commit failed; the next attempt must not write it twice
    QString m_findText;
    bool m_isDirty = false;
    bool m_isEditing = false;
};

} // namespace ebtq
