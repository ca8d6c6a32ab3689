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
    EXPECT_EQ(session.UserName(), u"陈晓雯"_qs);
    EXPECT_EQ(session.LoginDate(), loginDate);
    EXPECT_TRUE(QDir(session.AppPath()).exists());
    EXPECT_FALSE(session.AppPath().endsWith(u'/'));
    EXPECT_EQ(m_host->PrintEnv().PrintFolder(), session.AppPath());
    auto engine = std::make_unique<QObject>();
    m_host->setPrintContext(engine.get());
    EXPECT_EQ(m_host->PrintEnv().PrintContext(), engine.get());
    engine.reset();
    EXPECT_EQ(m_host->PrintEnv().PrintContext(), nullptr) << "it is the program's while it lives";
}

TEST_F(ApplicationTest, AWorkingFolderThatCannotBeMadeIsAFailure)
{
    QFile file(m_folder.filePath(u"file"_qs));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    const host::Settings settings{file.fileName() + u"/work"_qs, loginDate};
    EXPECT_THROW(host::Application(*m_connection, {}, settings, m_panels), Failure);
}

TEST_F(ApplicationTest, ParametersFallBackToTheSystemsAndHaveDefaults)
{
    const auto ofUser = [this](const QVariant &key) { return m_host->UserParameter(12, key).Text; };
    const QString key = u"MouseEventScrollRate"_qs;
    EXPECT_EQ(ofUser(key), QString());
    host::setParameter(*m_connection, {}, 12, key, u"5"_qs);
    EXPECT_EQ(ofUser(key), u"5"_qs);
    host::setParameter(*m_connection, agentId, 12, key, u"8"_qs);
    host::setParameter(*m_connection, u"somebody else"_qs, 12, key, u"9"_qs);
    EXPECT_EQ(ofUser(u"mouseeventscrollrate"_qs), u"8"_qs);
    EXPECT_EQ(m_host->SystemParameter(12, key).Text, u"5"_qs);
    EXPECT_EQ(m_host->UserParameter(11, key).Text, QString());
    host::setParameter(*m_connection, agentId, 12, key, QString());
    EXPECT_EQ(ofUser(key), QString()) << "an empty value of the user's own is a value";

    for (int number = 7; number <= 14; ++number)
        EXPECT_EQ(m_host->SystemParameter(12, number).Text, u"2"_qs) << number;
    EXPECT_EQ(m_host->SystemParameter(12, u"7"_qs).Text, u"2"_qs);
    EXPECT_FALSE(m_host->SystemParameter(12, u"dzbm"_qs).Text.isEmpty());
    EXPECT_THROW(m_host->SystemParameter(12, u"x' or '1'='1"_qs), db::DatabaseError);
}

} // namespace ebtq::test
