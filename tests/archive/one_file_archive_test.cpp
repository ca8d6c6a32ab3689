#include "archive/one_file_archive.h"

#include "support/messages.h"

#include <QBuffer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <zip.h>

#include <functional>

namespace ebtq::archive {

namespace {

using ::testing::HasSubstr;

/// With a run of the same byte, which gets smaller, or without.
QByteArray bytesOf(qsizetype size, bool isNoise)
{
    QByteArray bytes(size, 'a');
    QRandomGenerator random(1);
    for (qsizetype at = 0; isNoise && at < size; ++at)
        bytes[at] = static_cast<char>(random.generate());
    return bytes;
}

class ArchiveTest : public testing::Test
{
protected:
    QString write(const QString &name, const QByteArray &bytes)
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    QByteArray read(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QByteArray unpacked(qint64 size)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        unpack(m_archive, buffer, size);
        return buffer.data();
    }
    void makeZip(const std::function<void(zip_t *)> &fill)
    {
        zip_t *zip = zip_open(QFile::encodeName(m_archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        ASSERT_TRUE(zip);
        fill(zip);
        ASSERT_EQ(zip_close(zip), 0);
    }
    static zip_uint64_t addMember(zip_t *zip, const char *name, const QByteArray &bytes)
    {
        zip_source_t *source =
            zip_source_buffer(zip, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
        return static_cast<zip_uint64_t>(zip_file_add(zip, name, source, ZIP_FL_ENC_UTF_8));
    }

    QTemporaryDir m_folder;
    QString m_archive = m_folder.filePath(u"archive"_qs);
};

TEST_F(ArchiveTest, AFileComesOutAsItWentIn)
{
    const QString names[] = {u"a.txt"_qs, u"业主'合同😀.pdf"_qs, QString(255, u'n')};
    for (const QString &name : names) {
        for (const bool isNoise : {false, true}) {
            for (const qsizetype size : {0, 1, 20481, 3 << 20}) {
                const QByteArray bytes = bytesOf(size, isNoise);
                pack(write(name, bytes), m_archive);
                EXPECT_EQ(unpacked(size), bytes) << size;
                const qint64 room = QFileInfo(m_archive).size();
                EXPECT_TRUE(isNoise ? room > size : room < size / 20 + 1000) << room << " of " << size;
            }
        }
        zip_t *zip = zip_open(QFile::encodeName(m_archive).constData(), ZIP_RDONLY, nullptr);
        EXPECT_EQ(QString::fromUtf8(zip_get_name(zip, 0, 0)), name);
        zip_discard(zip);
    }
    EXPECT_THROW(pack(m_folder.filePath(u"gone"_qs), m_archive), ArchiveError);
}

TEST_F(ArchiveTest, WhatIsNoArchiveOfThisFileIsRefused)
{
    const QByteArray bytes = bytesOf(30000, true);
    const qint64 size = bytes.size();
    const auto packed = [&] {
        pack(write(u"a.bin"_qs, bytes), m_archive);
        return read(m_archive);
    };
    struct Case
    {
        const char *reason;
        std::function<void()> make;
        qint64 size;
    };
    const Case cases[] = {
        {"不是压缩文件", [&] { write(u"archive"_qs, bytes); }, size},
        {"不是压缩文件", [&] { write(u"archive"_qs, packed().first(15000)); }, size},
        {"校验和不符",
         [&] {
             QByteArray broken = packed();
             broken[15000] = static_cast<char>(broken[15000] + 1);
             write(u"archive"_qs, broken);
         },
         size},
        {"应当只含一个文件",
         [&] {
             makeZip([&](zip_t *zip) {
                 addMember(zip, "a", bytes);
                 addMember(zip, "b", bytes);
             });
         },
         size},
        {"内容已加密",
         [&] {
             makeZip([&](zip_t *zip) {
                 zip_file_set_encryption(zip, addMember(zip, "a", bytes), ZIP_EM_AES_256, "x");
             });
         },
         size},
        {"大小与登记的不符", [&] { (void)packed(); }, size - 1},
        {"大小与登记的不符", [&] { (void)packed(); }, -1},
        {"压缩比过大",
         [&] {
             // The directory of a stored file tells of more than there is: both of its sizes, then ours.
             QByteArray lie = packed();
             const qsizetype directory = lie.lastIndexOf("PK\1\2");
             for (const qsizetype at : {directory + 24, qsizetype(22)})
                 lie.replace(at, 4, QByteArray("\0\0\0\x7f", 4));
             write(u"archive"_qs, lie);
         },
         0x7f000000},
        {"无法读取", [&] { QFile::remove(m_archive); }, size},
    };
    for (const Case &bad : cases) {
        bad.make();
        try {
            (void)unpacked(bad.size);
            ADD_FAILURE() << bad.reason;
        } catch (const ArchiveError &error) {
            EXPECT_THAT(error.what(), HasSubstr(bad.reason));
        }
    }
    makeZip([&](zip_t *zip) { addMember(zip, "../../evil", bytes); });
    EXPECT_EQ(unpacked(size), bytes) << "the stored name is not used";
}

} // namespace

} // namespace ebtq::archive
