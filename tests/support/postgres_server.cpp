#include "support/postgres_server.h"

#include <QFile>
#include <QProcess>

#include <stdexcept>

namespace ebtq::test {

PostgresServer::PostgresServer(Wire wire)
    : PostgresServer(NotStarted{}) // so that one that failed half-way is cleared away
{
    script({u"start"_qs, wire == Wire::Encrypted ? u"tls"_qs : QString()});
    readUrl();
}

PostgresServer::PostgresServer(StandbyOf of)
    : PostgresServer(NotStarted{})
{
    script({u"standby"_qs, of.primary.m_server});
    readUrl();
}

PostgresServer::~PostgresServer()
{
    QProcess::execute(QStringLiteral(EBTQ_POSTGRES_SCRIPT), {u"stop"_qs, m_server});
}

void PostgresServer::script(QStringList arguments) const
{
    arguments.insert(1, m_server);
    if (QProcess::execute(QStringLiteral(EBTQ_POSTGRES_SCRIPT), arguments) != 0)
        throw std::runtime_error("the test server failed: " + arguments.constFirst().toStdString());
}

void PostgresServer::readUrl()
{
    QFile opened(file(u"url"_qs));
    if (!opened.open(QIODevice::ReadOnly))
        throw std::runtime_error("the test server has no URL");
    m_url = QString::fromUtf8(opened.readAll()).trimmed();
}

} // namespace ebtq::test
