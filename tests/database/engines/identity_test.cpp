#include "database/schema/identity.h"

#include "database/database_test.h"
#include "database/schema/installer.h"
#include "support/engine_database.h"

namespace ebtq::db::test {

namespace {

using namespace ebtq::test;
using IdentityTest = ::testing::TestWithParam<Engine>;

QByteArray with(QByteArray script, Engine engine)
{
    return engine == Engine::Postgres ? "create schema if not exists ebtq; " + script : script;
}

} // namespace

TEST_P(IdentityTest, WhatIsNotOfThisVersionIsSaidEverywhere)
{
    constexpr char version[] = "create table host_schema(version integer); ";
    // Whether it can be installed over, and whether it may be backed up and restored.
    const std::tuple<const char *, const char *, bool, bool> cases[] = {
        {"", "ebtq-admin init", true, false},
        {"create table notes(text text)", "不是本系统", false, false},
        {"create table host_schema(other integer)", "不是本系统", false, false},
        {"@", "没有记录版本", true, false},
        {"@insert into host_schema values(null)", "没有记录版本", true, false},
        {"@insert into host_schema values(1)", "请先备份，再运行 ebtq-admin init", true, true},
        {"@insert into host_schema values(99)", "请升级程序", false, false},
    };
    for (const auto &[script, message, isInstallable, isOwn] : cases) {
        SCOPED_TRACE(script);
        const EngineDatabase database(GetParam());
        const auto connection = database.connect();
        if (*script)
            connection->executeNative(with(QByteArray(script).replace('@', version), GetParam()));
        EXPECT_THAT(messageOf([&] { requireCurrent(*connection); }), HasSubstr(message));
        EXPECT_THAT(joined(checkSchema(*connection)), HasSubstr(message));
        EXPECT_EQ(messageOf([&] { requireOwn(*connection); }).empty(), isOwn);
        EXPECT_EQ(messageOf([&] { install(*connection); }).empty(), isInstallable);
        EXPECT_EQ(messageOf([&] { requireCurrent(*connection); }).empty(), isInstallable);
    }
}

TEST_P(IdentityTest, TablesOfOthersAreTakenOverOnlyWhenAsked)
{
    const EngineDatabase database(GetParam());
    const auto connection = database.connect();
    connection->executeNative(with("create table notes(text text)", GetParam()));
    EXPECT_THAT(messageOf([&] { install(*connection); }), HasSubstr("--take-over"));
    install(*connection, Foreign::IsTakenOver);
    requireCurrent(*connection);
    EXPECT_TRUE(foreignRoutines(*connection).isEmpty());
    connection->executeNative(
        with(GetParam() == Engine::Postgres
                 ? "create trigger 窃取 after insert on fyxx for each row execute function ebtq.keep_key()"
                 : "create trigger 窃取 after insert on fyxx begin delete from fygj; end",
             GetParam()));
    connection->executeNative("create view 报表 as select 1 as x");
    EXPECT_EQ(joined(foreignRoutines(*connection)), "视图 报表\n触发器 窃取");
}

ON_EACH_ENGINE(IdentityTest);

} // namespace ebtq::db::test
