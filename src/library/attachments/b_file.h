#pragma once

#include <QString>

namespace ebtq {

/// Parts of a path, which is separated by "\" and "/". None of them touches the disk.

/// The text after the last separator; the whole path when there is none.
[[nodiscard]] QString FileNameOfPath(const QString &path);
/// The text after the last dot, but for one at the end; the whole path when there is none.
[[nodiscard]] QString ExtensionOfPath(const QString &path, bool lowerCase);
/// The text before the last separator; the whole path when there is none. Without the drive the first three
/// characters are dropped first.
[[nodiscard]] QString FolderOfPath(const QString &path, bool withDrive);

/// With 16 in the attributes whether there is such a folder, otherwise whether there is such a file.
[[nodiscard]] bool FileExists(const QString &path, int attributes);

} // namespace ebtq
