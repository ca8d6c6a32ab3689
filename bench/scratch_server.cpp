#include "scratch_server.h"

#include "database/connection.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <iostream>

namespace ebtq::bench {

MeasuredServer::MeasuredServer(const QString &url)
    : m_url(url)
    , m_isOwn(url.isEmpty())
{
    if (m_isOwn)
        start();
}

MeasuredServer::~MeasuredServer()
{
    try {
        if (m_isOwn)
            runScript(QStringLiteral("stop"));
    } catch (const std::exception &failure) {
        std::cerr << failure.what() << '\n';
    }
}

/// The tests' server need not reach the disk; a measured one must.
void MeasuredServer::start()
{
    runScript(QStringLiteral("start"));
    QFile file(m_folder.filePath(QStringLiteral("server/url")));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the server was started, but told no URL");
    m_url = QString::fromUtf8(file.readAll()).trimmed();
    const auto connection = db::Connection::open(m_url);
    connection->executeNative("alter system set fsync=on");
    connection->executeNative("select pg_reload_conf()");
}

void MeasuredServer::runScript(const QString &action) const
{
    QProcess script;
    // What outlives the script, the server, must not hold a pipe of ours open.
    script.setStandardOutputFile(QProcess::nullDevice());
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.start(QStringLiteral(EBTQ_POSTGRES_SCRIPT), {action, m_folder.filePath(QStringLiteral("server"))});
    if (!script.waitForFinished(-1) || script.exitCode() != 0)
        throw std::runtime_error("no server of its own could be started: is PostgreSQL installed? "
                                 "Else name one: --db postgresql://user@host/base");
}

ScratchBase::ScratchBase(const QString &server)
    : m_server(server)
{
    static int count = 0;
    m_name = QStringLiteral("ebtq_bench_%1_%2").arg(QCoreApplication::applicationPid()).arg(++count);
    db::Connection::open(server)->executeNative("create database " + m_name.toLatin1() +
                                                " template template0 encoding 'UTF8' locale 'C.UTF-8'");
    const QString options = server.section(u'?', 1);
    m_url = server.section(u'?', 0, 0).section(u'/', 0, 2) + u'/' + m_name +
            (options.isEmpty() ? QString() : u'?' + options);
}

ScratchBase::~ScratchBase()
{
    try {
        db::Connection::open(m_server)->executeNative("drop database " + m_name.toLatin1() + " with (force)");
    } catch (const std::exception &failure) {
        std::cerr << "the base " << qPrintable(m_name) << " could not be removed: " << failure.what() << '\n';
    }
}

} // namespace ebtq::bench
