#include "library/attachments/b_file.h"

#include <QFileInfo>

namespace ebtq {

namespace {

constexpr int folderAttribute = 16;
constexpr int driveLength = 3;

qsizetype lastSeparator(const QString &path)
{
    return std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
}

} // namespace

QString FileNameOfPath(const QString &path)
{
    return path.mid(lastSeparator(path) + 1);
}

QString ExtensionOfPath(const QString &path, bool lowerCase)
{
    const QString extension = path.mid(path.chopped(path.isEmpty() ? 0 : 1).lastIndexOf(u'.') + 1);
    return lowerCase ? extension.toLower() : extension;
}

QString FolderOfPath(const QString &path, bool withDrive)
{
    const QString whole = withDrive ? path : path.mid(driveLength);
    return whole.left(lastSeparator(whole)); // of -1 the whole
}

bool FileExists(const QString &path, int attributes)
{
    const QFileInfo found(path);
    return !path.isEmpty() && ((attributes & folderAttribute) != 0 ? found.isDir() : found.isFile());
}

} // namespace ebtq
