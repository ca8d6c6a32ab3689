#include "agency.h"
#include "benchmarks.h"
#include "host/users.h"
#include "measure.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QProcess>

namespace ebtq::bench {

namespace {

constexpr int patienceMs = 60'000;

QProcessEnvironment environment(const QString &folder)
{
    QProcessEnvironment values = QProcessEnvironment::systemEnvironment();
    values.insert(QStringLiteral("HOME"), folder);
    for (const char *kind : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        values.remove(QLatin1String(kind));
    values.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("ebtq.start.debug=true"));
    values.insert(QStringLiteral("EBTQ_PASSWORD"), QStringLiteral("demo"));
    return values;
}

/// Starts a program that lies beside this one and ends it when it says that it has painted.
void runUntilPainted(const QString &program, const QStringList &arguments, const QProcessEnvironment &values)
{
    QProcess process;
    process.setProcessEnvironment(values);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setReadChannel(QProcess::StandardError);
    process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments, QProcess::ReadOnly);
    QByteArray said;
    while (!said.contains("painted\n")) {
        if (!process.waitForReadyRead(patienceMs))
            throw std::runtime_error((program.toUtf8() + " paints nothing: " + said).toStdString());
        said += process.readAllStandardError();
    }
    process.kill();
    process.waitForFinished();
}

} // namespace

int startBenchmark(const Options &options)
{
    Agency agency(options);
    const QTemporaryDir home;
    const QProcessEnvironment values = environment(home.path());
    const QStringList arguments = {QStringLiteral("--db"), agency.file(), QStringLiteral("--user"),
                                   QStringLiteral("演示")};
    const auto times = medians(
        {{"empty window", [&] { runUntilPainted(QStringLiteral("empty-window"), {}, values); }},
         {"program", [&] { runUntilPainted(QStringLiteral("ebtq"), arguments, values); }},
         {"password",
          [&] { (void)host::signIn(agency.database(), QStringLiteral("演示"), QStringLiteral("demo")); }}},
        options.rounds);
    print({{QStringLiteral("benchmark"), QStringLiteral("start")},
           {QStringLiteral("rows"), options.rows},
           {QStringLiteral("empty_window_ms"), rounded(times[0])},
           {QStringLiteral("program_ms"), rounded(times[1])},
           {QStringLiteral("password_ms"), rounded(times[2])},
           {QStringLiteral("ratio"), rounded(times[1] / times[0])}});
    return 0;
}

} // namespace ebtq::bench
