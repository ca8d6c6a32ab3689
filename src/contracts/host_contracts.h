#pragma once

#include "contracts/parameter_list.h"
#include "database/values/row_block.h"
#include "database/values/sql_text.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>
#include <stdexcept>

/// What a module asks of its host, and the contracts through which a host drives a module. The host
/// implements the Host... classes; operations stand in the order of the host's interface and keep its names.
/// References and pointers that the host gives out stay good until the next call of the same operation; a
/// module fetches them afresh for each use and keeps only the HostApp. All calls are made on the
/// user-interface thread.
class QIODevice;

namespace ebtq {

class ControlCollection;

/// Thrown by host objects and by the library's own code for a failure that is no failed statement; what() is
/// a text for the user, in UTF-8. Each public operation of a module traps it once.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const QString &text)
        : std::runtime_error(text.toStdString())
    {}
};

/// State of the last statement: empty when it succeeded, else a text fit to be shown.
struct HostDbError
{
    QString Description;
};

/// State of the last host operation that can fail, such as NewBillCode.
struct HostErrorInfo
{
    QString Description;
};

struct HostParameter
{
    QString Text;
};

/// Levels of the event ErrMessage.
enum MessageLevel : int {
    Refusal = 2,     ///< the user can correct it: a missing or duplicate entry, a record in use
    FailureLevel = 8 ///< of the database or of the code
};

/// Rights that a user may have on a module.
enum UserRight : int { RightNew = 2, RightDelete = 7, RightEdit = 8 };

/// One field of the current row.
struct Field
{
    QVariant Value; ///< invalid for Null
};

/// Forward-only rows of one statement; lives for one operation. What is below AddNew throws Failure when it
/// cannot be done, with nothing written; a host that keeps no files need not have it.
class Recordset
{
public:
    virtual ~Recordset() = default;
    [[nodiscard]] virtual int RecordCount() const = 0;
    /// Behind the last and before the first row: both true when there are no rows.
    [[nodiscard]] virtual bool Eof() const = 0;
    [[nodiscard]] virtual bool Bof() const = 0;
    virtual void MoveNext() = 0;
    /// A field of the current row by its name without regard to case. Throws Failure for an unknown name and
    /// when there is no current row.
    [[nodiscard]] virtual Field Fields(const QString &name) const = 0;
    /// Hands all rows out, as they are; the recordset is at its end afterwards.
    [[nodiscard]] virtual RowBlock GetRows() = 0;
    virtual void Close() = 0;

    /// Begins a new row of the table that the statement reads. It is written by Update, and is then the
    /// current row, with the key that the database has given it.
    virtual void AddNew() { throw Failure(QStringLiteral("此数据不能新增！")); }
    /// Of the new row; an invalid value is Null.
    virtual void SetField(const QString & /*name*/, const QVariant & /*value*/) { AddNew(); }
    /// The same for a binary field, with what the file holds when Update is called.
    virtual void SetFieldFromFile(const QString & /*name*/, const QString & /*path*/) { AddNew(); }
    virtual void Update() { AddNew(); }
    /// Writes the bytes of a binary field of the current row to an open device, nothing for Null. What
    /// was written before a failure is of no use.
    virtual void WriteField(const QString & /*name*/, QIODevice & /*to*/) { AddNew(); }
};

/// One prepared statement. None of the three throws for a failed statement: look at HostDb::LastError.
class HostQuery
{
public:
    virtual ~HostQuery() = default;
    virtual void Execute(const QVariant &unused = {}) = 0;
    /// First field of the first row; invalid (Null) when there is no row.
    [[nodiscard]] virtual QVariant Scalar(const QVariant &unused = {}) = 0;
    /// Never null; without rows when the statement failed.
    [[nodiscard]] virtual std::unique_ptr<Recordset> Open(const QVariant &unused = {}) = 0;
    /// How many rows the last Execute has changed; nothing where the host does not know.
    [[nodiscard]] virtual std::optional<qint64> RowsChanged() const { return std::nullopt; }
};

class HostDb
{
public:
    virtual ~HostDb() = default;
    [[nodiscard]] virtual std::unique_ptr<HostQuery> CreateQuery(const SqlText &sql, int mode = 1) = 0;
    /// The last act of every operation that used the database, after errors too: rolls back what a
    /// transaction left open.
    virtual bool Release() = 0;
    /// Joins a transaction that is open: only the outermost CommitTrans writes. Both throw Failure when it
    /// cannot be done, since whoever went on would save one half without the other.
    virtual void BeginTrans() = 0;
    virtual void CommitTrans() = 0;
    /// Undoes the whole transaction; nothing when none is open.
    virtual void RollbackTrans() = 0;
    [[nodiscard]] virtual HostDbError LastError() const = 0;
    /// True when nothing can be saved: whatever writes is then switched off. The rights say so as well.
    [[nodiscard]] virtual bool ReadOnly() const { return false; }
    /// Another number each time the connection to a server was lost and made again: what was confirmed last
    /// without waiting for the disk, such as the number of a document, may be gone with the server.
    [[nodiscard]] virtual int ConnectionNumber() const { return 0; }
};

