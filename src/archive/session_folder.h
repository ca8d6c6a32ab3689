#pragma once

#include <QFile>
#include <QHash>
#include <QString>

#include <memory>

namespace ebtq::archive {

/// The private temporary folder of a session, made when it is first needed and again when somebody has
/// removed it. It goes with this object, but for files that are still open in a program; what earlier
/// sessions have left is removed when the folder is made.
class SessionFolder
{
public:
    SessionFolder() = default;
    SessionFolder(const SessionFolder &) = delete;
    SessionFolder &operator=(const SessionFolder &) = delete;
    ~SessionFolder();

    /// With a slash at its end; empty when none can be made.
    [[nodiscard]] QString path();
    /// A new empty file whose name begins with `prefix`; empty when none can be made.
    [[nodiscard]] QString makeFile(const QString &prefix);
    /// Where a file of this name, of which the last part counts, can lie: the owner's from now on. The same
    /// owner gets the same path. Empty when there is no folder.
    [[nodiscard]] QString pathFor(const QString &name, const QString &owner);

private:
    [[nodiscard]] bool make();

    QString m_path;
    std::unique_ptr<QFile> m_lock; ///< tells other sessions that this one is alive
    QHash<QString, QString> m_owners;  ///< by path
};

} // namespace ebtq::archive
