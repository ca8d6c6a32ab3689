#include "host/users.h"

#include "host/host_fixture.h"
#include "host/rights.h"
#include "host/setup.h"
#include "host/start/agency.h"
#include "support/messages.h"

namespace ebtq::test {

using host::createUser;
using host::PasswordCost;
using host::signIn;

class UsersTest : public HostTest
{
protected:
    QString signInFailure(const QString &name, const QString &password)
    {
        return QString::fromStdString(messageOf([&] {
            (void)signIn(*m_connection, name, password, [this](const QString &line) { m_log += line; });
        }));
    }
    QStringList m_log;
    const QString m_name = u"梁佳宁"_qs;
    const QString m_password = u"暗号 'x' #1"_qs;
};

TEST_F(UsersTest, SignsInWithNameAndPasswordAlone)
{
    const QString id = createUser(*m_connection, {m_name, m_password, 6}, PasswordCost::lowest());
    const host::User user = signIn(*m_connection, m_name, m_password);
    EXPECT_EQ(user.id, id);
    EXPECT_FALSE(id.contains(u'{'));
    EXPECT_EQ(user.name, m_name);
    EXPECT_EQ(user.department, u"营业二部"_qs);
    EXPECT_FALSE(value(u"select password from host_users").toString().contains(m_password));
    host::setPassword(*m_connection, m_name, u"new password"_qs, PasswordCost::lowest());
    EXPECT_FALSE(signInFailure(m_name, m_password).isEmpty());
    EXPECT_EQ(signInFailure(m_name, u"new password"_qs), QString());
    EXPECT_THROW(host::setPassword(*m_connection, u"无此人"_qs, m_password, PasswordCost::lowest()), Failure);
}

TEST_F(UsersTest, ATemporaryPasswordIsToBeChangedForAnotherOne)
{
    createUser(*m_connection, {m_name, m_password}, PasswordCost::lowest());
    EXPECT_FALSE(signIn(*m_connection, m_name, m_password).mustChangePassword);
    host::setPassword(*m_connection, m_name, m_password, PasswordCost::lowest(),
                      host::PasswordUse::UntilSignIn);
    EXPECT_TRUE(signIn(*m_connection, m_name, m_password).mustChangePassword);
    const auto change = [this](const QString &present, const QString &wanted) {
        return messageOf([&] { host::changeOwnPassword(*m_connection, m_name, present, wanted); });
    };
    EXPECT_NE(change(m_password, m_password), "");
    EXPECT_NE(change(u"wrong"_qs, u"new password"_qs), "");
    EXPECT_NE(change(m_password, u"short"_qs), "");
    EXPECT_EQ(change(m_password, u"new password"_qs), "");
    EXPECT_FALSE(signIn(*m_connection, m_name, u"new password"_qs).mustChangePassword);
}

TEST_F(UsersTest, RefusalsDoNotTellWhatWasWrongAndTheLogNotWhatWasTyped)
{
    createUser(*m_connection, {m_name, m_password}, PasswordCost::lowest());
    const QString refusal = signInFailure(m_name, u"wrong"_qs);
    EXPECT_FALSE(refusal.isEmpty());
    for (const QString &name : {u"无此人"_qs, QString(), u"' or '1'='1"_qs})
        EXPECT_EQ(signInFailure(name, m_password), refusal) << name.toStdString();
    EXPECT_EQ(signInFailure(m_name, QString()), refusal);
    execute(u"update host_users set isActive=0");
    EXPECT_EQ(signInFailure(m_name, m_password), refusal);
    EXPECT_EQ(m_log.filter(m_name).size(), 3);
    EXPECT_FALSE(m_log.join(u'\n').contains(m_password) || m_log.join(u'\n').contains(u"无此人"));
}

TEST_F(UsersTest, NewUsersNeedAFreeNameAndAPassword)
{
    createUser(*m_connection, {m_name, m_password}, PasswordCost::lowest());
    const host::NewUser refused[] = {
        {m_name, m_password},           {u"  "_qs, m_password},
        {u"乙"_qs, QString()},          {u"乙"_qs, u"1234567"_qs},
        {u"O'Neil"_qs, m_password},     {u"乙\t丙"_qs, m_password},
        {u"乙\u0085丙"_qs, m_password}, {u"乙"_qs + QChar(QChar::Null), m_password}};
    for (const host::NewUser &user : refused)
        EXPECT_THROW(createUser(*m_connection, user, PasswordCost::lowest()), Failure)
            << user.name.toStdString();
    createUser(*m_connection, {u" 𠮷田 一 "_qs, m_password}, PasswordCost::lowest());
    EXPECT_EQ(signInFailure(u"𠮷田 一"_qs, m_password), QString());
    EXPECT_EQ(value(u"select count(*) from host_users").toInt(), 2);
    EXPECT_FALSE(m_connection->inTransaction());
}

TEST_F(UsersTest, RightsAreGrantedByRowsAlone)
{
    const auto allowed = [this](int moduleId, int right) { return m_host->Rights(moduleId)->Allowed(right); };
    EXPECT_FALSE(allowed(101, RightEdit));
    host::setRight(*m_connection, agentId, 101, RightEdit, true);
    EXPECT_TRUE(allowed(101, RightEdit));
    EXPECT_FALSE(allowed(102, RightEdit)) << "a right on one module counted for another";
    EXPECT_FALSE(allowed(101, RightDelete));
    host::setRight(*m_connection, agentId, 101, RightEdit, false);
    EXPECT_FALSE(allowed(101, RightEdit));
    execute(u"delete from host_rights");
    host::setRight(*m_connection, u"somebody else"_qs, 101, RightEdit, true);
    EXPECT_FALSE(allowed(101, RightEdit));
}

TEST_F(UsersTest, FirstUserHasEveryRightAndIsTheOnlyFirst)
{
    const host::NewAgency agency{{}, u"总部"_qs, m_name, m_password, {}, {}};
    host::createAgency(*m_connection, agency);
    const QString id = signIn(*m_connection, m_name, m_password).id;
    for (const int right : {RightNew, RightDelete, RightEdit}) {
        EXPECT_TRUE(host::ModuleRights(*m_connection, id, 101).Allowed(right));
        EXPECT_TRUE(host::ModuleRights(*m_connection, id, 203).Allowed(right));
    }
    EXPECT_THROW(host::createAgency(*m_connection, agency), Failure);
}

TEST_F(UsersTest, AnAdministratorHasTheModulesOfANewProgram)
{
    host::createAgency(*m_connection, {{}, u"总部"_qs, m_name, m_password, {}, {}});
    const QString other = createUser(*m_connection, {u"乙"_qs, m_password}, PasswordCost::lowest());
    host::setRight(*m_connection, other, 101, RightEdit, true);
    execute(u"delete from host_modules where moduleID=203");
    execute(u"delete from host_rights where moduleID=203");
    host::prepareDatabase(*m_connection);
    const QString id = signIn(*m_connection, m_name, m_password).id;
    EXPECT_TRUE(host::ModuleRights(*m_connection, id, 203).Allowed(RightDelete));
    EXPECT_FALSE(host::ModuleRights(*m_connection, other, 203).Allowed(RightEdit));
}

} // namespace ebtq::test