class HostSession
{
public:
    virtual ~HostSession() = default;
    [[nodiscard]] virtual QString UserName() const = 0;
    /// The user's id in braces; columns named 用户ID hold it without them.
    [[nodiscard]] virtual QString UserID() const = 0;
    /// The working folder, without a slash at its end.
    [[nodiscard]] virtual QString AppPath() const = 0;
    /// The business date: date of documents and today of the reminders.
    [[nodiscard]] virtual QDate LoginDate() const = 0;
};

class HostRights
{
public:
    virtual ~HostRights() = default;
    [[nodiscard]] virtual bool Allowed(int right) const = 0;
};

class HostPrintEnv
{
public:
    virtual ~HostPrintEnv() = default;
    /// The host's print engine; nullptr when this host cannot print.
    [[nodiscard]] virtual QObject *PrintContext() = 0;
    /// The folder below which print settings are kept.
    [[nodiscard]] virtual QString PrintFolder() const = 0;
};

/// The row that a picker gives back; each picker has its own kind. A host that does not know the kind reads
/// its fields as properties, by their names.
class PickedRow : public QObject
{};

class HostPicker
{
public:
    virtual ~HostPicker() = default;
    [[nodiscard]] virtual ParameterList &Parameters() = 0;
    /// Opens the picker at a screen position in pixels and returns when it closes. With a choice the result
    /// is true and both values hold it; otherwise they are as they were.
    virtual bool Show(int left, int top, QString &text, QVariant &value, int flag = 0,
                      const QString &unused = {}) = 0;
    [[nodiscard]] virtual std::shared_ptr<const PickedRow> Objects() const = 0;
    /// Looks a typed text up without showing the list; both values are empty when nothing matches.
    virtual bool Validate(const QString &unused, const QString &valueField, const QString &textField,
                          const QString &typedText, QVariant &value, QString &text) = 0;
    [[nodiscard]] virtual bool Ready(int flag = 0) const = 0;
};

class HostFormStyler
{
public:
    virtual ~HostFormStyler() = default;
    virtual void Apply(QObject &form) = 0;
};

class HostApp
{
public:
    virtual ~HostApp() = default;
    [[nodiscard]] virtual HostDb &Db() = 0;
    [[nodiscard]] virtual HostPrintEnv &PrintEnv() = 0;
    [[nodiscard]] virtual HostErrorInfo LastError() const = 0;
    /// Rights and both kinds of parameters are read from the database; when it fails, the three throw an
    /// exception derived from std::exception whose what() is a text for the user.
    [[nodiscard]] virtual std::unique_ptr<HostRights> Rights(int moduleId) = 0;
    [[nodiscard]] virtual HostParameter SystemParameter(int group, const QVariant &key) = 0;
    [[nodiscard]] virtual HostParameter UserParameter(int group, const QVariant &key) = 0;
    /// Shows the help list of `key` for a field. The three values are those of the field's generic help
    /// event: the field as QObject*, then left and top of the list on the screen in pixels. With a choice the
    /// field's properties Value and Text hold it and the result is true.
    virtual bool ShowHelp(const QString &key, const QVariant &field, const QVariant &left,
                          const QVariant &top, int flag = -1) = 0;
    /// Checks a typed text. The three strings are those of the field's check event: `base`, a statement with
    /// "@" for the text, an inline list "|text;value|..." or "date"; then the result columns that give value
    /// and text. Both stay empty when nothing matches. False when the check itself failed; LastError says
    /// why.
    virtual bool JudgeText(const QString &base, const QString &valueField, const QString &textField,
                           const QString &typedText, QVariant &value, QString &text) = 0;
    /// The document number of a module's records: with `take` true the number that comes next, for an empty
    /// form; with false a number given out once and for all. False on failure; LastError says why.
    virtual bool NewBillCode(int moduleId, const QDate &date, QString &code, bool take) = 0;
    [[nodiscard]] virtual HostSession &Session() = 0;
    /// A picker by name without regard to case; one that is never ready when there is none of that name.
    [[nodiscard]] virtual HostPicker &Picker(const QString &name) = 0;
    [[nodiscard]] virtual HostFormStyler &FormStyler() = 0;
};

