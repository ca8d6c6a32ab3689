#include "database/postgresql/postgres_address.h"

#include "database/connection.h"
#include "support/messages.h"
#include "support/postgres_base.h"

#include <QTemporaryFile>

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
    return ebtq::test::messageOf([&] { (void)Connection::open(url); });
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
          "postgresql://wang:s3cret%zz@db/office", "postgresql://wang:s3cret@db/office?sslmode",
          "postgresq://wang:s3cret@db/office", "POSTGRESQL://wang:s3cret@db/office"}) {
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
    EXPECT_EQ(settingsOf("postgresql://a/office?client_encoding=GBK")["client_encoding"], "UTF8");
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

/// A file that only its owner may read, as libpq demands of one with passwords, and the variable that names
/// it.
class SecretFile
{
public:
    SecretFile(const char *variable, const QString &text)
        : m_variable(variable)
    {
        m_file.open();
        m_file.write(text.toUtf8());
        m_file.close();
        qputenv(m_variable, m_file.fileName().toUtf8());
    }
    SecretFile(const SecretFile &) = delete;
    SecretFile &operator=(const SecretFile &) = delete;
    ~SecretFile() { qunsetenv(m_variable); }

private:
    const char *m_variable;
    QTemporaryFile m_file;
};

TEST(PostgresAddress, TakesThePasswordFromTheUsualPlacesAndShowsItNowhere)
{
    const QString server = ebtq::test::postgresServer();
    const QString real = server.section(u':', 2).section(u'@', 0, 0);
    const QString place = server.section(u'@', 1).section(u'/', 0, 0);
    for (const QString &password : {real, QStringLiteral("s3cret"), QStringLiteral("")}) {
        const QString passwords = QStringLiteral("*:*:*:tester:") + password + u'\n';
        const QString service =
            QStringLiteral("[office]\nhost=127.0.0.1\nport=%1\nuser=tester\ndbname=postgres\n%2\n")
                .arg(place.section(u':', 1),
                     password.isEmpty() ? QString() : QStringLiteral("password=") + password);
        struct Case
        {
            const char *variable;
            QString text;
            QString url;
        };
        const QString url = QStringLiteral("postgresql://tester@") + place + QStringLiteral("/postgres");
        const Case cases[] = {
            {"PGPASSFILE", passwords, url},
            {"PGSERVICEFILE", service, QStringLiteral("postgresql:///?service=office")},
            {"PGSERVICEFILE", {}, url + QStringLiteral("?password=") + password},
        };
        for (const Case &each : cases) {
            const SecretFile file(each.variable, each.text);
            const std::string outcome = refusalOf(each.url);
            EXPECT_EQ(outcome.empty(), password == real) << outcome;
            EXPECT_THAT(outcome, HasSubstr(password == real     ? ""
                                           : password.isEmpty() ? "没有提供密码"
                                                                : "用户名或密码不对"))
                << each.url.toStdString();
            EXPECT_TRUE(password.isEmpty() || !QString::fromStdString(outcome).contains(password));
        }
    }
    const SecretFile file("PGSERVICEFILE", {});
    EXPECT_THAT(refusalOf(QStringLiteral("postgresql:///?service=none")),
                HasSubstr("没有这个名称的连接服务"));
}

} // namespace ebtq::db::test
