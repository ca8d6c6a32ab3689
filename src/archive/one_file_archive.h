#pragma once

#include <QString>

#include <stdexcept>

class QIODevice;

/// Zip archives that hold one file.
namespace ebtq::archive {

/// what() is a text to be shown, in UTF-8.
class ArchiveError : public std::runtime_error
{
public:
    explicit ArchiveError(const QString &text)
        : std::runtime_error(text.toStdString())
    {}
};

/// Writes the archive of a file under the last part of its name, in pieces. What does not get smaller, such
/// as photos, is stored as it is. Throws ArchiveError.
void pack(const QString &file, const QString &archive);
/// Writes the one file of an archive to an open device, in pieces; its stored name is not used. Throws
/// ArchiveError for anything else than one unencrypted file of just this size with the right checksum; what
/// was written is then of no use.
void unpack(const QString &archive, QIODevice &to, qint64 size);

} // namespace ebtq::archive
