#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Dialogs that choose a file. They never read the files that they list: a process that opens the database's
/// file and closes it loses the engine's locks on it, and another program may then remove the log with all
/// that is saved from there on.
namespace ebtq::look {

struct FileWish
{
    enum class Kind { Open, Save };
    Kind kind = Kind::Open;
    QString title;
    QString folder;       ///< empty: the current one
    QString name;         ///< proposed
    QStringList filters;  ///< as "text (*.ending)"
    qsizetype filter = 0; ///< of them the one shown
    QString suffix;       ///< for a name typed without one
    bool mustExist = true;
    bool several = false;
    bool asksToOverwrite = true;
    std::optional<bool> readOnly = {}; ///< a box to tick that the file is only read; nothing: no box
};
struct FileChosen
{
    QStringList files; ///< paths; none when cancelled
    qsizetype filter = 0;
    bool readOnly = false;
};
[[nodiscard]] FileChosen chooseFiles(const FileWish &wish);
/// The path of an existing file; empty when cancelled.
[[nodiscard]] QString chooseFileToOpen(const QString &title, const QString &folder, const QString &filter);
/// The path of a file to be written, with the proposed suffix if none was typed; empty when cancelled.
[[nodiscard]] QString chooseFileToSave(const QString &title, const QString &proposedPath,
                                       const QString &filter);

} // namespace ebtq::look
