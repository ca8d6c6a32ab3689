#include "host/host_database.h"
#include "host/setup.h"
#include "support/engine_database.h"
#include "support/messages.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

namespace ebtq::test {

namespace {

using ::testing::HasSubstr;

const QString table = u"pubAttach"_qs;

/// Files in rows, on both engines.
class TableRecordsetTest : public EngineTest
{
protected:
    TableRecordsetTest() { host::prepareDatabase(*m_connection); }
    std::unique_ptr<Recordset> open(const QString &sql) { return m_db.CreateQuery(SqlText(sql))->Open(); }
    [[nodiscard]] QString file(const QByteArray &bytes) const
    {
        QFile made(m_folder.filePath(u"contract.pdf"_qs));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(bytes);
        return made.fileName();
    }
    /// The row's key.
    int add(const QString &path, const QVariant &description = {})
    {
        const auto rows = open(u"SELECT top 1 * FROM pubAttach "_qs);
        rows->AddNew();
        rows->SetField(u"IDs"_qs, u"G-1"_qs);
        rows->SetField(u"filename"_qs, u"业主'合同😀.pdf"_qs);
        rows->SetField(u"filesize"_qs, 20481);
        rows->SetField(u"modifydate"_qs, QDateTime(QDate(2026, 11, 3), QTime(9, 5, 7)));
        rows->SetField(u"description"_qs, description);
        rows->SetField(u"ISACTIVE"_qs, 0);
        rows->SetField(u"isActive"_qs, 1);
        rows->SetFieldFromFile(u"contents"_qs, path);
        rows->Update();
        EXPECT_EQ(rows->Fields(u"filename"_qs).Value, QVariant(u"业主'合同😀.pdf"_qs));
        EXPECT_EQ(rows->Fields(u"filesize"_qs).Value.toInt(), 20481);
        EXPECT_EQ(rows->Fields(u"modifydate"_qs).Value.toDateTime().time(), QTime(9, 5, 7));
        EXPECT_EQ(rows->Fields(u"description"_qs).Value, description);
        EXPECT_EQ(rows->Fields(u"isActive"_qs).Value, QVariant(1));
        return rows->Fields(u"rowIndex"_qs).Value.toInt();
    }
    [[nodiscard]] int count()
    {
        return m_db.CreateQuery(u"select count(*) from pubAttach"_qs)->Scalar().toInt();
    }

    QTemporaryDir m_folder;
    std::unique_ptr<db::Connection> m_connection = connect();
    host::HostDatabase m_db{*m_connection};
};

QByteArray bytesOf(qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (qsizetype at = 0; at < size; ++at)
        bytes[at] = static_cast<char>(at * 7 + at / 251);
    return bytes;
}

QByteArray written(Recordset &rows)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    rows.WriteField(u"contents"_qs, buffer);
    return buffer.data();
}

} // namespace

TEST_P(TableRecordsetTest, AFileComesBackAsItWent)
{
    constexpr qsizetype pieceOfServer = 8 << 20;
    int key = 0;
    for (const qsizetype size :
         {qsizetype(0), qsizetype(1), qsizetype(20481), pieceOfServer, pieceOfServer + 1}) {
        SCOPED_TRACE(size);
        const QByteArray bytes = bytesOf(size);
        const int added = add(file(bytes), size == 0 ? QVariant() : u"甲"_qs);
        EXPECT_GT(added, key);
        key = added;
        const auto rows = open(u"select contents,filename from pubAttach where rowIndex=%1"_qs.arg(key));
        EXPECT_TRUE(rows->Fields(u"contents"_qs).Value.toByteArray() == bytes);
        EXPECT_TRUE(written(*rows) == bytes);
        EXPECT_LT(rows->GetRows().arena().size(), 100) << "the list itself does not hold it";
    }
    m_connection->execute(u"update pubAttach set contents=null"_qs);
    const auto none = open(u"select contents from pubAttach"_qs);
    EXPECT_FALSE(none->Fields(u"contents"_qs).Value.isValid());
    EXPECT_EQ(written(*none).size(), 0);
}

TEST_P(TableRecordsetTest, WhatFailsWritesNothing)
{
    const QString path = file(bytesOf(100));
    const auto rows = open(u"select * from pubAttach"_qs);
    EXPECT_FALSE(messageOf([&] { rows->Update(); }).empty()) << "no new row";
    EXPECT_FALSE(messageOf([&] { rows->SetField(u"filename"_qs, 1); }).empty());
    rows->AddNew();
    EXPECT_THAT(messageOf([&] { rows->SetField(u"无此列"_qs, 1); }), HasSubstr("无此列"));
    EXPECT_FALSE(messageOf([&] { rows->SetField(u"contents"_qs, QByteArray("x")); }).empty());
    rows->SetField(u"filesize"_qs, u"many"_qs);
    rows->SetFieldFromFile(u"contents"_qs, path);
    EXPECT_FALSE(messageOf([&] { rows->Update(); }).empty()) << "the file came before the refused number";
    rows->SetField(u"filesize"_qs, 100);
    QFile::remove(path);
    EXPECT_THAT(messageOf([&] { rows->Update(); }), HasSubstr("无法读取文件"));
    for (const char16_t *sql :
         {u"select A.* from pubAttach A, fyxx B", u"select count(*) from pubAttach group by IDs"})
        EXPECT_FALSE(messageOf([&] { open(QString::fromUtf16(sql))->AddNew(); }).empty());
    m_db.BeginTrans();
    add(file(bytesOf(30)));
    m_db.RollbackTrans();
    EXPECT_EQ(count(), 0);
}

TEST_P(TableRecordsetTest, ARowThatIsGoneIsSaid)
{
    add(file(bytesOf(100)));
    const auto rows = open(u"select * from pubAttach"_qs);
    connect()->execute(u"delete from pubAttach"_qs);
    EXPECT_THAT(messageOf([&] { (void)written(*rows); }), HasSubstr("已被他人删除"));
    EXPECT_FALSE(m_connection->inTransaction());
}

ON_EACH_ENGINE(TableRecordsetTest);

} // namespace ebtq::test
