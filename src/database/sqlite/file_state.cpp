#include "database/sqlite/file_state.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <sys/statvfs.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

void distrust(sqlite3 *handle)
{
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
}

FileIdentity FileIdentity::of(const QString &path)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0)
        return {};
    return {found.st_dev, found.st_ino};
}

bool isOnReadOnlyMount(const QString &path)
{
    struct statvfs mount = {};
    return ::statvfs(QFile::encodeName(path).constData(), &mount) == 0 && (mount.f_flag & ST_RDONLY) != 0;
}

QString folderObstacle(const QString &database)
{
    const QString folder = QFileInfo(database).absolutePath();
    if (!QFileInfo(folder).isDir())
        return u"文件夹不存在：%1"_s.arg(folder);
    if (!QFileInfo(folder).isWritable())
        return u"文件夹不可写：%1，数据库的日志要放在其中，请由管理员授予该文件夹的写权限！"_s.arg(folder);
    return {};
}

bool isDiskFull(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

QString systemReason(int error)
{
    if (isDiskFull(error))
        return u"磁盘空间不足"_s;
    switch (error) {
    case EACCES:
    case EPERM:
        return u"没有权限"_s;
    case EROFS:
        return u"磁盘是只读的"_s;
    case ENOENT:
    case ENOTDIR:
        return u"文件夹不存在"_s;
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

} // namespace ebtq::db
