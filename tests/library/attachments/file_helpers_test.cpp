#include "library/attachments/b_file.h"
#include "library/attachments/b_get_temp_file.h"
#include "library/attachments/file2db.h"
#include "library/attachments/m_common_dialog.h"
#include "library/attachments/m_shell_execute.h"

#include "host/host_database.h"
#include "host/setup.h"
#include "support/as_nobody.h"
#include "support/engine_database.h"
#include "support/full_disk.h"
#include "support/messages.h"
#include "support/scripted_desktop.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace ebtq::test {

namespace {

using ::testing::HasSubstr;

TEST(FileHelpersTest, PathsAreCutAtTheirLastSeparator)
{
    struct Case
    {
        QString path;
        QString name;
        QString extension;
        QString folder;
        QString withoutDrive;
    };
    const Case cases[] = {
        {u"C:\\a.b\\C.JPG"_qs, u"C.JPG"_qs, u"JPG"_qs, u"C:\\a.b"_qs, u"a.b"_qs},
        {u"/home/x/合同.tar.gz"_qs, u"合同.tar.gz"_qs, u"gz"_qs, u"/home/x"_qs, u"me/x"_qs},
        {u"a/b\\c"_qs, u"c"_qs, u"a/b\\c"_qs, u"a/b"_qs, u"\\c"_qs.left(0)},
        {u"name"_qs, u"name"_qs, u"name"_qs, u"name"_qs, u"e"_qs},
        {u"name.x."_qs, u"name.x."_qs, u"x."_qs, u"name.x."_qs, u"e.x."_qs},
        {u"."_qs, u"."_qs, u"."_qs, u"."_qs, QString()},
        {u"C:\\"_qs, QString(), u"C:\\"_qs, u"C:"_qs, QString()},
        {},
    };
    for (const Case &path : cases) {
        EXPECT_EQ(FileNameOfPath(path.path), path.name);
        EXPECT_EQ(ExtensionOfPath(path.path, false), path.extension);
        EXPECT_EQ(ExtensionOfPath(path.path, true), path.extension.toLower());
        EXPECT_EQ(FolderOfPath(path.path, true), path.folder);
        EXPECT_EQ(FolderOfPath(path.path, false), path.withoutDrive) << path.path.toStdString();
        EXPECT_EQ(ParentOfPath(path.path), path.folder);
    }
}

/// Notes what is asked and answers as the system would.
class DialogDesktop : public ScriptedDesktop
{
public:
    bool openDialog(FileDialog &dialog) override
    {
        asked = dialog;
        if (chooses)
            dialog = answer;
        return chooses;
    }
    bool saveDialog(FileDialog &dialog) override { return openDialog(dialog); }

