#include "host/followups/reminders.h"

#include "host/host_fixture.h"
#include "host/rights.h"
#include "support/messages.h"

namespace ebtq::test {

using namespace host;

/// Reminders that are due on the business date: one's own, another's, and one on a listing that is gone.
class RemindersTest : public HostTest
{
protected:
    RemindersTest()
    {
        setRight(*m_connection, agentId, FollowUpModule, RightEdit, false);
        execute(u"insert into fyxx(房源ID) values('L1')");
        execute(u"insert into fykh(客源ID) values('C1')");
        add(u"own"_qs, agentId.toLower(), u"L1"_qs);
        add(u"other"_qs, u"U9"_qs, u"C1"_qs);
        add(u"lost"_qs, agentId, u"L9"_qs);
    }
    void add(const QString &key, const QString &user, const QString &owner)
    {
        m_connection->execute(
            u"insert into fygj(跟进ID,用户ID,房源ID,下次提醒,提醒日期,处理结果) values('%1','%2','%3',1,"
            u"#2019-11-24#,'')"_qs.arg(key, user, owner));
    }
    /// Empty when it was done, else what the person is told.
    QString refusal(const std::function<void()> &act) { return QString::fromStdString(messageOf(act)); }
    QString row(const QString &key)
    {
        return m_connection
            ->query(SqlText(
                u"select 处理结果 & '|' & 处理日期 & '|' & 提醒日期 from fygj where 跟进ID='%1'"_qs.arg(key)))
            .value(0, 0)
            .toString();
    }
    const QDate today = loginDate.addDays(2); ///< of the clock
};

TEST_F(RemindersTest, OneIsSettledOnceByWhoMay)
{
    const Reminder own = readReminder(*m_host, u"own"_qs);
    EXPECT_EQ(refusal([&] { settleReminder(*m_host, own, u" \n"_qs, today); }), u"请输入处理结果！");
    EXPECT_FALSE(refusal([&] { settleReminder(*m_host, own, u"o'b"_qs, today); }).isEmpty());
    EXPECT_EQ(row(u"own"_qs), u"||2019-11-24");
    EXPECT_EQ(refusal([&] { settleReminder(*m_host, own, u" 已约 "_qs, today); }), QString());
    EXPECT_EQ(row(u"own"_qs), u"已约|2019-11-26|2019-11-24");
    EXPECT_EQ(refusal([&] { settleReminder(*m_host, own, u"再约"_qs, today); }),
              u"这条提醒已被他人处理，没有保存！处理结果：已约");
    EXPECT_EQ(refusal([&] { requireOpenReminder(*m_host, readReminder(*m_host, u"own"_qs)); }),
              u"这条提醒已处理过，请刷新列表！处理结果：已约");
    EXPECT_EQ(row(u"own"_qs), u"已约|2019-11-26|2019-11-24");

    const Reminder other = readReminder(*m_host, u"other"_qs);
    EXPECT_EQ(refusal([&] { settleReminder(*m_host, other, u"好"_qs, today); }),
              u"这条跟进是他人所写，您没有修改跟进的权限！");
    setRight(*m_connection, agentId, FollowUpModule, RightEdit, true);
    EXPECT_EQ(refusal([&] { settleReminder(*m_host, other, u"好"_qs, today); }), QString());
    execute(u"delete from fygj where 跟进ID='lost'");
    EXPECT_EQ(refusal([&] { (void)readReminder(*m_host, u"lost"_qs); }), u"这条跟进已被删除，请刷新列表！");
}

TEST_F(RemindersTest, OneIsPutOffFromTheDayThatWasSeen)
{
    const Reminder seen = readReminder(*m_host, u"own"_qs);
    EXPECT_EQ(refusal([&] { postponeReminder(*m_host, seen, loginDate.addDays(-1)); }),
              u"提醒日期不能早于业务日期！");
    EXPECT_EQ(refusal([&] { postponeReminder(*m_host, seen, loginDate.addDays(3)); }), QString());
    EXPECT_EQ(row(u"own"_qs), u"||2019-11-27");
    EXPECT_EQ(refusal([&] { postponeReminder(*m_host, seen, loginDate.addDays(7)); }),
              u"这条提醒已被他人改到 2019-11-27，没有保存！");
}

TEST_F(RemindersTest, TheRecordBehindOneIsFoundInItsModule)
{
    const auto source = [&](const QString &key) { return sourceOf(*m_host, readReminder(*m_host, key)); };
    EXPECT_EQ(source(u"own"_qs).module, ListingModule);
    EXPECT_EQ(source(u"other"_qs).module, CustomerModule);
    EXPECT_EQ(source(u"other"_qs).key, u"C1");
    EXPECT_EQ(refusal([&] { (void)source(u"lost"_qs); }), u"这条跟进的来源已被删除！");
}

TEST_F(RemindersTest, ChangedTablesAreToldWhenTheyAreCommitted)
{
    QStringList told;
    m_host->setChangeReport([&](const QString &table) { told += table; });
    HostDb &db = m_host->Db();
    const auto run = [&](const QString &sql) { db.CreateQuery(sql)->Execute(); };
    db.BeginTrans();
    run(u"update fygj set 提醒内容='回电'"_qs);
    EXPECT_EQ(told, QStringList());
    db.CommitTrans();
    EXPECT_EQ(told, QStringList(u"fygj"_qs));
    db.BeginTrans();
    run(u"delete from fygj"_qs);
    db.RollbackTrans();
    run(u"insert into nowhere(a) values(1)"_qs);
    run(u" INSERT  into fykh(客源ID) values('C2')"_qs);
    EXPECT_EQ(told.join(u','), u"fygj,fykh");
}

} // namespace ebtq::test
