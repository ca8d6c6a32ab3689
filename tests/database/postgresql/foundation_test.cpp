#include "database/database_test.h"
#include "database/schema/installer.h"
#include "support/postgres_base.h"

namespace ebtq::db::test {

TEST(Foundation, IsBroughtUpWhenAFunctionIsOldAndLeftAloneOtherwise)
{
    const ebtq::test::PostgresBase base;
    const auto connection = Connection::open(base.url());
    EXPECT_FALSE(connection->missingFoundation().isEmpty());
    install(*connection);
    EXPECT_TRUE(connection->missingFoundation().isEmpty());
    connection->executeNative("create or replace function ebtq.len(t text) returns integer language sql"
                              " immutable return 0; comment on schema ebtq is 'ebtq of some other day'");
    EXPECT_THAT(checkSchema(*connection).join(u'\n').toStdString(), HasSubstr("缺少函数"));
    install(*connection);
    EXPECT_EQ(connection->query(u"select len('ab')"_qs).cell(0, 0), "2");
    connection->executeNative("drop function ebtq.len");
    EXPECT_THAT(messageOf([&] { (void)connection->query(u"select len('ab')"_qs); }),
                HasSubstr("ebtq-admin init"));
}

TEST(Foundation, UsesAnExtensionThatLiesElsewhere)
{
    const ebtq::test::PostgresBase base;
    Connection::open(base.url())
        ->executeNative("create schema addons; create extension citext schema addons");
    const auto connection = Connection::open(base.url());
    install(*connection);
    EXPECT_EQ(connection->query(u"select 1 where 'a'='A'"_qs).rowCount(), 1);
}

TEST(Foundation, SaysWhatAnAdministratorHasToDo)
{
    const QString server = ebtq::test::postgresServer();
    const auto administrator = Connection::open(server);
    const auto run = [&](const char *statement) { administrator->executeNative(statement); };
    const QString clerk = u"postgresql://clerk:clerk@"_qs + server.section(u'@', 1);
    const auto failureIn = [](const QString &url, const QString &base) {
        return messageOf([&] { install(*Connection::open(ebtq::test::withBase(url, base))); });
    };
    run("create role clerk login password 'clerk'");
    run("create database latin template template0 encoding 'LATIN1' locale 'C'");
    run("create database plain template template0 encoding 'UTF8' locale 'C'");
    run("create database open template template0");
    EXPECT_THAT(failureIn(server, u"latin"_qs), HasSubstr("编码不是 UTF8"));
    EXPECT_THAT(failureIn(server, u"plain"_qs), HasSubstr("区域设置"));
    const std::tuple<const char *, const char *> steps[] = {
        {"select 1", "create extension citext"},
        {"revoke connect on database open from public", "没有连接该数据库的权限"},
        {"alter role clerk nologin", "不允许此用户登录"},
    };
    for (const auto &[step, message] : steps) {
        run(step);
        EXPECT_THAT(failureIn(clerk, u"open"_qs), HasSubstr(message));
    }
    run("alter role clerk login; grant connect, create on database open to clerk");
    EXPECT_EQ(failureIn(clerk, u"open"_qs), "") << "nobody need be the server's administrator";
    for (const char *end :
         {"drop database latin", "drop database plain", "drop database open", "drop role clerk"})
        run(end);
}

TEST(Foundation, IndexesServeTheirStatements)
{
    const ebtq::test::PostgresBase base;
    const auto connection = Connection::open(base.url());
    install(*connection);
    connection->executeNative("set enable_seqscan=off; set enable_bitmapscan=off");
    const std::pair<const char *, const char *> cases[] = {
        {"select 房源编号 from fyxx where 地区='x' order by 房源编号 desc nulls last", "ix_fyxx_district"},
        {"select 房源编号 from fyxx order by 房源编号 desc nulls last", "ix_fyxx_number"},
        {"select 客源编号 from fykh where 客源编号>'x' order by 客源编号 nulls first limit 1",
         "ix_fykh_number"},
        {"select 名称 from pdmsjzd where 类型='x' order by 代码 nulls first", "ix_pdmsjzd_kind"},
    };
    for (const auto &[statement, index] : cases)
        EXPECT_THAT(planOf(*connection, "explain", statement),
                    AllOf(HasSubstr(index), Not(HasSubstr("Sort"))))
            << statement;
}

} // namespace ebtq::db::test