    FileDialog asked;
    FileDialog answer;
    bool chooses = true;
};

TEST(FileHelpersTest, DialogsSayWhatIsAskedAndWhatWasChosen)
{
    const QChar null(u'\0');
    DialogDesktop desktop;
    CommonDialog dialog;
    dialog.filter = u"图片(*.jpg)|*.jpg:*.png|*.png"_qs;
    dialog.multiSelect = true;
    dialog.readOnly = true;
    dialog.hideReadOnly = false;
    dialog.flags = 0x80060;
    desktop.answer.file = u"/x%1a.png%1b.png"_qs.arg(null);
    desktop.answer.filter =
        QStringList({u"图片(*.jpg)"_qs, u"*.jpg"_qs, u"*.png"_qs, u"*.png"_qs, {}, {}}).join(null);
    desktop.answer.filterIndex = 2;
    desktop.answer.flags = 0x80000;
    ASSERT_TRUE(ShowOpenDialog(desktop, dialog));
    EXPECT_EQ(desktop.asked.flags, 0x81201U);
    EXPECT_EQ(desktop.asked.filter, desktop.answer.filter);
    EXPECT_EQ(dialog.file, desktop.answer.file) << "several are not cut";
    EXPECT_EQ(dialog.filter, u"*.png"_qs);
    EXPECT_EQ(dialog.flags, 0x80000U);
    EXPECT_FALSE(dialog.readOnly);
    dialog.flags = 0;
    ASSERT_TRUE(ShowSaveDialog(desktop, dialog));
    EXPECT_EQ(desktop.asked.flags, 6U);
    EXPECT_EQ(dialog.file, u"/x"_qs);
    desktop.chooses = false;
    for (const auto &[show, index] : {std::pair(&ShowOpenDialog, -1), std::pair(&ShowSaveDialog, 0)}) {
        dialog = {};
        dialog.file = dialog.fileTitle = dialog.filter = u"a"_qs;
        dialog.flags = 1;
        EXPECT_FALSE(show(desktop, dialog));
        EXPECT_EQ(dialog.file + dialog.fileTitle + dialog.filter, QString());
        EXPECT_EQ(dialog.flags, 0U);
        EXPECT_EQ(dialog.filterIndex, index);
    }
    EXPECT_EQ(FilterAtIndex(desktop.answer.filter, 0) + FilterAtIndex(desktop.answer.filter, 9), QString());
}

TEST(FileHelpersTest, OpeningGivesTheMessageOfTheResult)
{
    constexpr int base = -2147220456;
    struct Case
    {
        int result;
        int number;
        const char *message;
    };
    const Case cases[] = {
        {0, 7, "Out of memory"},
        {8, 7, "Out of memory"},
        {2, 53, "File not found"},
        {26, 75, "A sharing violation occurred."},
        {31, 31 + base, "No application is associated with this file type."},
        {4, 4 + base, "An error occurred occurred whilst trying to open or print the selected file."},
    };
    ScriptedDesktop desktop;
    for (const Case &failed : cases) {
        desktop.willGiveShellResult(failed.result);
        ShellError error;
        EXPECT_EQ(ShellOpen(desktop, u"a"_qs, 10, {}, {}, u"open"_qs, &error),
                  QString::fromLatin1(failed.message));
        EXPECT_EQ(error.number, failed.number);
        EXPECT_TRUE(error.source.endsWith(u".GShell"_qs));
        EXPECT_EQ(error.description, QString::fromLatin1(failed.message));
    }
    desktop.willGiveShellResult(33);
    EXPECT_EQ(ShellOpen(desktop, u"b.exe"_qs, 10, {}, {}, u"open"_qs), QString());
    EXPECT_EQ(ShellOpen(desktop, u"b.exe"_qs, 10, u"-x"_qs, {}, u"open"_qs), QString());
    EXPECT_EQ(ShellOpen(desktop, u"c"_qs, 10, {}, u"/x"_qs, u"open"_qs), QString());
    EXPECT_EQ(desktop.openedFiles().last(3),
              QStringList({u"open|b.exe|1"_qs, u"open|b.exe|-x||0"_qs, u"open|c||/x|10"_qs}));
}

/// Files into rows and out of them, on both engines.
class RowFileTest : public EngineTest
{
protected:
    RowFileTest() { host::prepareDatabase(*m_connection); }
    std::unique_ptr<Recordset> open(const QString &sql) { return m_db.CreateQuery(SqlText(sql))->Open(); }
    [[nodiscard]] QString at(const QString &name) const { return m_folder.filePath(name); }
    QString write(const QString &name, const QByteArray &bytes)
    {
        QFile file(at(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    /// The row of a file, packed or as it is; of an empty path Null.
    std::unique_ptr<Recordset> row(const QString &path, qint64 size, bool isPacked)
    {
        QString contents = path;
        if (isPacked) {
            contents = MakeTempFile(m_desktop, u"tmp"_qs);
            EXPECT_TRUE(m_desktop.pack(path, contents));
        }
        auto rows = open(u"SELECT top 1 * FROM pubAttach "_qs);
        rows->AddNew();
        rows->SetField(u"filesize"_qs, size);
        rows->SetField(u"iscompress"_qs, isPacked ? 1 : 0);
        if (!path.isEmpty())
            FileToField(contents, *rows, u"contents"_qs);
        rows->Update();
        return rows;
    }

    QTemporaryDir m_folder;
    ScriptedDesktop m_desktop;
    std::unique_ptr<db::Connection> m_connection = connect();
    host::HostDatabase m_db{*m_connection};
};

TEST_P(RowFileTest, FilesComeOutAsTheyWentIn)
{
    const QString names[] = {u"a'b;😀.jpg"_qs, QString(255, u'n')};
    for (const QString &name : names) {
        for (const qsizetype size : {0, 20480, 20481}) {
            for (const bool isPacked : {false, true}) {
                const QByteArray bytes(size, 'x');
                rowToFile(m_desktop, *row(write(name, bytes), size, isPacked), at(u"out"_qs));
                EXPECT_EQ(read(at(u"out"_qs)), bytes);
            }
        }
    }
    EXPECT_TRUE(FieldToFile(at(u"null"_qs), *row({}, 0, false), u"contents"_qs, true));
    EXPECT_EQ(read(at(u"null"_qs)), QByteArray());
    EXPECT_EQ(QDir(m_desktop.tempFolder()).entryList({u"tmp*"_qs}).size(), 6) << "only what this test packed";
}

TEST_P(RowFileTest, WhatIsNoFileIsNotTaken)
{
    const QString fifo = at(u"fifo"_qs);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    for (const QString &path : {at(u"gone"_qs), fifo, m_folder.path(), QString()}) {
        auto rows = open(u"SELECT top 1 * FROM pubAttach "_qs);
        rows->AddNew();
        try {
            FileToField(path, *rows, u"contents"_qs);
            ADD_FAILURE() << path.toStdString();
        } catch (const DbFileError &error) {
            EXPECT_STREQ(error.what(), "文件不存在!");
        }
    }
    EXPECT_TRUE(FileExists(m_folder.path(), 16));
    EXPECT_FALSE(FileExists(fifo, 16));
    const QString secret = write(u"secret"_qs, "x");
    QFile::setPermissions(secret, {});
    QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777));
    auto rows = open(u"SELECT top 1 * FROM pubAttach "_qs);
    rows->AddNew();
    FileToField(secret, *rows, u"contents"_qs);
    const AsNobody nobody;
    EXPECT_THROW(rows->Update(), Failure);
}

TEST_P(RowFileTest, ATargetThatCannotBeWrittenStaysAsItWas)
{
    const QByteArray bytes(300000, 'x');
    const auto stored = row(write(u"a.bin"_qs, bytes), bytes.size(), false);
    const auto wrongSize = row(at(u"a.bin"_qs), 1, true);
    const QString target = write(u"own.txt"_qs, "own");
    const QString contents = u"contents"_qs;
    EXPECT_FALSE(FieldToFile(target, *stored, contents, false));
    EXPECT_FALSE(FieldToFile(at(u"none/x"_qs), *stored, contents, true));
    EXPECT_FALSE(FieldToFile(m_folder.path(), *stored, contents, true));
    EXPECT_THROW(rowToFile(m_desktop, *wrongSize, target), std::exception);
    {
        const FullDisk full(100000);
        EXPECT_FALSE(FieldToFile(target, *stored, contents, true));
        EXPECT_FALSE(FieldToFile(at(u"new"_qs), *stored, contents, false));
    }
    QFile::setPermissions(target, QFile::ReadOwner | QFile::ReadOther);
    {
        QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777));
        const AsNobody nobody;
        EXPECT_FALSE(FieldToFile(target, *stored, contents, true));
    }
    EXPECT_EQ(read(target), QByteArray("own"));
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({u"a.bin"_qs, u"own.txt"_qs}));
    EXPECT_TRUE(FieldToFile(at(u"new"_qs), *stored, contents, false));
    EXPECT_EQ(read(at(u"new"_qs)), bytes);
}

ON_EACH_ENGINE(RowFileTest);

} // namespace

} // namespace ebtq::test
