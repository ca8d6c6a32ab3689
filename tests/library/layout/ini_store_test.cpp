#include "library/layout/ini_store.h"

#include "support/as_nobody.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace ebtq;
using ebtq::test::AsNobody;

namespace {

class IniStoreTest : public testing::Test
{
protected:
    void write(const QByteArray &contents) const
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        ASSERT_EQ(out.write(contents), contents.size());
    }
    [[nodiscard]] QByteArray contents() const
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("no file");
    }
    [[nodiscard]] IniStore opened() const
    {
        IniStore store;
        store.setFileName(file);
        return store;
    }

    QTemporaryDir folder;
    QString file = folder.filePath(u"Fcxx.txt"_qs);
};

TEST_F(IniStoreTest, EveryValueComesBackAsItWas)
{
    const QString values[] = {u""_qs,        u" 十天内"_qs,    u"a=b;c#d"_qs,
                              u"[Vs]"_qs,    u"一\n二\r\n"_qs, u"C:\\new\\r"_qs,
                              u"\\\\n\\"_qs, u"尾部空格  "_qs, QString(200000, u'长')};
    IniStore store = opened();
    for (const QString &value : values)
        store.SetString(u"Form"_qs, u"键_%1"_qs.arg(qHash(value)), value);
    store.SetBool(u"Form"_qs, u"flag"_qs, true);
    store.SetInt(u"Vs_2"_qs, u"number"_qs, -2147483633);
    ASSERT_TRUE(store.save());
    const IniStore read = opened();
    for (const QString &value : values)
        EXPECT_EQ(read.GetString(u"FORM"_qs, u"键_%1"_qs.arg(qHash(value)), u"?"_qs), value);
    EXPECT_TRUE(read.GetBool(u"form"_qs, u"FLAG"_qs, false));
    int out = 0;
    EXPECT_EQ(read.GetInt(u"vs_2"_qs, u"number"_qs, 7, out), -2147483633);
    EXPECT_EQ(out, -2147483633);
    EXPECT_EQ(read.GetInt(u"Vs"_qs, u"number"_qs, 7, out), 7) << "another section";
    EXPECT_EQ(out, 7);
}

TEST_F(IniStoreTest, UnderstandsWhatItCanOfAnyFile)
{
    // The file, and what it holds as [Vs] a; "-" when that is absent.
    const std::pair<QByteArray, QString> cases[] = {
        {"[Vs]\na=1\n", u"1"_qs},
        {"\xEF\xBB\xBF[Vs]\r\na=1\r\n", u"1"_qs},
        {"[vs]\n A =1\n", u"1"_qs},
        {"[Vs]\na=1\na=2\n", u"1"_qs},
        {"[Vs]\nb=1\n[X]\na=3\n[VS]\na=4", u"4"_qs},
        {"[Vs\na=1\n", u"-"_qs},
        {"a=1\n[Vs]\n=2\na\n", u"-"_qs},
        {"[Vs]\n;a=1\n#a=1\n", u"-"_qs},
        {QByteArray("[Vs]\n\0\xFF\xFE=\x80\na=1\n", 15), u"1"_qs},
        {QByteArray(5 * 1024 * 1024, '\n') + "[Vs]\na=1\n", u"-"_qs},
        {"", u"-"_qs},
    };
    for (const auto &[contents, value] : cases) {
        SCOPED_TRACE(contents.left(60).toStdString());
        write(contents);
        IniStore store = opened();
        EXPECT_EQ(store.GetString(u"Vs"_qs, u"a"_qs, u"-"_qs), value);
        store.SetString(u"Vs"_qs, u"mended"_qs, u"yes"_qs);
        EXPECT_TRUE(store.save());
        EXPECT_EQ(opened().GetString(u"Vs"_qs, u"mended"_qs, {}), u"yes");
        EXPECT_EQ(opened().GetString(u"Vs"_qs, u"a"_qs, u"-"_qs), value);
    }
}

TEST_F(IniStoreTest, KeepsWhatAnAdministratorWrote)
{
    const QByteArray written = "# 营业部\n[Vs]\n; 小计\nVsX=1\n[Other]\nkey=值\n";
    write(written);
    IniStore store = opened();
    store.SetString(u"Vs"_qs, u"VsX"_qs, u"1"_qs);
    ASSERT_TRUE(store.save());
    EXPECT_EQ(contents(), written);
    store.removeSection(u"OTHER"_qs);
    store.SetInt(u"Vs"_qs, u"vsx"_qs, 2);
    ASSERT_TRUE(store.save());
    EXPECT_EQ(contents(), "# 营业部\n[Vs]\n; 小计\nVsX=2\n");
}

TEST_F(IniStoreTest, AFileThatCannotBeWrittenStaysAsItWas)
{
    write("[Vs]\na=1\n");
    IniStore store = opened();
    store.SetInt(u"Vs"_qs, u"a"_qs, 2);
    // Whatever stops the writing, it goes to another name first: the folder is gone here.
    IniStore nowhere;
    nowhere.setFileName(file + u"/below/Fcxx.txt"_qs);
    nowhere.SetInt(u"Vs"_qs, u"a"_qs, 2);
    EXPECT_FALSE(nowhere.save());
    EXPECT_EQ(contents(), "[Vs]\na=1\n");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(u"Fcxx.txt"_qs)) << "nothing left over";
    ASSERT_TRUE(QFile::setPermissions(file, {}) &&
                QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    {
        const AsNobody nobody; // who may replace the file and not read it
        IniStore unread = opened();
        unread.SetInt(u"Vs"_qs, u"a"_qs, 3);
        EXPECT_FALSE(unread.save());
    }
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(contents(), "[Vs]\na=2\n");
    IniStore folderForFile;
    folderForFile.setFileName(folder.path());
    EXPECT_FALSE(folderForFile.contains(u"Vs"_qs, u"a"_qs));
    folderForFile.SetInt(u"Vs"_qs, u"a"_qs, 2);
    EXPECT_FALSE(folderForFile.save());
}

} // namespace
