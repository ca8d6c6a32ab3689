#include "archive/session_folder.h"

#include "support/messages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace ebtq::archive {

namespace {

class SessionFolderTest : public testing::Test
{
protected:
    SessionFolderTest() { qputenv("TMPDIR", QFile::encodeName(m_base.path())); }
    ~SessionFolderTest() override { qunsetenv("TMPDIR"); }
    [[nodiscard]] int sessions() const
    {
        return int(QDir(m_base.path()).entryList({u"ebtq-*"_qs}, QDir::Dirs | QDir::NoDotAndDotDot).size());
    }
    static void touch(const QString &path)
    {
        EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly)) << path.toStdString();
    }

    QTemporaryDir m_base;
};

TEST_F(SessionFolderTest, EveryFileHasAPlaceOfItsOwnWithinIt)
{
    SessionFolder session;
    const QString folder = session.path();
    EXPECT_EQ(QFileInfo(folder).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther), 0);
    struct Case
    {
        QString name;
        QString last;
    };
    const Case cases[] = {{u"合同.pdf"_qs, u"合同.pdf"_qs},
                          {u"../../etc/a"_qs, u"a"_qs},
                          {u"C:\\x\\b.txt"_qs, u"b.txt"_qs},
                          {u".."_qs, u"附件"_qs},
                          {QString(255, u'n'), QString(255, u'n')}};
    for (const auto &[name, last] : cases) {
        const QString path = session.pathFor(name, u"1"_qs);
        EXPECT_EQ(path, folder + last);
        touch(path);
        EXPECT_EQ(session.pathFor(name, u"1"_qs), path) << "opened again";
        const QString other = session.pathFor(name, u"2"_qs);
        EXPECT_NE(other, path);
        EXPECT_EQ(QFileInfo(other).fileName(), last);
        touch(other);
        EXPECT_EQ(session.pathFor(name, u"2"_qs), other);
        EXPECT_NE(session.pathFor(name, u"3"_qs), other);
    }
    QDir(folder).removeRecursively();
    EXPECT_TRUE(QFileInfo::exists(session.makeFile(u"tmp"_qs))) << "made anew";
    EXPECT_TRUE(session.pathFor(u"合同.pdf"_qs, u"2"_qs).startsWith(session.path()));
    m_base.remove();
    EXPECT_EQ(session.path() + session.makeFile(u"tmp"_qs) + session.pathFor(u"a"_qs, u"1"_qs), QString());
}

TEST_F(SessionFolderTest, ItGoesWithTheSessionButForWhatIsOpen)
{
    QFile held;
    {
        SessionFolder living;
        SessionFolder session;
        ASSERT_NE(session.path(), living.path()) << "a living one is left";
        touch(session.makeFile(u"tmp"_qs));
        held.setFileName(session.pathFor(u"a.pdf"_qs, u"1"_qs));
        ASSERT_TRUE(held.open(QIODevice::WriteOnly));
        touch(session.pathFor(u"a.pdf"_qs, u"2"_qs));
        EXPECT_EQ(sessions(), 2);
    }
    EXPECT_EQ(sessions(), 1);
    EXPECT_EQ(
        QFileInfo(held.fileName()).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
        QStringList({u".lock"_qs, u"a.pdf"_qs}));
    const auto next = [] { EXPECT_FALSE(SessionFolder().path().isEmpty()); };
    next();
    EXPECT_EQ(sessions(), 1) << "still open";
    held.close();
    const QString link = m_base.filePath(u"ebtq-session-link"_qs);
    const QTemporaryDir foreign;
    ASSERT_TRUE(QFile::link(foreign.path(), link));
    next();
    EXPECT_FALSE(QFileInfo::exists(held.fileName()));
    EXPECT_EQ(sessions(), 1) << "the link, which is not followed";
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

} // namespace

} // namespace ebtq::archive
