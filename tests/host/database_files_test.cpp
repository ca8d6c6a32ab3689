#include "host/host_database.h"

#include "host/host_fixture.h"
#include "host/setup.h"

#include <QFile>

namespace ebtq::test {

using db::Connection;

/// Databases that another program holds, that may not be written, or that are none.
class DatabaseFilesTest : public HostTest
{
protected:
    QString file() const { return m_folder.filePath(QStringLiteral("agency.db")); }
    void prepare() { host::prepareDatabase(*Connection::open(file(), Connection::Missing::IsCreated)); }
    static QString openingFailure(const QString &location)
    {
        try {
            (void)Connection::open(location);
        } catch (const db::DatabaseError &failure) {
            return failure.message();
        }
        return {};
    }
    static bool isChinese(const QString &text) { return !text.isEmpty() && text.front().unicode() >= 0x4E00; }
};

TEST_F(DatabaseFilesTest, ALockedDatabaseCanBeReadAndSaysWhyItIsNotWritten)
{
    prepare();
    const auto holder = Connection::open(file());
    const auto connection = Connection::open(file());
    connection->setLockTimeout(20);
    host::HostDatabase database(*connection);
    holder->begin();
    const auto countModules = [&] {
        return database.CreateQuery(QStringLiteral("select count(*) from host_modules"))->Scalar().toInt();
    };
    EXPECT_EQ(countModules(), 7);
    database.CreateQuery(QStringLiteral("delete from host_modules"))->Execute();
    EXPECT_TRUE(isChinese(database.LastError().Description))
        << database.LastError().Description.toStdString();
    EXPECT_THROW(database.BeginTrans(), Failure);
    EXPECT_THROW(database.CommitTrans(), Failure);
    database.Release();
    EXPECT_EQ(countModules(), 7);

    host::Application locked(*connection, {agentId, {}, {}}, {m_folder.path(), loginDate}, m_panels);
    QString code;
    EXPECT_FALSE(locked.NewBillCode(101, loginDate, code, false));
    EXPECT_TRUE(isChinese(locked.LastError().Description));
    holder->rollback();
    EXPECT_TRUE(locked.NewBillCode(101, loginDate, code, false));
    EXPECT_EQ(locked.LastError().Description, QString());
}

TEST_F(DatabaseFilesTest, AReadOnlyDatabaseShowsItsRowsAndRefusesWrites)
{
    prepare();
    const auto connection = Connection::open(QStringLiteral("file:%1?mode=ro").arg(file()));
    host::HostDatabase database(*connection);
    EXPECT_EQ(database.CreateQuery(QStringLiteral("select count(*) from host_modules"))->Scalar().toInt(), 7);
    database.CreateQuery(QStringLiteral("delete from host_modules"))->Execute();
    EXPECT_TRUE(isChinese(database.LastError().Description))
        << database.LastError().Description.toStdString();
}

TEST_F(DatabaseFilesTest, WhatIsNoDatabaseIsNotOpened)
{
    QFile text(m_folder.filePath(QStringLiteral("text.db")));
    ASSERT_TRUE(text.open(QFile::WriteOnly));
    text.write(QByteArray(4096, 'x'));
    text.close();
    for (const QString &location :
         {text.fileName(), m_folder.path(), m_folder.filePath(QStringLiteral("none.db")),
          m_folder.filePath(QStringLiteral("no/such/folder.db"))})
        EXPECT_TRUE(isChinese(openingFailure(location))) << openingFailure(location).toStdString();
    EXPECT_FALSE(QFile::exists(m_folder.filePath(QStringLiteral("none.db"))));
}

TEST_F(DatabaseFilesTest, PreparingTwiceKeepsWhatWasSet)
{
    execute(u"update host_parameters set valueText='3' where keyText='7'");
    EXPECT_TRUE(host::prepareDatabase(*m_connection).added.isEmpty());
    EXPECT_EQ(m_host->SystemParameter(12, 7).Text, QStringLiteral("3"));
    EXPECT_EQ(value(u"select count(*) from host_modules").toInt(), 7);
}

} // namespace ebtq::test
