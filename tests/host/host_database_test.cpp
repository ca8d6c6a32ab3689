#include "host/host_database.h"

#include "host/host_fixture.h"
#include "host/rights.h"
#include "host/setup.h"
#include "support/messages.h"

namespace ebtq::test {

class HostDatabaseTest : public HostTest
{
protected:
    HostDb &db() { return m_host->Db(); }
    std::unique_ptr<Recordset> open(const QString &sql) { return db().CreateQuery(sql)->Open(); }
    void run(const QString &sql) { db().CreateQuery(sql)->Execute(); }
    QString error() { return db().LastError().Description; }
    int employees() { return value(u"select count(*) from pdmgy").toInt(); }
    /// A host's database in a file.
    std::unique_ptr<db::Connection> openFile()
    {
        auto connection = db::Connection::open(m_file, db::Connection::Missing::IsCreated);
        host::prepareDatabase(*connection);
        return connection;
    }
    static int modules(HostDb &database)
    {
        return database.CreateQuery(u"select count(*) from host_modules"_qs)->Scalar().toInt();
    }
    const QString m_file = m_folder.filePath(u"agency.db"_qs);
};

TEST_F(HostDatabaseTest, RecordsetWalksForwardAndKnowsItsEnds)
{
    const auto rows = open(u"select 雇员ID,姓名 from pdmgy order by 雇员ID"_qs);
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_FALSE(rows->Bof() || rows->Eof());
    EXPECT_EQ(rows->Fields(u"雇员id"_qs).Value, QVariant(7));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields(u"姓名"_qs).Value, QVariant(u"Amy Lee"_qs));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_THROW(rows->Fields(u"姓名"_qs), Failure);
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    const auto none = open(u"select 姓名 from pdmgy where 雇员ID=0"_qs);
    EXPECT_TRUE(none->Bof() && none->Eof());
    EXPECT_EQ(none->RecordCount() + none->GetRows().rowCount(), 0);
    EXPECT_EQ(messageOf([&] { (void)open(u"select 姓名 from pdmgy"_qs)->Fields(u"工龄"_qs); }),
              "列 工龄 不存在");
}

TEST_F(HostDatabaseTest, BlocksAndSingleValuesAreHandedOut)
{
    const auto rows = open(u"select 姓名 from pdmgy order by 雇员ID"_qs);
    EXPECT_EQ(rows->GetRows().rowCount(), 2);
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->GetRows().rowCount(), 0);
    const auto nameOf = [&](int id) {
        return db().CreateQuery(u"select 姓名 from pdmgy where 雇员ID=%1"_qs.arg(id))->Scalar();
    };
    EXPECT_EQ(nameOf(7), QVariant(u"陈晓雯"_qs));
    EXPECT_FALSE(nameOf(0).isValid());
}

TEST_F(HostDatabaseTest, FailuresBecomeTheLastErrorUntilTheNextSuccess)
{
    const QString broken[] = {u"select 工龄 from pdmgy"_qs, u"select 姓名 from 无此表"_qs,
                              u"insert into pdmgy(雇员ID,姓名) values(7,'重复')"_qs, u"drop table pdmgy"_qs,
                              QString()};
    for (const QString &sql : broken) {
        const auto rows = open(sql);
        ASSERT_NE(rows, nullptr);
        EXPECT_TRUE(rows->Eof()) << sql.toStdString();
        run(sql);
        EXPECT_FALSE(error().isEmpty()) << sql.toStdString();
        EXPECT_FALSE(db().CreateQuery(sql)->Scalar().isValid());
        EXPECT_FALSE(error().isEmpty()) << sql.toStdString();
        run(u"update pdmgy set 姓名='陈晓雯' where 雇员ID=7"_qs);
        EXPECT_EQ(error(), QString());
    }
    EXPECT_EQ(employees(), 2);
}

