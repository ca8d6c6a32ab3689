#include "shell/start/start_draft.h"

#include "contracts/host_contracts.h"
#include "database/schema/installer.h"
#include "database/transfer/backup.h"
#include "database/transfer/fresh_file.h"
#include "host/demo/demo.h"
#include "host/setup.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace ebtq::shell {

namespace {

const QString sampleUser = QStringLiteral("演示");

bool isUrl(const QString &location)
{
    return location.contains(QStringLiteral("://"));
}

void makeFolderOf(const QString &file)
{
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder))
        throw Failure(QStringLiteral("无法建立文件夹“%1”，请检查权限和磁盘空间，或换一个位置！").arg(folder));
}

QString backupBeside(const QString &file, int version)
{
    const QFileInfo info(file);
    return QStringLiteral("%1/%2-升级前-%3-%4.db")
        .arg(info.absolutePath(), info.completeBaseName())
        .arg(version)
        .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
}

void require(const QString &text, const QString &field)
{
    if (text.trimmed().isEmpty())
        throw Failure(QStringLiteral("请输入%1！").arg(field));
}

} // namespace

QString ServerAddress::url() const
{
    require(host, QStringLiteral("服务器"));
    require(base, QStringLiteral("数据库"));
    require(user, QStringLiteral("用户名"));
    QUrl url;
    url.setScheme(QStringLiteral("postgresql"));
    url.setHost(host.trimmed());
    if (url.host().isEmpty())
        throw Failure(QStringLiteral("服务器“%1”不是有效的主机名或地址，请重新输入！").arg(host.trimmed()));
    url.setPort(port);
    url.setUserName(user.trimmed(), QUrl::DecodedMode);
    if (!password.isEmpty())
        url.setPassword(password, QUrl::DecodedMode);
    url.setPath(u'/' + base.trimmed(), QUrl::DecodedMode);
    return url.toString(QUrl::FullyEncoded);
}

ServerAddress ServerAddress::of(const QString &url)
{
    const QUrl read(url);
    return {read.host(), read.port(defaultPort), read.path(QUrl::FullyDecoded).mid(1),
            read.userName(QUrl::FullyDecoded), read.password(QUrl::FullyDecoded)};
}

void StartDraft::chooseNewFile(const QString &path)
{
    require(path, QStringLiteral("数据库文件"));
    const QString file = QFileInfo(path.trimmed()).absoluteFilePath();
    if (isUrl(path) || QFileInfo::exists(file))
        throw Failure(
            QStringLiteral("文件“%1”已存在，请换一个名称，或返回选择“打开已有的数据库文件”！").arg(file));
    m_location = file;
    m_task = Task::MakeAgency;
}

void StartDraft::chooseExisting(const QString &location)
{
    require(location, QStringLiteral("数据库文件"));
    const auto connection = db::Connection::open(location.trimmed());
    const db::Identity found = db::Identity::of(*connection);
    Task task = Task::Open;
    if (found.standing == db::Identity::Empty ||
        (found.standing == db::Identity::Current && !host::hasUsers(*connection)))
        task = Task::MakeAgency;
    else if (found.standing == db::Identity::Older && found.version > 0 && !isUrl(location))
        task = Task::Upgrade;
    else if (found.standing != db::Identity::Current)
        throw Failure(found.obstacle());
    m_task = task;
    m_location = location.trimmed();
    m_backup = task == Task::Upgrade ? backupBeside(m_location, found.version) : QString();
}

void StartDraft::chooseSample(const QString &folder)
{
    const QString file = folder + QStringLiteral("/示例.db");
    if (QFileInfo::exists(file)) {
        chooseExisting(file);
        return;
    }
    m_location = file;
    m_task = Task::MakeSample;
}

QString StartDraft::summary() const
{
    const QString place = db::Connection::shownLocation(m_location);
    switch (m_task) {
    case Task::Open:
        return QStringLiteral("数据库可以使用：\n%1").arg(place);
    case Task::MakeSample:
        return QStringLiteral(
                   "将建立示例机构：\n%1\n\n以用户“%2”、密码 demo 登录。示例中的人和房屋都是虚构的。")
            .arg(place, sampleUser);
    case Task::Upgrade:
        return QStringLiteral("数据库由较早的程序建立，需要升级：\n%1\n\n升级之前先备份并核对：\n%2\n\n"
                              "要退回时关闭程序，用 ebtq-admin restore 恢复这个备份，再使用原来的程序。")
            .arg(place, m_backup);
    case Task::MakeAgency:
        break;
    }
    return QStringLiteral(
               "将建立新机构：\n%1\n\n机构：%2\n首个部门：%3\n管理员：%4\n地区：%5 个\n字典：%6 个")
        .arg(place, agency.name.trimmed().isEmpty() ? QStringLiteral("（未命名）") : agency.name.trimmed(),
             agency.department.trimmed(), agency.administrator.trimmed())
        .arg(agency.districts.size())
        .arg(agency.lists.size());
}

QString StartDraft::userName() const
{
    return makesAgency() ? agency.administrator.trimmed() : way == Way::Sample ? sampleUser : QString();
}

void StartDraft::carryOut(const db::PageProgress &progress)
{
    if (m_task == Task::MakeAgency)
        makeAgency();
    else if (m_task == Task::MakeSample)
        makeSample(progress);
    else if (m_task == Task::Upgrade)
        upgrade(progress);
}

void StartDraft::makeAgency() const
{
    host::requireAgency(agency);
    if (!isUrl(m_location))
        makeFolderOf(m_location);
    db::FreshFile fresh(m_location);
    const auto connection = db::Connection::open(m_location, db::Connection::Missing::IsCreated);
    host::createAgency(*connection, agency);
    fresh.keep();
}

void StartDraft::makeSample(const db::PageProgress &progress) const
{
    makeFolderOf(m_location);
    db::FreshFile fresh(m_location);
    const auto connection = db::Connection::open(m_location, db::Connection::Missing::IsCreated);
    host::writeDemo(*connection, {},
                    [&progress](const QString &, int done, int total) { progress(done, total); });
    fresh.keep();
}

void StartDraft::upgrade(const db::PageProgress &progress) const
{
    (void)db::backUp(m_location, m_backup, false, progress);
    const auto connection = db::Connection::open(m_location);
    (void)host::prepareDatabase(*connection);
    db::updateStatistics(*connection);
}

} // namespace ebtq::shell
