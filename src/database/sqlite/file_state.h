#pragma once

#include <QString>

#include <sys/types.h>

struct sqlite3;

namespace ebtq::db {

/// A database may come from anywhere: what its schema says may neither call functions that do more than
/// compute nor damage the file.
void distrust(sqlite3 *handle);

/// Which file stands under a name, whatever is in it.
struct FileIdentity
{
    dev_t device = 0;
    ino_t node = 0;

    /// All zero when there is none.
    [[nodiscard]] static FileIdentity of(const QString &path);
    [[nodiscard]] bool operator==(const FileIdentity &other) const = default;
};

/// Nobody can write to the file in this place, not even through another program: a disc, a snapshot.
[[nodiscard]] bool isOnReadOnlyMount(const QString &path);

/// Why the engine cannot make its log beside a database, with the folder's name; empty when it can.
[[nodiscard]] QString folderObstacle(const QString &database);

/// A reason of the system, of errno, as a text for the user.
[[nodiscard]] QString systemReason(int error);
[[nodiscard]] bool isDiskFull(int error);

} // namespace ebtq::db
