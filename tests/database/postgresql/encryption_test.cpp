#include "database/connection.h"
#include "support/postgres_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ebtq::db::test {

namespace {

using ebtq::test::PostgresServer;
using ::testing::HasSubstr;

/// Whether the server sees the connection encrypted: "t" or "f"; else why there is none.
std::string encryption(const QString &url)
{
    try {
        const RowBlock rows =
            Connection::open(url)->queryNative("select ssl from pg_stat_ssl where pid=pg_backend_pid()");
        return std::string(rows.cell(0, 0));
    } catch (const DatabaseError &error) {
        return error.what();
    }
}

} // namespace

TEST(PostgresEncryption, TheServerIsCheckedAsTheUrlSays)
{
    const PostgresServer server(PostgresServer::Wire::Encrypted);
    const auto rootFile = [&](const char *name) {
        return QStringLiteral("&sslrootcert=") + server.file(QString::fromLatin1(name));
    };
    struct Case
    {
        const char *host;
        const char *mode;
        QString root;
        const char *outcome;
    };
    const Case cases[] = {
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
    for (const Case &each : cases) {
        const QString place =
            QString::fromLatin1(each.host) + u':' + server.place().section(u':', 1); // found by "hostaddr"
        const QString url = server.url().replace(server.place(), place) +
                            QStringLiteral("?hostaddr=127.0.0.1&sslmode=") + QString::fromLatin1(each.mode) +
                            each.root;
        const std::string outcome = encryption(url);
        EXPECT_THAT(outcome, HasSubstr(each.outcome)) << each.host << ' ' << each.mode;
        EXPECT_EQ(outcome == "t", std::string(each.outcome) == "t") << outcome;
        EXPECT_THAT(outcome, Not(HasSubstr(server.password().toStdString())));
    }
    EXPECT_THAT(encryption(server.url().replace(server.password(), QStringLiteral("wrong"))),
                HasSubstr("用户名或密码不对"));
}

} // namespace ebtq::db::test
