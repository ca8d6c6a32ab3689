#include "database/transfer/file_swap.h"

#include "database/connection.h"
#include "database/sqlite/file_state.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

[[noreturn]] void fail(const QString &text, const QString &path)
{
    throw DatabaseError(u"%1：%2（%3）"_s.arg(text, path, systemReason(errno)));
}

QString freeName(const QString &name)
{
    for (int number = 1;; ++number) {
        const QString path = u"%1.%2.unfinished"_s.arg(name).arg(number);
        const int file =
            ::open(QFile::encodeName(path).constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        if (file >= 0) {
            ::close(file);
            return path;
        }
        if (errno != EEXIST)
            fail(u"无法创建文件"_s, path);
    }
}

void flush(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    const bool flushed = file >= 0 && ::fsync(file) == 0;
    const int reason = errno;
    if (file >= 0)
        ::close(file);
    errno = reason;
    if (!flushed)
        fail(u"无法写入磁盘"_s, path);
}

void flushFolderOf(const QString &path)
{
    flush(QFileInfo(path).absolutePath());
}

int renameFile(const QString &from, const QString &to, bool replacing)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (replacing)
        return std::rename(source.constData(), target.constData());
    const int result =
        ::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE);
    // Some memory cards cannot look and rename in one step.
    if (result == 0 || (errno != EINVAL && errno != ENOSYS) || QFile::exists(to))
        return result;
    return std::rename(source.constData(), target.constData());
}

} // namespace

UnfinishedFile::UnfinishedFile(const QString &name)
    : m_name(name)
    , m_path(freeName(name))
{}

UnfinishedFile::~UnfinishedFile()
{
    for (const char *ending : {"", "-journal", "-wal", "-shm"})
        QFile::remove(m_path + QLatin1String(ending));
}

/// Another owner is for root to give. A group is for its members as well; without it people would be locked
/// out, or others let in.
void UnfinishedFile::takeOverAccess(const QString &other)
{
    struct stat old = {};
    const QByteArray target = QFile::encodeName(m_path);
    if (::stat(QFile::encodeName(other).constData(), &old) != 0)
        return;
    if (::chown(target.constData(), old.st_uid, old.st_gid) != 0 &&
        ::chown(target.constData(), static_cast<uid_t>(-1), old.st_gid) != 0)
        fail(u"无法保留文件的属组，请由属主或管理员操作"_s, other);
    if (::chmod(target.constData(), old.st_mode & 07777) != 0)
        fail(u"无法设置文件的权限"_s, m_path);
}

void UnfinishedFile::takeName(bool replacing)
{
    flush(m_path);
    if (renameFile(m_path, m_name, replacing) != 0)
        fail(u"无法写入文件"_s, m_name);
    flushFolderOf(m_name);
}

void keepAside(const QString &name, const QString &aside)
{
    for (const char *ending : {"-wal", "-journal"}) {
        const QString log = name + QLatin1String(ending);
        if (QFile::exists(log) && renameFile(log, aside + QLatin1String(ending), false) != 0)
            fail(u"无法保留原数据库的日志"_s, log);
    }
    QFile::remove(name + u"-shm"_s);
    if (!QFile::exists(name))
        return;
    const bool linked =
        ::link(QFile::encodeName(name).constData(), QFile::encodeName(aside).constData()) == 0;
    if (!linked && (errno == EEXIST || renameFile(name, aside, false) != 0))
        fail(u"无法保留原数据库"_s, aside);
    flushFolderOf(aside);
}

} // namespace ebtq::db
