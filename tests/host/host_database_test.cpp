#include "host/host_database.h"

#include "host/host_fixture.h"

namespace ebtq::test {

class HostDatabaseTest : public HostTest
{
protected:
    HostDb &db() { return m_host->Db(); }
    std::unique_ptr<Recordset> open(const QString &sql) { return db().CreateQuery(sql)->Open(); }
    void run(const QString &sql) { db().CreateQuery(sql)->Execute(); }
    QString error() { return db().LastError().Description; }
    int employees() { return value(u"select count(*) from pdmgy").toInt(); }
};

TEST_F(HostDatabaseTest, RecordsetWalksForwardAndKnowsItsEnds)
{
    const auto rows = open(QStringLiteral("select 雇员ID,姓名 from pdmgy order by 雇员ID"));
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_FALSE(rows->Bof() || rows->Eof());
    EXPECT_EQ(rows->Fields(QStringLiteral("雇员id")).Value, QVariant(7));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields(QStringLiteral("姓名")).Value, QVariant(QStringLiteral("Amy Lee")));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_THROW(rows->Fields(QStringLiteral("姓名")), Failure);
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
}

TEST_F(HostDatabaseTest, EmptyRecordsetIsAtBothEnds)
{
    const auto rows = open(QStringLiteral("select 姓名 from pdmgy where 雇员ID=0"));
    EXPECT_TRUE(rows->Bof() && rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 0);
    EXPECT_EQ(rows->GetRows().rowCount(), 0);
}

TEST_F(HostDatabaseTest, UnknownFieldIsNamed)
{
    const auto rows = open(QStringLiteral("select 姓名 from pdmgy"));
    try {
        (void)rows->Fields(QStringLiteral("工龄"));
        FAIL() << "an unknown column was read";
    } catch (const Failure &failure) {
        EXPECT_EQ(QString::fromUtf8(failure.what()), QStringLiteral("列 工龄 不存在"));
    }
}

TEST_F(HostDatabaseTest, BlockOfRowsIsHandedOutOnce)
{
    const auto rows = open(QStringLiteral("select 姓名 from pdmgy order by 雇员ID"));
    const RowBlock block = rows->GetRows();
    EXPECT_EQ(block.rowCount(), 2);
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_EQ(rows->GetRows().rowCount(), 0);
}

TEST_F(HostDatabaseTest, ScalarIsNullWithoutARow)
{
    EXPECT_EQ(db().CreateQuery(QStringLiteral("select 姓名 from pdmgy where 雇员ID=7"))->Scalar(),
              QVariant(QStringLiteral("陈晓雯")));
    EXPECT_FALSE(
        db().CreateQuery(QStringLiteral("select 姓名 from pdmgy where 雇员ID=0"))->Scalar().isValid());
}

TEST_F(HostDatabaseTest, FailuresBecomeTheLastErrorUntilTheNextSuccess)
{
    const QString broken[] = {QStringLiteral("select 工龄 from pdmgy"),
                              QStringLiteral("select 姓名 from 无此表"),
                              QStringLiteral("insert into pdmgy(雇员ID,姓名) values(7,'重复')"),
                              QStringLiteral("drop table pdmgy"), QString()};
    for (const QString &sql : broken) {
        const auto rows = open(sql);
        ASSERT_NE(rows, nullptr);
        EXPECT_TRUE(rows->Eof()) << sql.toStdString();
        run(sql);
        EXPECT_FALSE(error().isEmpty()) << sql.toStdString();
        EXPECT_FALSE(db().CreateQuery(sql)->Scalar().isValid());
        EXPECT_FALSE(error().isEmpty()) << sql.toStdString();
        run(QStringLiteral("update pdmgy set 姓名='陈晓雯' where 雇员ID=7"));
        EXPECT_EQ(error(), QString());
    }
    EXPECT_EQ(employees(), 2);
}

TEST_F(HostDatabaseTest, TypedApostropheFailsAndChangesNothing)
{
    const SqlText sql = SqlText(QStringLiteral("delete from pdmgy where 姓名='")) +
                        typed(QStringLiteral("x' or '1'='1")) + QStringLiteral("'");
    db().CreateQuery(sql)->Execute();
    EXPECT_TRUE(error().contains(u"单引号")) << error().toStdString();
    EXPECT_EQ(employees(), 2);
}

TEST_F(HostDatabaseTest, ReleaseUndoesWhatWasLeftOpen)
{
    db().BeginTrans();
    run(QStringLiteral("delete from pdmgy"));
    EXPECT_EQ(employees(), 0);
    EXPECT_TRUE(db().Release());
    EXPECT_EQ(employees(), 2);
    EXPECT_TRUE(db().Release());
}

TEST_F(HostDatabaseTest, OnlyTheOutermostCommitWrites)
{
    db().BeginTrans();
    db().BeginTrans();
    run(QStringLiteral("delete from pdmgy where 雇员ID=7"));
    db().CommitTrans();
    db().RollbackTrans();
    EXPECT_EQ(employees(), 2);
    EXPECT_THROW(db().CommitTrans(), Failure) << "a commit behind a rollback looked like a save";

    db().BeginTrans();
    db().BeginTrans();
    run(QStringLiteral("delete from pdmgy where 雇员ID=7"));
    db().CommitTrans();
    db().CommitTrans();
    db().Release();
    EXPECT_EQ(employees(), 1);
}

} // namespace ebtq::test
