// Servers that go away, come back, follow each other and encrypt.

#include "database/database_test.h"
#include "database/schema/installer.h"
#include "support/postgres_base.h"
#include "support/postgres_server.h"

namespace ebtq::db::test {

namespace {

using ebtq::test::PostgresServer;

class LossTest : public ::testing::Test
{
protected:
    LossTest()
        : m_connection(Connection::open(m_server.url()))
    {
        install(*m_connection);
        execute(u"insert into pdmgy(雇员ID,姓名)values(1,'甲')");
    }
    void execute(const char16_t *statement) { m_connection->execute(QString::fromUtf16(statement)); }
    [[nodiscard]] int count()
    {
        return m_connection->query(u"select count(*) from pdmgy"_qs).value(0, 0).toInt();
    }

    PostgresServer m_server;
    std::unique_ptr<Connection> m_connection;
};

/// Whether the server sees the connection encrypted: "t" or "f"; else why there is none.
std::string encryption(const QString &url)
{
    std::string outcome;
    const std::string failure = messageOf([&] {
        const auto connection = Connection::open(url);
        outcome =
            connection->queryNative("select ssl from pg_stat_ssl where pid=pg_backend_pid()").cell(0, 0);
    });
    return outcome + failure;
}

std::string writeFailure(const QString &url)
{
    return messageOf([&] {
        const auto connection = Connection::open(url);
        connection->execute(u"insert into pdmgy(雇员ID,姓名)values(1,'甲')"_qs);
        connection->execute(u"delete from pdmgy"_qs);
    });
}

} // namespace

TEST_F(LossTest, AServerThatWentAwayIsSaidAndFoundAgain)
{
    m_server.kill();
    for (int time = 0; time < 2; ++time) {
        const std::string message = messageOf([&] { (void)count(); });
        EXPECT_THAT(message, HasSubstr("无法连接数据库服务器"));
        EXPECT_THAT(message, HasSubstr("服务器没有运行"));
        EXPECT_THAT(message, Not(HasSubstr(m_server.password().toStdString()))) << "the password was shown";
    }
    EXPECT_FALSE(m_connection->inTransaction());
    m_server.start();
    EXPECT_EQ(count(), 1);
    m_server.restart();
    execute(u"insert into pdmgy(雇员ID,姓名)values(2,'乙')");
    EXPECT_EQ(count(), 2) << "what nobody noticed needs no message";
}

TEST_F(LossTest, ATransactionIsLostWithItsServer)
{
    using Act = std::function<void()>;
    const Act next[] = {
        [&] { execute(u"insert into pdmgy(雇员ID,姓名)values(3,'丙')"); },
        [&] { (void)count(); },
        [&] { m_connection->commit(); },
        [&] { m_connection->begin(); },
        [&] { m_connection->executeNative("select 1"); },
    };
    for (const Act &act : next) {
        m_connection->begin();
        execute(u"insert into pdmgy(雇员ID,姓名)values(2,'乙')");
        m_server.restart();
        EXPECT_TRUE(m_connection->inTransaction()) << "nobody can know yet";
        EXPECT_THAT(messageOf(act), HasSubstr("事务已丢失"));
        EXPECT_FALSE(m_connection->inTransaction());
        EXPECT_THAT(messageOf([&] { m_connection->commit(); }), HasSubstr("没有保存"));
        EXPECT_EQ(count(), 1);
    }
}

TEST(Loss, AConnectionThatCouldNotBeSetUpIsNotUsed)
{
    const ebtq::test::PostgresBase base;
    const auto connection = Connection::open(base.url());
    install(*connection);
    const auto administrator = Connection::open(base.url());
    administrator->executeNative(
        "create schema broken; create function broken.set_config(text,text,boolean) returns text"
        " language plpgsql as $$begin raise 'no memory'; end$$;"
        "do $$begin execute format('alter database %I set search_path=broken,pg_catalog',current_database());"
        " end$$;"
        "select pg_terminate_backend(pid,10000) from pg_stat_activity"
        " where datname=current_database() and pid<>pg_backend_pid()");
    const auto read = [&] { (void)connection->query(u"select 姓名 from pdmgy"_qs); };
    for (int time = 0; time < 2; ++time)
        EXPECT_THAT(messageOf(read), HasSubstr("无法连接数据库服务器"));
    administrator->executeNative("drop schema broken cascade");
    EXPECT_EQ(messageOf(read), "");
}

/// The server ends while it is at work on a statement, which is not sent again.
TEST_F(LossTest, WhatMayHaveBeenDoneIsNotDoneAgain)
{
    m_connection->executeNative("create function ebtq.end_all() returns integer language sql volatile as"
                                " $$select 1 from pg_terminate_backend(pg_backend_pid())$$;"
                                "create function ebtq.on_insert() returns trigger language plpgsql as"
                                " $$begin perform ebtq.end_all(); return new; end$$;"
                                "create trigger t before insert on pdmgy for each row execute function"
                                " ebtq.on_insert()");
    const auto insert = [&] { execute(u"insert into pdmgy(雇员ID,姓名)values(2,'乙')"); };
    EXPECT_THAT(messageOf(insert), HasSubstr("不能确定操作是否已完成"));
    EXPECT_EQ(count(), 1);
    EXPECT_THAT(messageOf([&] { (void)m_connection->queryNative("select ebtq.end_all()"); }),
                HasSubstr("没有读到数据"));
    m_connection->begin();
    EXPECT_THAT(messageOf(insert), HasSubstr("事务已丢失"));
    EXPECT_FALSE(m_connection->inTransaction());
    m_connection->executeNative("drop trigger t on pdmgy;"
                                "create constraint trigger t after insert on pdmgy initially deferred"
                                " for each row execute function ebtq.on_insert()");
    m_connection->begin();
    insert();
    EXPECT_THAT(messageOf([&] { m_connection->commit(); }), HasSubstr("不能确定数据是否已保存"));
    EXPECT_EQ(count(), 1);
}

TEST(PostgresHosts, TheOneThatCanBeWrittenIsTakenInWhicheverOrder)
{
    const PostgresServer primary;
    install(*Connection::open(primary.url()));
    const PostgresServer standby(PostgresServer::StandbyOf{primary});
    const QString nobody = u"127.0.0.1:1"_qs;
    const std::tuple<QStringList, const char *, const char *> cases[] = {
        // what fails; nothing: it can be written
        {{primary.place(), standby.place()}, "", ""},
        {{standby.place(), primary.place()}, "", ""},
        {{nobody, standby.place(), primary.place()}, "", ""},
        {{standby.place()}, "", "没有可写的服务器"},
        {{nobody, standby.place()}, "", "没有可写的服务器"},
        {{nobody, nobody}, "", "服务器没有运行"},
        {{standby.place(), primary.place()}, "?target_session_attrs=any", "数据库是只读的，不能保存"},
    };
    for (const auto &[hosts, options, message] : cases) {
        const QString places = hosts.join(u',');
        const std::string failure =
            writeFailure(primary.url().replace(primary.place(), places) + QLatin1String(options));
        EXPECT_THAT(failure, HasSubstr(message)) << places.toStdString();
        EXPECT_EQ(failure.empty(), *message == '\0') << places.toStdString() << failure;
        EXPECT_THAT(failure, Not(HasSubstr(primary.password().toStdString())));
    }
}

TEST(PostgresEncryption, TheServerIsCheckedAsTheUrlSays)
{
    const PostgresServer server(PostgresServer::Wire::Encrypted);
    const auto rootFile = [&](const char *name) {
        return u"&sslrootcert="_qs + server.file(QString::fromLatin1(name));
    };
    const std::tuple<const char *, const char *, QString, const char *> cases[] = {
        {"office.test", "verify-full", rootFile("authority.pem"), "t"},
        {"other.test", "verify-ca", rootFile("authority.pem"), "t"},
        {"other.test", "require", {}, "t"},
        {"other.test", "prefer", {}, "t"},
        {"other.test", "verify-full", rootFile("authority.pem"), "服务器的证书不是给这个主机名的"},
        {"office.test", "verify-full", rootFile("stranger.pem"), "服务器的证书不可信"},
        {"office.test", "verify-ca", rootFile("stranger.pem"), "服务器的证书不可信"},
        {"office.test", "verify-full", rootFile("missing.pem"), "找不到用来核对服务器证书的文件"},
        {"office.test", "disable", {}, "服务器只接受加密连接"},
    };
    for (const auto &[host, mode, root, expected] : cases) {
        const QString place =
            QString::fromLatin1(host) + u':' + server.place().section(u':', 1); // found by "hostaddr"
        const std::string outcome =
            encryption(server.url().replace(server.place(), place) + u"?hostaddr=127.0.0.1&sslmode="_qs +
                       QLatin1String(mode) + root);
        EXPECT_THAT(outcome, HasSubstr(expected)) << host << ' ' << mode;
        EXPECT_EQ(outcome == "t", std::string(expected) == "t") << outcome;
        EXPECT_THAT(outcome, Not(HasSubstr(server.password().toStdString())));
    }
    EXPECT_THAT(encryption(server.url().replace(server.password(), u"wrong"_qs)),
                HasSubstr("用户名或密码不对"));
}

} // namespace ebtq::db::test
