#include "archive/one_file_archive.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>

#include <zip.h>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace ebtq::archive {

namespace {

constexpr zip_uint32_t level = 3; ///< people wait for it; the next levels gain little
constexpr qint64 sampleSize = 64 << 10;
constexpr qsizetype pieceSize = 1 << 20;
constexpr zip_uint64_t largestRatio = 1100; ///< deflate makes no more than 1032 bytes of one
constexpr int quickest = 1;

struct Discard
{
    void operator()(zip_t *archive) const { zip_discard(archive); }
    void operator()(zip_file_t *file) const { (void)zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Member = std::unique_ptr<zip_file_t, Discard>;

QString reasonOf(int code)
{
    switch (code) {
    case ZIP_ER_NOZIP:
        return u"不是压缩文件"_s;
    case ZIP_ER_CRC:
        return u"校验和不符，内容已损坏"_s;
    case ZIP_ER_OPEN:
    case ZIP_ER_READ:
    case ZIP_ER_NOENT:
        return u"无法读取"_s;
    case ZIP_ER_WRITE:
    case ZIP_ER_CLOSE:
    case ZIP_ER_TMPOPEN:
    case ZIP_ER_RENAME:
    case ZIP_ER_REMOVE:
        return u"无法写入，磁盘可能已满"_s;
    case ZIP_ER_MEMORY:
        return u"内存不足"_s;
    default:
        return u"内容不完整或已损坏"_s;
    }
}

[[noreturn]] void refuse(const QString &reason)
{
    throw ArchiveError(u"压缩文件无效：%1！"_s.arg(reason));
}

Archive open(const QString &path, int flags)
{
    int code = 0;
    Archive archive(zip_open(QFile::encodeName(path).constData(), flags, &code));
    if (!archive)
        refuse(reasonOf(code));
    return archive;
}

int codeOf(zip_t &archive)
{
    return zip_error_code_zip(zip_get_error(&archive));
}

/// A look at the middle, since beginnings are headers: photos and documents that are archives get no smaller.
bool getsSmaller(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, (file.size() - sampleSize) / 2)))
        refuse(u"无法读取"_s);
    const QByteArray sample = file.read(sampleSize);
    return qCompress(sample, quickest).size() < sample.size() - sample.size() / 16;
}

void requireTheOneFile(zip_t &archive, qint64 size)
{
    if (zip_get_num_entries(&archive, 0) != 1)
        refuse(u"应当只含一个文件"_s);
    zip_stat_t state;
    if (zip_stat_index(&archive, 0, 0, &state) != 0)
        refuse(reasonOf(codeOf(archive)));
    if (state.encryption_method != ZIP_EM_NONE)
        refuse(u"内容已加密"_s);
    if (state.comp_method != ZIP_CM_STORE && state.comp_method != ZIP_CM_DEFLATE)
        refuse(u"压缩方法未知"_s);
    if (size < 0 || state.size != static_cast<zip_uint64_t>(size))
        refuse(u"大小与登记的不符"_s);
    if (state.size / largestRatio > state.comp_size)
        refuse(u"压缩比过大"_s);
}

void write(zip_file_t &from, QIODevice &to, qint64 size)
{
    std::vector<char> piece(pieceSize);
    qint64 total = 0;
    // Read to the end: the checksum is compared there.
    while (const zip_int64_t read = zip_fread(&from, piece.data(), piece.size())) {
        if (read < 0)
            refuse(reasonOf(zip_error_code_zip(zip_file_get_error(&from))));
        total += read;
        if (total > size)
            refuse(u"大小与登记的不符"_s);
        if (to.write(piece.data(), read) != read)
            throw ArchiveError(u"文件写入失败：%1"_s.arg(to.errorString()));
    }
    if (total != size)
        refuse(u"内容不完整或已损坏"_s);
}

} // namespace

void pack(const QString &file, const QString &archive)
{
    const zip_int32_t method = getsSmaller(file) ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
    Archive made = open(archive, ZIP_CREATE | ZIP_TRUNCATE);
    zip_source_t *source = zip_source_file(made.get(), QFile::encodeName(file).constData(), 0, -1);
    const QByteArray name = QFileInfo(file).fileName().toUtf8();
    const zip_int64_t at = source ? zip_file_add(made.get(), name.constData(), source, ZIP_FL_ENC_UTF_8) : -1;
    if (at < 0) {
        zip_source_free(source); // the archive has it only when it was added
        refuse(reasonOf(codeOf(*made)));
    }
    (void)zip_set_file_compression(made.get(), static_cast<zip_uint64_t>(at), method, level);
    if (zip_close(made.get()) != 0)
        refuse(reasonOf(codeOf(*made)));
    (void)made.release();
}

void unpack(const QString &archive, QIODevice &to, qint64 size)
{
    const Archive opened = open(archive, ZIP_RDONLY | ZIP_CHECKCONS);
    requireTheOneFile(*opened, size);
    const Member member(zip_fopen_index(opened.get(), 0, 0));
    if (!member)
        refuse(reasonOf(codeOf(*opened)));
    write(*member, to, size);
}

} // namespace ebtq::archive
