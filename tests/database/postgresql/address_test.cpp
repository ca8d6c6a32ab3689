#include "database/postgresql/postgres_address.h"

#include "database/connection.h"
#include "support/postgres_base.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace ebtq::db::test {

namespace {

using ::testing::HasSubstr;

/// What libpq is given: of two settings of one name the later one counts.
std::map<std::string, std::string> settingsOf(const char *url)
{
    const PostgresAddress address(QString::fromUtf8(url));
    std::map<std::string, std::string> settings;
    for (size_t at = 0; address.keywords()[at]; ++at)
        settings[address.keywords()[at]] = address.values()[at];
    return settings;
}

std::string refusalOf(const QString &url)
{
    try {
        (void)Connection::open(url);
    } catch (const DatabaseError &error) {
        return error.what();
    }
    return "opened";
}

} // namespace

TEST(PostgresAddress, ShowsNoSecret)
{
    struct Case
    {
        const char *url;
        const char *shown;
    };
    const Case cases[] = {
        {"postgresql://wang:s3cret@db:5433/office", "postgresql://wang@db:5433/office"},
        {"postgres://wang:s%2F%403cret@db/office?sslmode=verify-full&sslpassword=s3cret",
         "postgresql://wang@db/office"},
        {"postgresql://db/office?password=s3cret&user=wang", "postgresql://wang@db/office"},
        {"postgresql://wang:s3cret@a:1,b:2,[::1]:3/office?target_session_attrs=any",
         "postgresql://wang@a:1,b:2,::1:3/office"},
        {"postgresql:///office?host=a,b&port=6000&passfile=/s3cret", "postgresql://a:6000,b:6000/office"},
        {"postgresql:///?service=office", "postgresql:///"},
    };
    for (const Case &each : cases)
        EXPECT_EQ(Connection::shownLocation(QString::fromUtf8(each.url)).toStdString(), each.shown);
    EXPECT_EQ(Connection::shownLocation(QStringLiteral("/home/a.db")), QStringLiteral("/home/a.db"));
}

TEST(PostgresAddress, RefusesWhatItCannotReadWithoutQuotingIt)
{
    for (const char *url :
         {"postgresql://wang:s3cret@[::1/office", "postgresql://wang:s3cret@db/office?colour=s3cret",
          "postgresql://wang:s3cret%zz@db/office", "postgresql://wang:s3cret@db/office?sslmode"}) {
        const std::string message = refusalOf(QString::fromUtf8(url));
        EXPECT_THAT(message, HasSubstr("数据库地址有误")) << url;
        EXPECT_THAT(message, Not(HasSubstr("s3cret"))) << url;
        EXPECT_EQ(Connection::shownLocation(QString::fromUtf8(url)), QStringLiteral("postgresql://…"));
    }
}

TEST(PostgresAddress, WantsTheHostThatCanBeWrittenAndDoesNotWaitForever)
{
    auto settings = settingsOf("postgresql://a,b/office");
    EXPECT_EQ(settings["target_session_attrs"], "read-write");
    for (const char *bound : {"connect_timeout", "keepalives_idle", "keepalives_interval", "keepalives_count",
                              "tcp_user_timeout"})
        EXPECT_GT(std::stoi(settings[bound]), 0) << bound;
    settings = settingsOf("postgresql://a,b/office?target_session_attrs=any&connect_timeout=2");
    EXPECT_EQ(settings["target_session_attrs"], "any");
    EXPECT_EQ(settings["connect_timeout"], "2");
}

TEST(PostgresAddress, SaysWhyNoConnectionCameAbout)
{
    const QString server = ebtq::test::postgresServer();
    const QString place = server.section(u'@', 1);
    EXPECT_THAT(refusalOf(QStringLiteral("postgresql://tester:wrong@") + place),
                HasSubstr("用户名或密码不对"));
    EXPECT_THAT(refusalOf(QStringLiteral("postgresql://tester@") + place), HasSubstr("没有提供密码"));
    EXPECT_THAT(refusalOf(ebtq::test::withBase(server, QStringLiteral("none"))), HasSubstr("没有这个数据库"));
    EXPECT_THAT(refusalOf(QStringLiteral("postgresql://u@127.0.0.1:1/x")), HasSubstr("服务器没有运行"));
    EXPECT_THAT(refusalOf(server + QStringLiteral("?sslmode=require")), HasSubstr("无法建立加密连接"));
    EXPECT_THAT(refusalOf(server + QStringLiteral("?target_session_attrs=standby")), HasSubstr("无法连接"));
}

TEST(PostgresAddress, TakesThePasswordFromTheFileAndTheNextHostWhenOneIsGone)
{
    const QString server = ebtq::test::postgresServer();
    const QString password = server.section(u':', 2).section(u'@', 0, 0);
    const QString place = server.section(u'@', 1);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("pass")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("*:*:*:tester:" + password.toUtf8() + '\n');
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.close();
    qputenv("PGPASSFILE", file.fileName().toUtf8());
    const auto connection = Connection::open(QStringLiteral("postgresql://tester@127.0.0.1:1,") + place);
    EXPECT_EQ(connection->location(), QStringLiteral("postgresql://tester@127.0.0.1:1,") + place);
    EXPECT_EQ(connection->queryNative("select 1").cell(0, 0), "1");
    qunsetenv("PGPASSFILE");
}

} // namespace ebtq::db::test
