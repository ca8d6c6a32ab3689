#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

class QObject;

namespace ebtq {

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
    /// The chosen file's path; empty when none was chosen. `filter` as "text (*.ending)".
    virtual QString openDialog(const QString &title, const QString &folder, const QString &filter) = 0;
    virtual QString saveDialog(const QString &title, const QString &proposedPath, const QString &filter) = 0;
    /// Shows a form of the library modally and returns when it was unloaded.
    virtual void showModal(QObject &form) = 0;
    /// Opens a file with the program that the system has for it; false when there is none.
    virtual bool openFile(const QString &path) = 0;
    /// On from the first true to the matching false.
    virtual void setWaitCursor(bool on) = 0;
    [[nodiscard]] virtual QDateTime now() const = 0;
    /// A new empty file in the temporary folder whose name begins with `prefix`; empty when none could be
    /// made.
    virtual QString makeTempFile(const QString &prefix) = 0;
    /// 16 bytes of a new GUID in memory order; empty when the platform gives none.
    virtual QByteArray newGuidBytes() = 0;
};

} // namespace ebtq
