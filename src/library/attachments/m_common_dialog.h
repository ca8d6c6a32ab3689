#pragma once

#include "library/frame/desktop.h"

namespace ebtq {

/// What is asked of the dialogs for files and what they give back, all in one record.
struct CommonDialog
{
    QString file;      ///< of several the folder, then their names, separated by null characters
    QString fileTitle; ///< the file's name without its folder
    bool mustExist = true;
    bool multiSelect = false;
    bool readOnly = false;
    bool hideReadOnly = true;
    bool overwritePrompt = true;
    QString filter; ///< "name|pattern|name|pattern", then the chosen pattern; ":" separates too
    int filterIndex = 1;
    QString initialDir;
    QString title;
    QString defaultExt;
    unsigned flags = 0; ///< FileDialog::Flag
};

/// True when a file was chosen; otherwise file, title and filter are empty, flags 0 and filterIndex -1 after
/// the first, 0 after the second.
[[nodiscard]] bool ShowOpenDialog(Desktop &desktop, CommonDialog &dialog);
[[nodiscard]] bool ShowSaveDialog(Desktop &desktop, CommonDialog &dialog);

/// The second of the pair `index`, counted from 1, in a text of pairs separated by null characters.
[[nodiscard]] QString FilterAtIndex(const QString &filter, int index);

/// The text before the last separator of a path; the whole path when there is none.
[[nodiscard]] QString ParentOfPath(const QString &path);

} // namespace ebtq
