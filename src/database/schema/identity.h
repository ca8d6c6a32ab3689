#pragma once

#include <QString>

namespace ebtq::db {

class Connection;

/// The number in the header of a file by which it is known as ours: "EBTQ".
inline constexpr int fileMark = 0x45425451;

/// What a database is to this build. A file is known by the mark in its header or, when an earlier version
/// made it, by the table with its version.
struct Identity
{
    enum Standing : quint8 {
        Empty,   ///< no tables: may be made ours
        Foreign, ///< holds somebody else's tables
        Older,   ///< ours, to be upgraded
        Current,
        Newer, ///< ours, but made by a newer program
    };
    Standing standing = Empty;
    int version = 0; ///< 0: none is recorded

    /// Throws DatabaseError when the database cannot be read.
    [[nodiscard]] static Identity of(Connection &connection);
    /// Why people cannot work in it and what to do, in Chinese; empty when they can.
    [[nodiscard]] QString obstacle() const;
};

/// What is done about a database that holds somebody else's tables.
enum class Foreign : quint8 { IsRefused, IsTakenOver };

/// Throws DatabaseError unless the schema may be made or upgraded here.
void requireInstallable(Connection &connection, Foreign foreign);
/// Before work begins: throws DatabaseError unless the database is of this version and its tables and indexes
/// can be reached. Reads a few pages, however large the file is.
void requireCurrent(Connection &connection);
/// Throws DatabaseError unless the database is ours and of this version or a recorded older one.
Identity requireOwn(Connection &connection);

} // namespace ebtq::db
