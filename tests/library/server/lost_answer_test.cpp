#include "library/customers/frm_kh.h"
#include "library/followups/frm_gj.h"
#include "library/listings/frm_fx_fixture.h"
#include "support/postgres_base.h"
#include "support/postgres_server.h"

#include <QDeadlineTimer>

#include <gmock/gmock.h>

#include <thread>

using namespace ebtq;
using ebtq::test::FrmFxTest;
using ebtq::test::PostgresBase;
using ebtq::test::PostgresServer;
using ::testing::HasSubstr;

namespace {

/// Returns as soon as a statement gives a row.
void waitFor(db::Connection &connection, const char *statement)
{
    const QDeadlineTimer deadline(20000);
    while (!deadline.hasExpired() && connection.queryNative(statement).rowCount() == 0)
        std::this_thread::yield();
}

struct OwnServer
{
    PostgresServer server;
};

/// A save reaches the disk, and the connection breaks before the server's answer: the server is made to wait
/// for a standby that is not there, and is ended while it waits.
class LostAnswerTest : private OwnServer, public FrmFxTest
{
protected:
    LostAnswerTest()
        : FrmFxTest(server.url())
    {
        connection->executeNative("alter system set synchronous_standby_names='nobody'");
        server.restart();
    }
    /// The first commit that waits gets no answer. A listing's number does not wait: its row would be lost
    /// here.
    void loseAnswerOf(const std::function<void()> &saving) const
    {
        const auto administrator = db::Connection::open(server.url());
        std::thread ending([&] {
            waitFor(*administrator,
                    "select pg_terminate_backend(pid) from pg_stat_activity where wait_event='SyncRep'");
        });
        saving();
        ending.join();
    }
    /// Nobody waits any more.
    void mendServer() const
    {
        server.start();
        db::Connection::open(server.url())->executeNative("alter system reset synchronous_standby_names");
        server.restart();
    }
    /// The person is told.
    void saveAndLoseAnswer(const std::function<void()> &saving)
    {
        desktop.willAnswer(Desktop::Answer::Ok);
        loseAnswerOf(saving);
        EXPECT_THAT(onlyMessage(), HasSubstr("不能确定操作是否已完成，请核对后再重试"));
    }
    void kill() const { server.kill(); }
    void deleteWithoutWaiting() const
    {
        connection->executeNative("begin; set local synchronous_commit to local; delete from fyxx; commit");
    }
};

/// The parameter: whether the save has come through.
class LostListingTest : public LostAnswerTest, public ::testing::WithParamInterface<bool>
{};

TEST_P(LostListingTest, IsWrittenOnceWhenItIsSavedAgain)
{
    open({}, [&] {
        fill(form, required);
        form.qzFcTxt(EditorNumber::Room).setText(u"1201"_qs);
        saveAndLoseAnswer([&] { save(); });
        EXPECT_EQ(text(EditorNumber::Room), u"1201");
        EXPECT_EQ(events, QStringList());
        ASSERT_EQ(stored(u"房号"_qs), u"1201");
        const QString number = stored(u"房源编号"_qs);
        if (!GetParam())
            deleteWithoutWaiting();

        kill();
        save({Desktop::Answer::Ok});
        EXPECT_THAT(onlyMessage(), HasSubstr("无法连接数据库服务器"));
        mendServer();
        form.qzFcTxt(EditorNumber::Room).setText(u"1202"_qs);
        save({Desktop::Answer::No});
        EXPECT_THAT(onlyMessage(), HasSubstr("是否继续新建"));
        EXPECT_EQ(stored(u"房号"_qs), u"1202") << "one row, with what was typed last";
        EXPECT_EQ(stored(u"房源编号"_qs) == number, GetParam())
            << "another server may give the number of a lost row to somebody else";
        EXPECT_EQ(stored(u"房源ID"_qs), saved);
    });
    EXPECT_EQ(events, u"new closed"_qs.split(u' '));
}

INSTANTIATE_TEST_SUITE_P(Saves, LostListingTest, ::testing::Bool(), [](const auto &cameThrough) {
    return cameThrough.param ? "CameThrough" : "GotLost";
});

/// A colleague's save is under way while this one looks for changes: it waits for the outcome.
class TwoPeopleTest : protected PostgresBase, public FrmFxTest
{
protected:
    TwoPeopleTest()
        : FrmFxTest(PostgresBase::url())
    {}
};

TEST_F(TwoPeopleTest, NoChangeSlipsBetweenTheLookAndTheSave)
{
    const QString id = makeListing();
    open(id, [&] {
        form.qzFcTxt(EditorNumber::Owner).setText(u"新"_qs);
        const auto colleague = db::Connection::open(url());
        colleague->begin();
        colleague->execute(u"update fyxx set 手机='138'"_qs);
        std::thread committing([&] {
            waitFor(*db::Connection::open(url()),
                    "select 1 from pg_stat_activity where wait_event_type='Lock'");
            colleague->commit();
        });
        desktop.willChoose(0);
        save();
        committing.join();
        EXPECT_THAT(onlyMessage(), HasSubstr("手机：（空） → 138"));
    });
    EXPECT_EQ(stored(u"业主 & 手机"_qs), u"新138");
}

TEST_F(TwoPeopleTest, AServerLostBetweenTheLookAndTheSaveSavesNothing)
{
    const QString id = makeListing();
    open(id, [&] {
        form.qzFcTxt(EditorNumber::Owner).setText(u"新"_qs);
        app.asRun = [this](const SqlText &sql) {
            if (sql.text().startsWith(u"update fyxx set 房源编号"))
                db::Connection::open(url())->queryNative(
                    "select pg_terminate_backend(pid) from pg_stat_activity"
                    " where datname=current_database() and pid<>pg_backend_pid()");
            return sql;
        };
        save({Desktop::Answer::Ok});
        EXPECT_THAT(onlyMessage(), HasSubstr("没有保存"));
        EXPECT_EQ(text(EditorNumber::Owner), u"新");
        EXPECT_EQ(stored(u"业主"_qs), u"陈先生");
        app.asRun = [](const SqlText &sql) { return sql; };
        save();
    });
    EXPECT_EQ(stored(u"业主"_qs), u"新");
}

TEST_F(LostAnswerTest, AFollowUpIsWrittenOnce)
{
    FrmGj followUp(desktop);
    desktop.willShow([&](QObject &) {
        followUp.Txt().setText(u"来电"_qs);
        saveAndLoseAnswer([&] { followUp.Cmd(0).press(); });
        kill();
        mendServer();
        followUp.Txt().setText(u"又来电"_qs);
        followUp.Cmd(0).press();
    });
    followUp.py_Init(app, u"L1"_qs, {}, false);
    const RowBlock kept = rows(u"select 跟进内容,用户ID from fygj"_qs);
    ASSERT_EQ(kept.rowCount(), 1);
    EXPECT_EQ(kept.value(0, 0).toString() + kept.value(0, 1).toString(), u"又来电U1");
}

TEST_F(LostAnswerTest, ACustomerIsWrittenOnceAndThenChangedAndReadBack)
{
    frmKh customer(desktop);
    desktop.willShow([&](QObject &) {
        for (const auto &[number, text] : {std::pair(1, u"甲"_qs), {4, u"138"_qs}, {15, u"1,250.5"_qs}})
            customer.qzTxt(number).setText(text);
        saveAndLoseAnswer([&] { customer.Cmd(0).press(); });
        kill();
        mendServer();
        desktop.willAnswer(Desktop::Answer::No);
        customer.Cmd(0).press();
        EXPECT_THAT(onlyMessage(), HasSubstr("是否继续新建"));
        customer.Opt(1).setValue(1);
        customer.Cmd(0).press();
        customer.RecordTop();
        EXPECT_EQ(customer.qzTxt(0).Text() + customer.qzTxt(15).Text(), u"KY20261100011250.5");
        EXPECT_EQ(customer.recordPosition() + customer.recordCount() + customer.Opt(1).Value(), 3);
    });
    customer.py_Init(app, host::CustomerModule, {}, false);
    EXPECT_EQ(rows(u"select 客源ID from fykh where 状态=1"_qs).rowCount(), 1);
}

} // namespace
