#pragma once

#include <QString>

namespace ebtq::db {

/// A file in the making beside the name that it will have, ".unfinished" behind it: deleted with its journals
/// at the end of the scope unless it got its name. One that a kill left behind is never taken for a whole
/// one.
class UnfinishedFile
{
public:
    explicit UnfinishedFile(const QString &name);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile &) = delete;
    UnfinishedFile &operator=(const UnfinishedFile &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }
    /// Whoever could use the other file can use this one: its mode and group, and for root its owner as well.
    /// Nothing when there is none. Throws DatabaseError.
    void takeOverAccess(const QString &other);
    /// Gives the file its name once it is on the disk, in one step: under the name stands the old file or
    /// the new, whole. Throws DatabaseError, also when the name is taken and may not be `replacing`.
    void takeName(bool replacing);

private:
    QString m_name;
    QString m_path;
};

/// Keeps a database under another name, with the logs that belong to it: a new database under the old name
/// must never meet them. The file stays under its own name as well where the disk can do that. A log without
/// its database is kept likewise. Throws DatabaseError, also when the other name is taken.
void keepAside(const QString &name, const QString &aside);

} // namespace ebtq::db
