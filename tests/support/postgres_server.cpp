#include "support/postgres_server.h"

#include <QFile>
#include <QProcess>

#include <stdexcept>

namespace ebtq::test {

PostgresServer::PostgresServer(Wire wire)
    : PostgresServer(NotStarted{}) // so that one that failed half-way is cleared away
{
    script({QStringLiteral("start"), wire == Wire::Encrypted ? QStringLiteral("tls") : QString()});
    readUrl();
}

PostgresServer::PostgresServer(StandbyOf of)
    : PostgresServer(NotStarted{})
{
    script({QStringLiteral("standby"), of.primary.m_server});
    readUrl();
}

PostgresServer::~PostgresServer()
{
    QProcess::execute(QStringLiteral(EBTQ_POSTGRES_SCRIPT), {QStringLiteral("stop"), m_server});
}

void PostgresServer::script(QStringList arguments) const
{
    arguments.insert(1, m_server);
    if (QProcess::execute(QStringLiteral(EBTQ_POSTGRES_SCRIPT), arguments) != 0)
        throw std::runtime_error("the test server failed: " + arguments.constFirst().toStdString());
}

void PostgresServer::readUrl()
{
    QFile opened(file(QStringLiteral("url")));
    if (!opened.open(QIODevice::ReadOnly))
        throw std::runtime_error("the test server has no URL");
    m_url = QString::fromUtf8(opened.readAll()).trimmed();
}

} // namespace ebtq::test
