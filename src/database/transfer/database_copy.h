#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace ebtq::db {

class Connection;

/// How many of a table's rows were copied.
using CopyProgress = std::function<void(const QString &table, qint64 done, qint64 total)>;

struct CopyReport
{
    qint64 rows = 0;
    QStringList leftOut; ///< columns of the source that are not the system's, as "table.column"
};

/// Copies every table of the schema, the host's as well, into an empty database of any engine, and makes the
/// schema there. The source is read in one snapshot, so others may go on writing; a block of rows at a time
/// is in memory. At the end the rows and checksums of every table are read back from the target and compared.
///
/// All or nothing: the target is written in one transaction, which commits only when all is equal. Whatever
/// goes wrong, a kill included, leaves it without a row and, where it had none, without a schema.
/// Throws DatabaseError, also for a source of another version and for a target that is not empty.
CopyReport copyDatabase(Connection &source, Connection &target, const CopyProgress &progress = {});

} // namespace ebtq::db
