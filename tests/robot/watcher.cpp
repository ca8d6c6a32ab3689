#include "watcher.h"

#include "database/connection.h"
#include "robot.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <iostream>

namespace ebtq::robot {

namespace {

using namespace Qt::StringLiterals;

constexpr int longestSilence = 60'000; // milliseconds without an action
constexpr int shownActions = 50;
const QStringList tables = {u"fyxx"_s,    u"fykh"_s,  u"fygj"_s, u"pubAttach"_s,
                            u"pdmlpzd"_s, u"pdmcq"_s, u"pdmfx"_s};

class Watch
{
public:
    explicit Watch(const Run &run)
        : m_run(run)
    {}

    bool run()
    {
        if (!admin({u"demo"_s, u"--db"_s, m_database, u"--listings"_s, u"300"_s, u"--customers"_s, u"60"_s,
                    u"--follow-ups"_s, u"200"_s}))
            return false;
        const QList<int> before = rowCounts();
        return work() && admin({u"check"_s, u"--db"_s, m_database}) && compare(before);
    }

private:
    bool admin(const QStringList &arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(EBTQ_ADMIN_PROGRAM), arguments);
        process.waitForFinished(-1);
        return process.exitCode() == 0 ||
               found(arguments.first() + u": "_s + QString::fromUtf8(process.readAll()));
    }

    /// Everything that a program may write to lies in the folder; there is no other program to be found.
    [[nodiscard]] QProcessEnvironment environment() const
    {
        QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
        for (const QString &name : {u"HOME"_s, u"TMPDIR"_s, u"XDG_DATA_HOME"_s, u"XDG_CONFIG_HOME"_s,
                                    u"XDG_CACHE_HOME"_s, u"XDG_STATE_HOME"_s, u"XDG_RUNTIME_DIR"_s})
            result.insert(name, m_folder.path());
        result.insert(u"PATH"_s, QString());
        result.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        result.insert(u"EBTQ_PASSWORD"_s, u"demo"_s);
        result.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s); // the end may come in the middle of a dialog
        result.insert(u"MALLOC_PERTURB_"_s,
                      u"165"_s); // what is freed holds nothing that still works by chance
        return result;
    }

    bool work()
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setProcessEnvironment(environment());
        process.setStandardOutputFile(m_output);
        process.setWorkingDirectory(m_folder.path());
        process.start(
            QCoreApplication::applicationFilePath(),
            {u"--child"_s, QString::number(m_run.seed), QString::number(m_run.seconds), m_database, m_log});
        qint64 size = -1;
        while (!process.waitForFinished(longestSilence)) {
            const qint64 now = QFileInfo(m_log).size();
            if (now == size) {
                process.kill();
                process.waitForFinished();
                return found(u"no action for a minute"_s);
            }
            size = now;
        }
        const bool ended = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        return ended || found(u"the program ended with %1"_s.arg(process.exitCode()));
    }

    [[nodiscard]] QList<int> rowCounts() const
    {
        QList<int> result;
        const auto connection = db::Connection::open(m_database);
        for (const QString &table : tables)
            result.append(connection->query(u"select count(*) from "_s + table).value(0, 0).toInt());
        return result;
    }

    bool compare(const QList<int> &before)
    {
        const bool mayBeGone = contents(m_log).contains(QString::fromLatin1(confirmedDeletion));
        const QList<int> after = rowCounts();
        for (qsizetype at = 0; at < tables.size(); ++at) {
            if (after[at] < before[at] && !mayBeGone)
                return found(u"%1 has lost %2 rows"_s.arg(tables[at]).arg(before[at] - after[at]));
        }
        return true;
    }

    bool found(const QString &what)
    {
        const QStringList actions = contents(m_log).split(u'\n', Qt::SkipEmptyParts);
        std::cerr
            << "seed " << m_run.seed << ": " << what.toStdString() << "\nafter " << actions.size()
            << " actions, the last:\n"
            << actions.mid(std::max<qsizetype>(0, actions.size() - shownActions)).join(u'\n').toStdString()
            << "\n\n"
            << contents(m_output).right(6000).toStdString() << '\n';
        return false;
    }

    [[nodiscard]] static QString contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    Run m_run;
    QTemporaryDir m_folder;
    QString m_database = m_folder.filePath(u"robot.db"_s);
    QString m_log = m_folder.filePath(u"actions.txt"_s);
    QString m_output = m_folder.filePath(u"output.txt"_s);
};

} // namespace

bool watch(const Run &run)
{
    return Watch(run).run();
}

} // namespace ebtq::robot
