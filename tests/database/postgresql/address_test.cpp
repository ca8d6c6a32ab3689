#include "database/postgresql/postgres_address.h"

#include "database/database_test.h"
#include "support/postgres_base.h"

#include <QTemporaryFile>

#include <map>

namespace ebtq::db::test {

namespace {

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
    const std::pair<const char *, const char *> cases[] = {
        {"postgresql://wang:s3cret@db:5433/office", "postgresql://wang@db:5433/office"},
        {"postgres://wang:s%2F%403cret@db/office?sslmode=verify-full&sslpassword=s3cret",
         "postgresql://wang@db/office"},
        {"postgresql://db/office?password=s3cret&user=wang", "postgresql://wang@db/office"},
        {"postgresql://wang:s3cret@a:1,b:2,[::1]:3/office?target_session_attrs=any",
         "postgresql://wang@a:1,b:2,::1:3/office"},
        {"postgresql:///office?host=a,b&port=6000&passfile=/s3cret", "postgresql://a:6000,b:6000/office"},
        {"postgresql:///?service=office", "postgresql:///"},
    };
    for (const auto &[url, shown] : cases)
        EXPECT_EQ(Connection::shownLocation(QString::fromUtf8(url)).toStdString(), shown);
    EXPECT_EQ(Connection::shownLocation(u"/home/a.db"_qs), u"/home/a.db"_qs);
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
        EXPECT_EQ(Connection::shownLocation(QString::fromUtf8(url)), u"postgresql://…"_qs);
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
    const std::pair<QString, const char *> cases[] = {
        {u"postgresql://tester:wrong@"_qs + place, "用户名或密码不对"},
        {u"postgresql://tester@"_qs + place, "没有提供密码"},
        {ebtq::test::withBase(server, u"none"_qs), "没有这个数据库"},
        {u"postgresql://u@127.0.0.1:1/x"_qs, "服务器没有运行"},
        {server + u"?sslmode=require"_qs, "无法建立加密连接"},
        {server + u"?target_session_attrs=standby"_qs, "无法连接"},
    };
    for (const auto &[url, message] : cases)
        EXPECT_THAT(refusalOf(url), HasSubstr(message));
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
    for (const QString &password : {real, u"s3cret"_qs, u""_qs}) {
        const QString passwords = u"*:*:*:tester:"_qs + password + u'\n';
        const QString service =
            u"[office]\nhost=127.0.0.1\nport=%1\nuser=tester\ndbname=postgres\n%2\n"_qs.arg(
                place.section(u':', 1), password.isEmpty() ? QString() : u"password="_qs + password);
        const QString url = u"postgresql://tester@"_qs + place + u"/postgres"_qs;
        const std::tuple<const char *, QString, QString> cases[] = {
            {"PGPASSFILE", passwords, url},
            {"PGSERVICEFILE", service, u"postgresql:///?service=office"_qs},
            {"PGSERVICEFILE", {}, url + u"?password="_qs + password},
        };
        for (const auto &[variable, text, location] : cases) {
            const SecretFile file(variable, text);
            const std::string outcome = refusalOf(location);
            EXPECT_EQ(outcome.empty(), password == real) << outcome;
            EXPECT_THAT(outcome, HasSubstr(password == real     ? ""
                                           : password.isEmpty() ? "没有提供密码"
                                                                : "用户名或密码不对"));
            EXPECT_TRUE(password.isEmpty() || !QString::fromStdString(outcome).contains(password));
        }
    }
    const SecretFile file("PGSERVICEFILE", {});
    EXPECT_THAT(refusalOf(u"postgresql:///?service=none"_qs), HasSubstr("没有这个名称的连接服务"));
}

} // namespace ebtq::db::test
