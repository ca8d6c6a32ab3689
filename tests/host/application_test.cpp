#include "host/application.h"

#include "host/host_fixture.h"
#include "host/host_parameters.h"

#include <QDir>
#include <QFile>

namespace ebtq::test {

using ApplicationTest = HostTest;

TEST_F(ApplicationTest, SessionTellsWhoWhenAndWhere)
{
    HostSession &session = m_host->Session();
    EXPECT_EQ(session.UserID(), u'{' + agentId + u'}');
    EXPECT_EQ(session.UserName(), QStringLiteral("陈晓雯"));
    EXPECT_EQ(session.LoginDate(), loginDate);
    EXPECT_TRUE(QDir(session.AppPath()).exists());
    EXPECT_FALSE(session.AppPath().endsWith(u'/'));
}

TEST_F(ApplicationTest, PrintContextIsTheProgramsWhileItLives)
{
    EXPECT_EQ(m_host->PrintEnv().PrintContext(), nullptr);
    {
        QObject engine;
        m_host->setPrintContext(&engine);
        EXPECT_EQ(m_host->PrintEnv().PrintContext(), &engine);
    }
    EXPECT_EQ(m_host->PrintEnv().PrintContext(), nullptr);
    EXPECT_EQ(m_host->PrintEnv().PrintFolder(), m_host->Session().AppPath());
}

TEST_F(ApplicationTest, AWorkingFolderThatCannotBeMadeIsAFailure)
{
    QFile file(m_folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    const host::Settings settings{file.fileName() + QStringLiteral("/work"), loginDate};
    EXPECT_THROW(host::Application(*m_connection, {}, settings, m_panels), Failure);
}

TEST_F(ApplicationTest, ParametersFallBackToTheSystems)
{
    const auto ofUser = [this](const QVariant &key) { return m_host->UserParameter(12, key).Text; };
    const QString key = QStringLiteral("MouseEventScrollRate");
    EXPECT_EQ(ofUser(key), QString());
    host::setParameter(*m_connection, {}, 12, key, QStringLiteral("5"));
    EXPECT_EQ(ofUser(key), QStringLiteral("5"));
    host::setParameter(*m_connection, agentId, 12, key, QStringLiteral("8"));
    host::setParameter(*m_connection, QStringLiteral("somebody else"), 12, key, QStringLiteral("9"));
    EXPECT_EQ(ofUser(QStringLiteral("mouseeventscrollrate")), QStringLiteral("8"));
    EXPECT_EQ(m_host->SystemParameter(12, key).Text, QStringLiteral("5"));
    EXPECT_EQ(m_host->UserParameter(11, key).Text, QString());
    host::setParameter(*m_connection, agentId, 12, key, QString());
    EXPECT_EQ(ofUser(key), QString()) << "an empty value of the user's own is a value";
}

TEST_F(ApplicationTest, DefaultsStandUnderNumbersAndTexts)
{
    for (int key = 7; key <= 14; ++key)
        EXPECT_EQ(m_host->SystemParameter(12, key).Text, QStringLiteral("2")) << key;
    EXPECT_EQ(m_host->SystemParameter(12, QStringLiteral("7")).Text, QStringLiteral("2"));
    EXPECT_FALSE(m_host->SystemParameter(12, QStringLiteral("dzbm")).Text.isEmpty());
    EXPECT_THROW(m_host->SystemParameter(12, QStringLiteral("x' or '1'='1")), db::DatabaseError);
}

TEST_F(ApplicationTest, FormsAreHandedToTheStyler)
{
    QObject form;
    m_host->FormStyler().Apply(form);
    QObject *styled = nullptr;
    m_host->setFormStyler([&](QObject &given) { styled = &given; });
    m_host->FormStyler().Apply(form);
    EXPECT_EQ(styled, &form);
}

} // namespace ebtq::test
