#include "support/postgres_base.h"

#include <QFile>

#include <unistd.h>

namespace ebtq::test {

QString postgresServer()
{
    QFile file(QStringLiteral(EBTQ_POSTGRES_FOLDER "/url"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no test server: run this by ctest, which starts one");
    return QString::fromUtf8(file.readAll()).trimmed();
}

QString withBase(const QString &url, const QString &base)
{
    return url.section(u'/', 0, -2) + u'/' + base;
}

PostgresBase::PostgresBase()
{
    static int count = 0;
    m_name = u"t%1_%2"_qs.arg(getpid()).arg(++count);
    db::Connection::open(postgresServer())->executeNative("create database " + m_name.toLatin1());
}

PostgresBase::~PostgresBase()
{
    db::Connection::open(postgresServer())
        ->executeNative("drop database " + m_name.toLatin1() + " with (force)");
}

QString PostgresBase::url() const
{
    return withBase(postgresServer(), m_name);
}

} // namespace ebtq::test
