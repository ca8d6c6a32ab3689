#include "library/attachments/whole_file.h"

#include "contracts/host_contracts.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr auto usual = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;

[[noreturn]] void fail(const QString &path, const QString &reason)
{
    throw Failure(u"无法写入文件“%1”：%2"_s.arg(path, reason));
}

/// What a rename would replace without asking is judged first: it needs the right to the folder only.
void requireReplaceable(const QFileInfo &target, Overwrite overwrite)
{
    if (!target.exists())
        return;
    if (overwrite == Overwrite::No)
        fail(target.filePath(), u"文件已存在"_s);
    if (!target.isFile())
        fail(target.filePath(), u"同名的不是文件"_s);
    if (!target.isWritable())
        fail(target.filePath(), u"文件是只读的"_s);
}

/// With link() a file that has come meanwhile is not replaced.
int take(const QByteArray &from, const QByteArray &to, Overwrite overwrite)
{
    return overwrite == Overwrite::Yes ? std::rename(from.constData(), to.constData())
                                       : ::link(from.constData(), to.constData());
}

} // namespace

void writeWholeFile(const QString &path, Overwrite overwrite, const std::function<void(QIODevice &)> &fill)
{
    const QFileInfo target(path);
    requireReplaceable(target, overwrite);
    const QString place = target.exists() ? target.canonicalFilePath() : path;
    QTemporaryFile file(QFileInfo(place).absolutePath() + u"/.ebtq-XXXXXX"_s);
    if (!file.open())
        fail(path, file.errorString());
    fill(file);
    const bool isWritten =
        file.flush() && file.setPermissions(target.exists() ? target.permissions() : usual);
    if (!isWritten)
        fail(path, file.errorString());
    file.close();
    if (take(QFile::encodeName(file.fileName()), QFile::encodeName(place), overwrite) != 0)
        fail(path, QString::fromLocal8Bit(std::strerror(errno)));
    file.setAutoRemove(overwrite == Overwrite::No); // the other name of the link
}

} // namespace ebtq
