#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QIODevice;
class QObject;

namespace ebtq {

/// What a dialog for files is asked and what it gives back.
struct FileDialog
{
    enum Flag : unsigned {
        ReadOnly = 1, ///< ticked: the file is to be opened for reading only
        OverwritePrompt = 2,
        HideReadOnly = 4,
        MultiSelect = 0x200,
        ExtensionDiffers = 0x400, ///< given back: the chosen file has not the default extension
        FileMustExist = 0x1000
    };
    QString file;      ///< proposed; then the chosen path. Of several the folder, then their names, separated
                       ///< by null characters
    QString fileTitle; ///< given back: the file's name without its folder
    QString filter;    ///< name and pattern in turn, separated by null characters
    int filterIndex = 1; ///< of the pair that is shown; then of the chosen one
    QString initialDir;
    QString title;
    QString defaultExt; ///< without a dot, for a name typed without one
    unsigned flags = 0; ///< of Flag
};

struct MenuItem
{
    QString key;
    QString text;
    bool isEnabled = true;
};

/// The person and the machine around a module, handed in and never static: what a module shows, asks and
/// takes from outside the database. The screens implement it on Qt; tests script it.
class Desktop
{
public:
    enum class Icon { Information, Question, Exclamation, Critical };
    enum class Buttons { Ok, YesNo };
    enum class Answer { Ok, Yes, No };

    virtual ~Desktop() = default;

    /// A message box; returns when it was answered. Closing it answers Ok or No.
    virtual Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons) = 0;
    /// A question with the given answers: the number of the chosen one, counted from 0; nothing when the box
    /// was closed without an answer. Captions may have a mnemonic.
    virtual std::optional<int> choose(const QString &text, const QString &title,
                                      const QStringList &answers) = 0;
    /// Nothing when the box was left without an answer.
    virtual std::optional<QString> inputBox(const QString &prompt, const QString &title,
                                            const QString &preset) = 0;
    /// Both give false when nothing was chosen; the record is then as it was.
    virtual bool openDialog(FileDialog &dialog) = 0;
    virtual bool saveDialog(FileDialog &dialog) = 0;
    /// A menu at the mouse pointer: the key of the chosen item; empty when it was left without a choice.
    virtual QString popUpMenu(const QList<MenuItem> &items) = 0;
    /// Shows a form of the library modally and returns when it was unloaded.
    virtual void showModal(QObject &form) = 0;
    /// Lets the system do `verb` ("open") with a file: 33 or more when it has begun, otherwise one of the
    /// results that ShellOpen names. A file that is opened without parameters and folder goes to the program
    /// of its type, otherwise it is the program that is run.
    virtual int shellExecute(const QString &verb, const QString &file, const QString &parameters,
                             const QString &folder, int showCmd) = 0;
    /// On from the first true to the matching false.
    virtual void setWaitCursor(bool on) = 0;
    [[nodiscard]] virtual QDateTime now() const = 0;
    /// The session's private temporary folder with a slash at its end; empty when there is none.
    virtual QString tempFolder() = 0;
    /// Where a file of this name can lie in the temporary folder: directly there or, when another owner (a
    /// row's key) has the name already, in a folder of its own, which exists. Only the last part of the name
    /// counts. Empty when there is no temporary folder.
    virtual QString tempPath(const QString &name, const QString &owner) = 0;
    /// A new empty file in the temporary folder whose name begins with `prefix`; empty when none could be
    /// made.
    virtual QString makeTempFile(const QString &prefix) = 0;
    /// Writes the archive that holds one file, under the last part of its name. False when it cannot be done;
    /// `archive` is then of no use.
    virtual bool pack(const QString &file, const QString &archive) = 0;
    /// Writes the one file of an archive to an open device. `size` is the size that it must have. Throws an
    /// exception derived from std::exception with a text for the user; what was written is then of no use.
    virtual void unpack(const QString &archive, QIODevice &to, qint64 size) = 0;
    /// 16 bytes of a new GUID in memory order; empty when the platform gives none.
    virtual QByteArray newGuidBytes() = 0;
};

} // namespace ebtq
