#include "pgbench.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>

#include <stdexcept>

namespace ebtq::bench {

namespace {

/// A million rows.
constexpr int scale = 10;

/// Debian keeps it out of the path.
QString program()
{
    const QString name = QStringLiteral("pgbench");
    if (const QString found = QStandardPaths::findExecutable(name); !found.isEmpty())
        return found;
    const QDir servers(QStringLiteral("/usr/lib/postgresql"));
    const QStringList versions =
        servers.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed);
    for (const QString &version : versions) {
        const QString path = servers.filePath(version + QStringLiteral("/bin/") + name);
        if (QFile::exists(path))
            return path;
    }
    throw std::runtime_error("pgbench is not installed; it comes with PostgreSQL's server package");
}

/// What it prints. The URL goes by the environment: a password in it is not to show among the processes.
QString run(const QString &base, const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PGDATABASE"), base);
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program(), arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        throw std::runtime_error("pgbench: " + process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

double simpleUpdateRate(const QString &base, int clients, int seconds)
{
    run(base, {QStringLiteral("-i"), QStringLiteral("-q"), QStringLiteral("-s"), QString::number(scale)});
    const QString threads = QString::number(qMin(clients, QThread::idealThreadCount()));
    const QString told =
        run(base, {QStringLiteral("-N"), QStringLiteral("-n"), QStringLiteral("-c"), QString::number(clients),
                   QStringLiteral("-j"), threads, QStringLiteral("-T"), QString::number(seconds)});
    static const QRegularExpression rate(QStringLiteral("^tps = ([0-9.]+)"),
                                         QRegularExpression::MultilineOption);
    const double perSecond = rate.match(told).captured(1).toDouble();
    if (perSecond <= 0)
        throw std::runtime_error("pgbench told no rate: " + told.toStdString());
    return perSecond;
}

} // namespace ebtq::bench
