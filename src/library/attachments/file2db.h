#pragma once

#include "contracts/host_contracts.h"
#include "library/frame/desktop.h"

namespace ebtq {

/// The failure of FileToField, as its callers know it.
class DbFileError : public Failure
{
public:
    static constexpr int Number = 50001;
    static constexpr const char *Source = "dbfile";
    DbFileError()
        : Failure(QStringLiteral("文件不存在!"))
    {}
};

/// Makes a file the contents of a binary field of the new row; they are read by Recordset::Update, in pieces.
/// Throws DbFileError when there is no such file.
void FileToField(const QString &path, Recordset &row, const QString &field);
/// Writes a binary field of the current row to a file, in pieces; of Null an empty one. False when it failed
/// or when the file exists and is not to be overwritten: the path is then as it was.
[[nodiscard]] bool FieldToFile(const QString &path, Recordset &row, const QString &field, bool overwrite);

/// Writes the file of a row of attachments (iscompress, filesize and contents) to a path, over what is there,
/// unpacked when it is an archive. Throws what the database, the disk or the archive say; the path is then as
/// it was.
void rowToFile(Desktop &desktop, Recordset &row, const QString &path);

} // namespace ebtq
