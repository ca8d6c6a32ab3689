#include "database/schema/installer.h"
#include "database/schema/tables.h"
#include "support/messages.h"
#include "support/postgres_base.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ebtq::db::test {

namespace {

using ebtq::test::messageOf;
using ::testing::HasSubstr;

std::string installFailure(const QString &url)
{
    return messageOf([&] { install(*Connection::open(url)); });
}

std::string plan(Connection &connection, const char *statement)
{
    const RowBlock rows = connection.queryNative(QByteArray("explain ") + statement);
    std::string text;
    for (qsizetype row = 0; row < rows.rowCount(); ++row)
        text += std::string(rows.cell(row, 0)) + '\n';
    return text;
}

} // namespace

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
    EXPECT_EQ(connection->query(QStringLiteral("select len('ab')")).cell(0, 0), "2");
    connection->executeNative("drop function ebtq.len");
    EXPECT_THAT(messageOf([&] { (void)connection->query(QStringLiteral("select len('ab')")); }),
                HasSubstr("ebtq-admin init"));
}

TEST(Foundation, UsesAnExtensionThatLiesElsewhere)
{
    const ebtq::test::PostgresBase base;
    Connection::open(base.url())
        ->executeNative("create schema addons; create extension citext schema addons");
    const auto connection = Connection::open(base.url());
    install(*connection);
    EXPECT_EQ(connection->query(QStringLiteral("select 1 where 'a'='A'")).rowCount(), 1);
}

TEST(Foundation, SaysWhatAnAdministratorHasToDo)
{
    const QString server = ebtq::test::postgresServer();
    const auto administrator = Connection::open(server);
    administrator->executeNative("create role clerk login password 'clerk'");
    administrator->executeNative("create database latin template template0 encoding 'LATIN1' locale 'C'");
    administrator->executeNative("create database plain template template0 encoding 'UTF8' locale 'C'");
    administrator->executeNative("create database open template template0");
    EXPECT_THAT(installFailure(ebtq::test::withBase(server, QStringLiteral("latin"))),
                HasSubstr("编码不是 UTF8"));
    EXPECT_THAT(installFailure(ebtq::test::withBase(server, QStringLiteral("plain"))), HasSubstr("区域设置"));
    const QString clerk = QStringLiteral("postgresql://clerk:clerk@") + server.section(u'@', 1);
    EXPECT_THAT(installFailure(ebtq::test::withBase(clerk, QStringLiteral("open"))),
                HasSubstr("create extension citext"));
    administrator->executeNative("revoke connect on database open from public");
    EXPECT_THAT(installFailure(ebtq::test::withBase(clerk, QStringLiteral("open"))),
                HasSubstr("没有连接该数据库的权限"));
    administrator->executeNative("alter role clerk nologin");
    EXPECT_THAT(installFailure(ebtq::test::withBase(clerk, QStringLiteral("open"))),
                HasSubstr("不允许此用户登录"));
    administrator->executeNative("alter role clerk login; grant connect, create on database open to clerk");
    EXPECT_EQ(installFailure(ebtq::test::withBase(clerk, QStringLiteral("open"))), "")
        << "nobody need be the server's administrator";
    for (const char *name : {"latin", "plain", "open"})
        administrator->executeNative(QByteArray("drop database ") + name);
    administrator->executeNative("drop role clerk");
}

TEST(Foundation, IndexesServeTheirStatements)
{
    const ebtq::test::PostgresBase base;
    const auto connection = Connection::open(base.url());
    install(*connection);
    connection->executeNative("set enable_seqscan=off; set enable_bitmapscan=off");
    struct Case
    {
        const char *statement;
        const char *index;
    };
    const Case cases[] = {
        {"select 房源编号 from fyxx where 地区='x' order by 房源编号 desc nulls last", "ix_fyxx_district"},
        {"select 房源编号 from fyxx order by 房源编号 desc nulls last", "ix_fyxx_number"},
        {"select 客源编号 from fykh where 客源编号>'x' order by 客源编号 nulls first limit 1",
         "ix_fykh_number"},
        {"select 名称 from pdmsjzd where 类型='x' order by 代码 nulls first", "ix_pdmsjzd_kind"},
    };
    for (const Case &each : cases) {
        EXPECT_THAT(plan(*connection, each.statement), HasSubstr(each.index)) << each.statement;
        EXPECT_THAT(plan(*connection, each.statement), Not(HasSubstr("Sort"))) << each.statement;
    }
}

} // namespace ebtq::db::test
