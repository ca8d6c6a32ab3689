#include "database/connection.h"
#include "database/schema/installer.h"
#include "support/messages.h"
#include "support/postgres_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ebtq::db::test {

namespace {

using ebtq::test::messageOf;
using ebtq::test::PostgresServer;
using ::testing::HasSubstr;

std::string writeFailure(const QString &url)
{
    return messageOf([&] {
        const auto connection = Connection::open(url);
        connection->execute(QStringLiteral("insert into pdmgy(雇员ID,姓名)values(1,'甲')"));
        connection->execute(QStringLiteral("delete from pdmgy"));
    });
}

} // namespace

TEST(PostgresHosts, TheOneThatCanBeWrittenIsTakenInWhicheverOrder)
{
    const PostgresServer primary;
    install(*Connection::open(primary.url()));
    const PostgresServer standby(PostgresServer::StandbyOf{primary});
    const QString nobody = QStringLiteral("127.0.0.1:1");
    struct Case
    {
        QStringList places;
        const char *options;
        const char *failure; ///< empty: it can be written
    };
    const Case cases[] = {
        {{primary.place(), standby.place()}, "", ""},
        {{standby.place(), primary.place()}, "", ""},
        {{nobody, standby.place(), primary.place()}, "", ""},
        {{standby.place()}, "", "没有可写的服务器"},
        {{nobody, standby.place()}, "", "没有可写的服务器"},
        {{nobody, nobody}, "", "服务器没有运行"},
        {{standby.place(), primary.place()}, "?target_session_attrs=any", "数据库是只读的，不能保存"},
    };
    for (const Case &each : cases) {
        const QString places = each.places.join(u',');
        const std::string failure =
            writeFailure(primary.url().replace(primary.place(), places) + QString::fromLatin1(each.options));
        EXPECT_THAT(failure, HasSubstr(each.failure)) << places.toStdString();
        EXPECT_EQ(failure.empty(), *each.failure == '\0') << places.toStdString() << failure;
        EXPECT_THAT(failure, Not(HasSubstr(primary.password().toStdString())));
    }
}

} // namespace ebtq::db::test