TEST_F(HostDatabaseTest, OnlyTheOutermostCommitWrites)
{
    db().BeginTrans();
    db().BeginTrans();
    run(u"delete from pdmgy where 雇员ID=7"_qs);
    db().CommitTrans();
    db().RollbackTrans();
    EXPECT_EQ(employees(), 2);
    EXPECT_THROW(db().CommitTrans(), Failure) << "a commit behind a rollback looked like a save";

    db().BeginTrans();
    db().BeginTrans();
    run(u"delete from pdmgy where 雇员ID=7"_qs);
    db().CommitTrans();
    db().CommitTrans();
    EXPECT_TRUE(db().Release());
    EXPECT_EQ(employees(), 1);

    db().BeginTrans();
    run(u"delete from pdmgy"_qs);
    EXPECT_TRUE(db().Release());
    EXPECT_EQ(employees(), 1) << "what was left open is undone";
}

TEST_F(HostDatabaseTest, ALockedDatabaseCanBeReadAndSaysWhyItIsNotWritten)
{
    const auto holder = openFile();
    const auto connection = openFile();
    connection->setLockTimeout(20);
    host::HostDatabase database(*connection);
    holder->begin();
    EXPECT_EQ(modules(database), 7);
    database.CreateQuery(u"delete from host_modules"_qs)->Execute();
    EXPECT_TRUE(database.LastError().Description.contains(u"占用"));
    EXPECT_THROW(database.BeginTrans(), Failure);
    EXPECT_THROW(database.CommitTrans(), Failure);
    database.Release();
    EXPECT_EQ(modules(database), 7);

    host::Application locked(*connection, {agentId, {}, {}}, {m_folder.path(), loginDate}, m_panels);
    QString code;
    EXPECT_FALSE(locked.NewBillCode(101, loginDate, code, false));
    EXPECT_TRUE(locked.LastError().Description.contains(u"占用"));
    holder->rollback();
    EXPECT_TRUE(locked.NewBillCode(101, loginDate, code, false));
    EXPECT_EQ(locked.LastError().Description, QString());
}

TEST_F(HostDatabaseTest, ADatabaseThatCannotBeWrittenGivesNoRightToWrite)
{
    const auto connection = openFile();
    host::grantAll(*connection, agentId);
    for (const QString &mode : {u"rw"_qs, u"ro"_qs}) {
        const auto opened = db::Connection::open(u"file:%1?mode=%2"_qs.arg(m_file, mode));
        host::Application app(*opened, {agentId, {}, {}}, {m_folder.path(), loginDate}, m_panels);
        EXPECT_EQ(app.Db().ReadOnly(), mode == u"ro");
        for (const int right : {RightNew, RightDelete, RightEdit})
            EXPECT_EQ(app.Rights(101)->Allowed(right), mode == u"rw") << right;
    }
}

TEST_F(HostDatabaseTest, ACommitIntoAFileThatWasReplacedIsUndone)
{
    const auto connection = openFile();
    host::HostDatabase database(*connection);
    database.BeginTrans();
    database.CreateQuery(u"delete from host_modules"_qs)->Execute();
    ASSERT_TRUE(QFile::rename(m_file, m_file + u".old"_qs));
    EXPECT_THROW(database.CommitTrans(), Failure);
    EXPECT_TRUE(database.LastError().Description.contains(u"已被移动"));
    EXPECT_EQ(modules(database), 7);
    EXPECT_THROW(database.BeginTrans(), Failure);
}

TEST_F(HostDatabaseTest, PreparingTwiceKeepsWhatWasSet)
{
    execute(u"update host_parameters set valueText='3' where keyText='7'");
    EXPECT_TRUE(host::prepareDatabase(*m_connection).added.isEmpty());
    EXPECT_EQ(m_host->SystemParameter(12, 7).Text, u"3"_qs);
    EXPECT_EQ(value(u"select count(*) from host_modules").toInt(), 7);
}

} // namespace ebtq::test
