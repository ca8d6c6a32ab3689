#pragma once

#include <QString>

#include <sys/types.h>

struct sqlite3;

namespace ebtq::db {

/// Databases are untrusted: their schema must not call functions with side effects or damage the file.
void distrust(sqlite3 *handle);

/// The identity of the file under a name, whatever its content.
struct FileIdentity
{
    dev_t device = 0;
    ino_t node = 0;

    /// All zero when there is no file.
    [[nodiscard]] static FileIdentity of(const QString &path);
    [[nodiscard]] bool operator==(const FileIdentity &other) const = default;
};

/// No program can write to the file in this place: a disc, a snapshot.
[[nodiscard]] bool isOnReadOnlyMount(const QString &path);

/// Why the engine cannot create its log next to a database, with the folder's name; empty when it can.
[[nodiscard]] QString folderObstacle(const QString &database);

/// An errno value as a text for the user.
[[nodiscard]] QString systemReason(int error);
[[nodiscard]] bool isDiskFull(int error);

} // namespace ebtq::db