/// A data-entry module. See the module for what an operation does; where it has nothing to do it gives false.
class IFormUI
{
public:
    virtual ~IFormUI() = default;
    virtual bool IFormUI_Init(HostApp &app, int unused1, int unused2) = 0;
    virtual bool IFormUI_Clear() = 0;
    virtual bool IFormUI_FileNew() = 0;
    virtual bool IFormUI_FileNewNext() = 0;
    virtual bool IFormUI_FileEdit() = 0;
    virtual bool IFormUI_FileDelete() = 0;
    virtual bool IFormUI_FileSave() = 0;
    virtual bool IFormUI_FileCancel() = 0;
    virtual bool IFormUI_Find(const QVariant &condition) = 0;
    virtual bool IFormUI_FindNext() = 0;
    virtual bool IFormUI_Filter(const QVariant &condition) = 0;
    virtual bool IFormUI_Refresh() = 0;
    virtual bool IFormUI_RecordTop() = 0;
    virtual bool IFormUI_RecordPrevious() = 0;
    virtual bool IFormUI_RecordNext() = 0;
    virtual bool IFormUI_RecordBottom() = 0;
    virtual bool IFormUI_Check() = 0;
    virtual bool IFormUI_UnCheck() = 0;
    virtual bool IFormUI_PrintPreview() = 0;
    virtual bool IFormUI_DoPrint() = 0;
    virtual bool IFormUI_PrintSetup() = 0;
    virtual bool IFormUI_Help() = 0;
    virtual bool IFormUI_DoSetStatus(const QString &status, const QVariant &further) = 0;
    virtual int IFormUI_GetID() = 0;
    virtual bool IFormUI_CheckStatus(const QString &status) = 0;
    virtual QString IFormUI_ReturnPrintName() = 0;
    virtual bool IFormUI_IsDirty() = 0;
    virtual void IFormUI_DoGetFormStatus() = 0;
    virtual void IFormUI_DoSaveFormStatus() = 0;
    virtual QVariant IFormUI_Attributes(const QVariant &key) = 0;
};

/// A list module.
class IReportUI
{
public:
    virtual ~IReportUI() = default;
    virtual bool IReportUI_Init(HostApp &app, int moduleId) = 0;
    virtual bool IReportUI_Clear() = 0;
    virtual bool IReportUI_Find(const QVariant &condition) = 0;
    virtual bool IReportUI_FindNext() = 0;
    virtual bool IReportUI_Filter(const QVariant &condition) = 0;
    virtual bool IReportUI_Refresh() = 0;
    virtual bool IReportUI_RecordTop() = 0;
    virtual bool IReportUI_RecordPrevious() = 0;
    virtual bool IReportUI_RecordNext() = 0;
    virtual bool IReportUI_RecordBottom() = 0;
    virtual bool IReportUI_PrintPreview() = 0;
    virtual bool IReportUI_DoPrint() = 0;
    virtual bool IReportUI_PrintSetup() = 0;
    virtual bool IReportUI_Help() = 0;
    virtual QString IReportUI_ReturnPrintName() = 0;
    virtual void IReportUI_DoGetFormStatus(const QString &file) = 0;
    virtual void IReportUI_DoSaveFormStatus(const QString &file) = 0;
    virtual QVariant IReportUI_Attributes(const QVariant &key) = 0;
    /// The module's main grid; owned by the module.
    virtual QObject *IReportUI_oTable() = 0;
    virtual QVariant IReportUI_Parameters() = 0;
    virtual void IReportUI_Parameters(const ParameterList *parameters) = 0;
};

/// A picker.
class IPickerUI
{
public:
    virtual ~IPickerUI() = default;
    virtual bool IPickerUI_Init(HostApp &app, int unused, const QString &name) = 0;
    virtual void IPickerUI_Clear() = 0;
    virtual bool IPickerUI_Refresh() = 0;
    virtual bool IPickerUI_IsDirty() = 0;
    virtual void IPickerUI_IsDirty(bool dirty) = 0;
    virtual void IPickerUI_DoGetFormStatus() = 0;
    virtual void IPickerUI_DoSaveFormStatus() = 0;
    virtual QVariant IPickerUI_Attributes(const QString &name) = 0;
    virtual ParameterList &IPickerUI_Parameters() = 0;
    virtual void IPickerUI_Parameters(const ParameterList &list) = 0;
    virtual QVariant IPickerUI_Value() = 0;
    virtual void IPickerUI_Value(const QVariant &value) = 0;
    virtual QString IPickerUI_Text() = 0;
    virtual void IPickerUI_Text(const QString &text) = 0;
    virtual std::shared_ptr<const PickedRow> IPickerUI_Objects() = 0;
    virtual bool IPickerUI_Validate(const QString &unused, const QString &valueField,
                                    const QString &textField, const QString &typedText, QVariant &value,
                                    QString &text) = 0;
};

/// What the host's designer uses, on every module.
class IDesignUI
{
public:
    virtual ~IDesignUI() = default;
    virtual ControlCollection &IDesignUI_Controls() = 0;
    virtual QVariant IDesignUI_Parameters() = 0;
    /// Only the key "backcolor" is read; nullptr does nothing.
    virtual void IDesignUI_Parameters(DesignParameters *parameters) = 0;
};

} // namespace ebtq

Q_DECLARE_INTERFACE(ebtq::IFormUI, "EBTQ_S.IFormUI")
Q_DECLARE_INTERFACE(ebtq::IReportUI, "EBTQ_S.IReportUI")
Q_DECLARE_INTERFACE(ebtq::IPickerUI, "EBTQ_S.IPickerUI")
Q_DECLARE_INTERFACE(ebtq::IDesignUI, "EBTQ_S.IDesignUI")
