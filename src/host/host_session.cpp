#include "host/host_session.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

QString madeFolder(const QString &path)
{
    if (!QDir().mkpath(path))
        throw Failure(u"无法创建文件夹“%1”，请检查磁盘空间和权限！"_s.arg(path));
    return path;
}

QString withoutSlashAtEnd(QString path)
{
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

} // namespace

UserSession::UserSession(User user, Settings settings)
    : m_user(std::move(user))
    , m_settings(std::move(settings))
{
    m_settings.appPath = madeFolder(withoutSlashAtEnd(m_settings.appPath));
}

QString UserSession::UserID() const
{
    return u"{%1}"_s.arg(m_user.id);
}

} // namespace ebtq::host
