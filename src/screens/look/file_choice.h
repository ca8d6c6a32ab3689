#pragma once

#include <QString>

/// Dialogs that choose a file. They never read the files that they list: a process that opens the database's
/// file and closes it loses the engine's locks on it, and another program may then remove the log with all
/// that is saved from there on.
namespace ebtq::look {

/// The path of an existing file; empty when cancelled.
[[nodiscard]] QString chooseFileToOpen(const QString &title, const QString &folder, const QString &filter);
/// The path of a file to be written, with the proposed suffix if none was typed; empty when cancelled.
[[nodiscard]] QString chooseFileToSave(const QString &title, const QString &proposedPath,
                                       const QString &filter);

} // namespace ebtq::look
