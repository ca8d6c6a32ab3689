#pragma once

#include "database/transfer/whole_file.h"

namespace ebtq::db {

struct BackupOutcome
{
    qint64 rows = 0;
    bool hasChecksums = true; ///< false for a file that no backup made: only its structure could be checked
    QString keptAside;        ///< where the replaced database is now; empty when there was none
};

/// Writes a backup of an embedded database while others go on working in it: the pages of one moment, in
/// small steps. A log keeps the moment readable, so nothing waits and nothing begins anew, and the time is
/// that of reading the file; the engine's other way, which writes every row and index afresh, takes longer
/// and gains only the free pages. With it goes the table host_backup, the checksum of every table as the
/// database itself gives it. The backup is read back and compared with those before it takes its name, in one
/// step; until then it is called ".unfinished". Throws DatabaseError, also when the file exists and is not to
/// be `replaced`.
BackupOutcome backUp(const QString &database, const QString &file, bool replaced,
                     const PageProgress &progress = {});

/// Puts a backup in the place of a database, or where none is. The backup is copied and the copy is checked
/// (structure, version, checksums) before anything is touched; the replaced database stays under a name with
/// date and time. Throws DatabaseError, also when a program has the database open.
BackupOutcome restore(const QString &file, const QString &location, const PageProgress &progress = {});

} // namespace ebtq::db
