#include "archive/session_folder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ebtq::archive {

namespace {

const QString beginning = u"ebtq-session-"_s;
const QString lockName = u".lock"_s;

/// Held until it is closed or the program ends, however it ends; nothing when another session has it.
std::unique_ptr<QFile> lockOf(const QString &folder, QIODevice::OpenMode mode)
{
    auto lock = std::make_unique<QFile>(QDir(folder).filePath(lockName));
    if (!lock->open(QIODevice::ReadWrite | mode) || ::flock(lock->handle(), LOCK_EX | LOCK_NB) != 0)
        return nullptr;
    return lock;
}

/// What the programs of this user hold open; empty where the system does not tell.
QSet<QString> openFiles()
{
    QSet<QString> files;
    QDirIterator processes(u"/proc"_s, QDir::Dirs | QDir::NoDotAndDotDot);
    while (processes.hasNext()) {
        const QDir handles(processes.next() + u"/fd"_s);
        for (const QFileInfo &handle : handles.entryInfoList(QDir::Files | QDir::System))
            files.insert(handle.symLinkTarget());
    }
    return files;
}

/// All but what is open in a program; the next start looks again.
void removeContents(const QString &folder)
{
    const QSet<QString> held = openFiles();
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        if (!held.contains(file) && !file.endsWith(u'/' + lockName))
            QFile::remove(file);
    }
    const auto subfolders =
        QDir(folder).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString &subfolder : subfolders)
        QDir(folder).rmdir(subfolder);
    const auto left =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    if (left == QStringList(lockName) && QFile::remove(QDir(folder).filePath(lockName)))
        QDir().rmdir(folder);
}

/// Only folders of this user's that no living session holds.
void removeStale(const QString &base)
{
    const auto folders =
        QDir(base).entryInfoList({beginning + u'*'}, QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QFileInfo &folder : folders) {
        if (folder.ownerId() != ::geteuid())
            continue;
        if (const auto lock = lockOf(folder.filePath(), QIODevice::ExistingOnly))
            removeContents(folder.filePath());
    }
}

/// Names that are no file's.
QString fileName(const QString &name)
{
    const qsizetype separator = std::max(name.lastIndexOf(u'\\'), name.lastIndexOf(u'/'));
    const QString last = name.mid(separator + 1).remove(QChar(u'\0'));
    const bool isNone = last.isEmpty() || last == u"." || last == u".." || last == lockName;
    return isNone ? u"附件"_s : last;
}

} // namespace

SessionFolder::~SessionFolder()
{
    if (m_path.isEmpty())
        return;
    removeContents(m_path);
}

bool SessionFolder::make()
{
    if (QDir::tempPath().isEmpty()) // of one that is gone, and the working folder is no place for them
        return false;
    removeStale(QDir::tempPath());
    QTemporaryDir folder(QDir::temp().filePath(beginning + u"XXXXXX"_s)); // for nobody else
    if (!folder.isValid())
        return false;
    auto lock = lockOf(folder.path(), QIODevice::NewOnly);
    if (!lock)
        return false;
    folder.setAutoRemove(false);
    m_path = folder.path() + u'/';
    m_lock = std::move(lock);
    m_owners.clear();
    return true;
}

QString SessionFolder::path()
{
    const bool isThere = !m_path.isEmpty() && QFileInfo(m_path).isDir();
    return isThere || make() ? m_path : QString();
}

QString SessionFolder::makeFile(const QString &prefix)
{
    const QString folder = path();
    QTemporaryFile file(folder + prefix + u"XXXXXX"_s);
    file.setAutoRemove(false);
    return !folder.isEmpty() && file.open() ? file.fileName() : QString();
}

QString SessionFolder::pathFor(const QString &name, const QString &owner)
{
    const QString folder = path();
    if (folder.isEmpty())
        return {};
    const QString direct = folder + fileName(name);
    const bool isFree = !m_owners.contains(direct) && !QFileInfo::exists(direct);
    if (isFree)
        m_owners.insert(direct, owner);
    if (m_owners.value(direct) == owner)
        return direct;
    // Named by the system: an owner's name could be a file's.
    QString &own = m_owners[owner + u'\n' + fileName(name)];
    if (!own.isEmpty() && QFileInfo(own).dir().exists())
        return own;
    QTemporaryDir subfolder(folder + u"XXXXXX"_s);
    subfolder.setAutoRemove(false);
    own = subfolder.isValid() ? subfolder.filePath(fileName(name)) : QString();
    return own;
}

} // namespace ebtq::archive
