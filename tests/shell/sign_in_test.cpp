#include "shell/sign_in.h"

#include "database/schema/installer.h"
#include "shell/core_dumps.h"
#include "support/messages.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/prctl.h>
#include <sys/resource.h>

namespace ebtq::shell {
namespace {

using test::messageOf;
using ::testing::HasSubstr;

class SignInTest : public ::testing::Test
{
protected:
    ~SignInTest() override { qunsetenv("EBTQ_PASSWORD"); }
    QString file(const char *name) const { return folder.filePath(QLatin1String(name)); }
    std::unique_ptr<db::Connection> agency() const
    {
        auto connection = db::Connection::open(u":memory:"_qs);
        db::install(*connection);
        host::createUser(*connection, {u"张敏"_qs, u"demo-demo"_qs}, host::PasswordCost::lowest());
        return connection;
    }
    QTemporaryDir folder;
};

TEST_F(SignInTest, SaysWhatToDoAboutADatabaseThatCannotBeUsed)
{
    const auto opening = [this] { return messageOf([&] { (void)openDatabase(file("a.db")); }); };
    EXPECT_THAT(opening(), HasSubstr("ebtq-admin init"));
    EXPECT_FALSE(QFile::exists(file("a.db"))) << "looking must not make one";
    (void)db::Connection::open(file("a.db"), db::Connection::Missing::IsCreated);
    EXPECT_THAT(opening(), HasSubstr("尚未初始化"));
}

TEST_F(SignInTest, APasswordInTheEnvironmentAsksNobody)
{
    const auto connection = agency();
    Options options;
    options.user = u"张敏"_qs;
    qputenv("EBTQ_PASSWORD", "demo-demo");
    const char *place = std::getenv("EBTQ_PASSWORD");
    EXPECT_EQ(signInUser(*connection, options).user->name, u"张敏");
    EXPECT_FALSE(qEnvironmentVariableIsSet("EBTQ_PASSWORD"));
    options.tour = folder.path();
    EXPECT_THAT(messageOf([&] { (void)signInUser(*connection, options); }), HasSubstr("EBTQ_PASSWORD"));
    EXPECT_STREQ(place, "") << "other programs can read it there";
    qputenv("EBTQ_PASSWORD", "wrong");
    EXPECT_NE(messageOf([&] { (void)signInUser(*connection, options); }), "");
}

TEST_F(SignInTest, ACrashWritesNoMemoryToTheDisk)
{
    forbidCoreDumps();
    rlimit limit{1, 1};
    getrlimit(RLIMIT_CORE, &limit);
    EXPECT_EQ(limit.rlim_max, 0U);
    EXPECT_EQ(prctl(PR_GET_DUMPABLE, 0, 0, 0, 0), 0);
    prctl(PR_SET_DUMPABLE, 1, 0, 0, 0);
}

TEST_F(SignInTest, ThePlaceOfTheDatabaseIsTold)
{
    const auto connection = db::Connection::open(file("a.db"), db::Connection::Missing::IsCreated);
    EXPECT_EQ(databasePlace(*connection), u"本地数据库 · %1"_qs.arg(file("a.db")));
    const auto unwritable = db::Connection::open(u"file:%1?mode=ro"_qs.arg(file("a.db")));
    EXPECT_THAT(databasePlace(*unwritable).toStdString(), HasSubstr("（只读，不能保存）"));
}

} // namespace
} // namespace ebtq::shell
