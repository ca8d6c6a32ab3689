#include "library/attachments/file2db.h"

#include "contracts/conversions.h"
#include "library/attachments/b_file.h"
#include "library/attachments/b_get_temp_file.h"
#include "library/attachments/whole_file.h"

#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

void writeField(const QString &path, Recordset &row, const QString &field, Overwrite overwrite)
{
    writeWholeFile(path, overwrite, [&](QIODevice &to) { row.WriteField(field, to); });
}

} // namespace

void FileToField(const QString &path, Recordset &row, const QString &field)
{
    if (!FileExists(path, 0))
        throw DbFileError();
    row.SetFieldFromFile(field, path);
}

bool FieldToFile(const QString &path, Recordset &row, const QString &field, bool overwrite)
{
    try {
        writeField(path, row, field, overwrite ? Overwrite::Yes : Overwrite::No);
        return true;
    } catch (const std::exception &) {
        return false;
    }
}

void rowToFile(Desktop &desktop, Recordset &row, const QString &path)
{
    const QString contents = u"contents"_s;
    if (row.Fields(u"iscompress"_s).Value.toInt() != 1)
        return writeField(path, row, contents, Overwrite::Yes);
    const QString archive = MakeTempFile(desktop, u"tmp"_s);
    if (archive.isEmpty())
        throw Failure(u"无法建立临时文件！"_s);
    const auto remove = qScopeGuard([&] { QFile::remove(archive); });
    writeField(archive, row, contents, Overwrite::Yes);
    const qint64 size = row.Fields(u"filesize"_s).Value.toLongLong();
    writeWholeFile(path, Overwrite::Yes, [&](QIODevice &to) { desktop.unpack(archive, to, size); });
}

} // namespace ebtq
