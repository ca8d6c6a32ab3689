#include "database/schema/installer.h"
#include "host/setup.h"
#include "shell/start/recent_databases.h"
#include "shell/start/start_page.h"
#include "shell/start/start_wizard.h"
#include "support/as_nobody.h"
#include "support/engine_database.h"
#include "support/full_disk.h"
#include "support/messages.h"
#include "support/postgres_server.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QUrl>

#include <gmock/gmock.h>

namespace ebtq::shell {
namespace {

using test::Engine;
using test::messageOf;
using ::testing::HasSubstr;

/// The wizard as a person sees it: fields by their names on the page that is shown.
class StartTest : public ::testing::TestWithParam<Engine>
{
protected:
    void open(const QStringList &recent = {})
    {
        wizard = std::make_unique<StartWizard>(folder.path(), recent);
        wizard->show();
    }
    template<class Widget = QLineEdit> Widget &see(const char *name) const
    {
        auto *widget = wizard->currentPage()->findChild<Widget *>(QLatin1String(name));
        if (!widget)
            throw std::runtime_error(name);
        return *widget;
    }
    /// What the page says about going on; empty when another page was reached.
    std::string next() const
    {
        const QWizardPage *page = wizard->currentPage();
        wizard->button(page->isFinalPage() ? QWizard::FinishButton : QWizard::NextButton)->click();
        auto *error = page->findChild<QLabel *>(u"error"_qs);
        return error->isVisible() ? error->text().toStdString() : std::string();
    }
    void choosePlace(const test::EngineDatabase &database)
    {
        const bool isFile = GetParam() == Engine::Sqlite;
        see<QAbstractButton>(isFile ? "newAgency" : "server").click();
        EXPECT_EQ(next(), "");
        if (isFile)
            return;
        const QUrl url(database.location());
        see("host").setText(url.host());
        see<QSpinBox>("port").setValue(url.port());
        see("user").setText(url.userName());
        see("password").setText(url.password());
        see("base").setText(u"no such base"_qs);
        EXPECT_THAT(next(), HasSubstr("no such base"));
        see("base").setText(url.path().mid(1));
        see<QAbstractButton>("try").click();
        EXPECT_THAT(see<QLabel>("result").text().toStdString(), HasSubstr("连接成功"));
        EXPECT_EQ(next(), "");
    }

    QTemporaryDir folder;
    std::unique_ptr<StartWizard> wizard;
};

} // namespace

TEST_P(StartTest, ANewAgencyIsMadePageByPageAndNothingTypedIsLost)
{
    const test::EngineDatabase database(GetParam());
    open();
    choosePlace(database);
    see("name").setText(u" 陈's 房产"_qs);
    EXPECT_THAT(next(), HasSubstr("单引号"));
    see("name").setText(u" 望澜房产"_qs);
    EXPECT_EQ(next(), "");
    see("administrator").setText(u"梁佳宁"_qs);
    see("password").setText(u"secret-12"_qs);
    EXPECT_THAT(next(), HasSubstr("两次"));
    see("again").setText(u"secret-12"_qs);
    EXPECT_EQ(see<QLabel>("strength").text(), u"强度：中"_qs);
    EXPECT_EQ(next(), "");
    see<QPlainTextEdit>("districts").setPlainText(u"市\n 区\n 区"_qs);
    EXPECT_THAT(next(), HasSubstr("第 3 行"));
    see<QPlainTextEdit>("districts").setPlainText(u"云泽市\n  望澜区"_qs);
    EXPECT_EQ(next(), "");
    see<QListWidget>("kinds").item(0)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(next(), "");
    EXPECT_TRUE(see<QLabel>("summary").text().contains(u"地区：2 个\n字典：22 个"));
    EXPECT_EQ(next(), "");
    ASSERT_EQ(wizard->result(), QDialog::Accepted);

    const auto connection = db::Connection::open(wizard->draft().location());
    db::requireCurrent(*connection);
    EXPECT_EQ(host::agencyName(*connection), u"望澜房产");
    EXPECT_EQ(host::signIn(*connection, wizard->draft().userName(), u"secret-12"_qs).department, u"营业部");
    EXPECT_EQ(connection->query(u"select 类型 from pdmsjzd where 类型='物业用途'"_qs).rowCount(), 0);
    EXPECT_EQ(connection->query(u"select 类型 from pdmsjzd where 类型='国籍'"_qs).rowCount(), 6);
}

INSTANTIATE_TEST_SUITE_P(Engines, StartTest, ::testing::Values(Engine::Sqlite, Engine::Postgres),
                         [](const auto &engine) { return test::nameOf(engine.param); });

namespace {

class StartDraftTest : public ::testing::Test
{
protected:
    QString make(const char *name, const QByteArray &script) const
    {
        const QString file = folder.filePath(QLatin1String(name));
        const auto connection = db::Connection::open(file, db::Connection::Missing::IsCreated);
        host::createAgency(*connection, agency, db::Foreign::IsRefused, host::PasswordCost::lowest());
        connection->executeNative(script);
        return file;
    }
    QTemporaryDir folder;
    const host::NewAgency agency{{}, u"一部"_qs, u"甲"_qs, u"secret-12"_qs, {}, {}};
};

TEST_F(StartDraftTest, AnOlderDatabaseIsBackedUpAndUpgraded)
{
    const QString file = make("old.db", "update host_schema set version=1; drop index ix_pdmsjzd_kind");
    StartWizard wizard(folder.path(), {});
    ASSERT_TRUE(wizard.beginWithUpgrade(file));
    wizard.show();
    wizard.button(QWizard::FinishButton)->click();
    ASSERT_EQ(wizard.result(), QDialog::Accepted);
    db::requireCurrent(*db::Connection::open(file));
    const QStringList backups = QDir(folder.path()).entryList({u"old-升级前-1-*.db"_qs});
    ASSERT_EQ(backups.size(), 1);
    EXPECT_TRUE(wizard.draft().summary().contains(backups.front()));
    EXPECT_EQ(db::Identity::of(*db::Connection::open(folder.filePath(backups.front()))).version, 1);
    EXPECT_FALSE(wizard.beginWithUpgrade(file)) << "it is current now";
}

TEST_F(StartDraftTest, ADatabaseUsedLatelyIsChosenFromTheListAndNotByPassingThroughIt)
{
    StartWizard wizard(folder.path(), {u"/a.db"_qs, u"postgresql://u@h:7/b"_qs});
    wizard.show();
    auto &list = *wizard.currentPage()->findChild<QListWidget *>(u"recent"_qs);
    auto &first = *wizard.currentPage()->findChild<QAbstractButton *>(u"newAgency"_qs);
    list.setFocus();
    EXPECT_EQ(wizard.nextId(), AgencyPageId);
    list.setCurrentRow(0);
    EXPECT_EQ(wizard.nextId(), FilePageId);
    EXPECT_FALSE(first.isChecked());
    first.click();
    EXPECT_EQ(wizard.nextId(), AgencyPageId);
    list.setCurrentRow(1);
    wizard.next();
    EXPECT_EQ(wizard.currentPage()->findChild<QLineEdit *>(u"host"_qs)->text(), u"h");
    EXPECT_EQ(wizard.currentPage()->findChild<QSpinBox *>(u"port"_qs)->value(), 7);
}

TEST_F(StartDraftTest, WhatCannotBeUsedIsRefusedWithWhatToDo)
{
    StartDraft draft;
    const auto existing = [&](const QString &file) { return messageOf([&] { draft.chooseExisting(file); }); };
    EXPECT_THAT(existing(make("new.db", "update host_schema set version=9999")), HasSubstr("升级程序"));
    EXPECT_THAT(existing(folder.filePath(u"none.db"_qs)), HasSubstr("none.db"));
    EXPECT_THAT(existing(u" "_qs), HasSubstr("请输入"));
    const QString foreign = folder.filePath(u"foreign.db"_qs);
    db::Connection::open(foreign, db::Connection::Missing::IsCreated)->executeNative("create table notes(t)");
    EXPECT_THAT(existing(foreign), HasSubstr("其他程序"));
    EXPECT_THAT(messageOf([&] { draft.chooseNewFile(foreign); }), HasSubstr("已存在"));
    EXPECT_EQ(draft.location(), QString());
}

TEST_F(StartDraftTest, NothingRemainsOfWhatCouldNotBeWritten)
{
    const auto carryOut = [](StartDraft &draft) {
        return messageOf([&] { draft.carryOut([](int, int) {}); });
    };
    StartDraft fresh;
    fresh.agency = agency;
    fresh.chooseNewFile(folder.filePath(u"new/agency.db"_qs));
    StartDraft old;
    const QString file = make("old.db", "update host_schema set version=1");
    old.chooseExisting(file);
    {
        const test::FullDisk full(100'000);
        EXPECT_THAT(carryOut(fresh), HasSubstr("磁盘"));
        EXPECT_THAT(carryOut(old), HasSubstr("磁盘"));
    }
    EXPECT_FALSE(QFile::exists(fresh.location()));
    EXPECT_EQ(db::Identity::of(*db::Connection::open(file)).version, 1);
    EXPECT_EQ(QDir(folder.path()).entryList({u"*升级前*"_qs}).size(), 0);
    EXPECT_EQ(carryOut(fresh), "") << "the same draft does it once there is room";
    StartDraft forbidden;
    forbidden.agency = agency;
    forbidden.chooseNewFile(u"/root/none/agency.db"_qs);
    const test::AsNobody nobody;
    EXPECT_THAT(carryOut(forbidden), HasSubstr("无法建立文件夹"));
}

TEST_F(StartDraftTest, AServerLostOnTheWayIsSaidAndTheDraftStays)
{
    const test::PostgresServer server;
    StartDraft draft;
    draft.agency = agency;
    draft.chooseExisting(server.url());
    EXPECT_TRUE(draft.makesAgency());
    const auto carryOut = [&] { return messageOf([&] { draft.carryOut([](int, int) {}); }); };
    server.kill();
    EXPECT_THAT(carryOut(), HasSubstr("服务器没有运行"));
    server.start();
    EXPECT_EQ(carryOut(), "");
    EXPECT_EQ(host::signIn(*db::Connection::open(server.url()), u"甲"_qs, u"secret-12"_qs).department,
              u"一部");
}

TEST_F(StartDraftTest, AnAddressInFieldsBecomesAUrlAndComesBack)
{
    const ServerAddress odd{u" db.local "_qs, 6543, u"机构 1"_qs, u"o'neil@x"_qs, u"p:/?#%41"_qs};
    const ServerAddress read = ServerAddress::of(odd.url());
    EXPECT_EQ(read.host, u"db.local");
    EXPECT_EQ(read.port, 6543);
    EXPECT_EQ(read.base + read.user + read.password, odd.base + odd.user + odd.password);
    for (const ServerAddress &bad :
         {ServerAddress{{}, 1, u"b"_qs, u"u"_qs, {}}, ServerAddress{u"h"_qs, 1, {}, u"u"_qs, {}},
          ServerAddress{u"a b/c"_qs, 1, u"b"_qs, u"u"_qs, {}}})
        EXPECT_NE(messageOf([&] { (void)bad.url(); }), "");
}

TEST_F(StartDraftTest, TheDatabaseUsedLastComesFirstAndKeepsNoPassword)
{
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    for (const QString &place : {u"/a.db"_qs, u"postgresql://u:secret@h/b"_qs, u"/a.db"_qs})
        rememberDatabase(place);
    EXPECT_EQ(recentDatabases().join(u' '), u"/a.db postgresql://u@h/b");
    for (int number = 0; number < 9; ++number)
        rememberDatabase(QString::number(number));
    EXPECT_EQ(recentDatabases().size(), 8);
    qunsetenv("XDG_DATA_HOME");
}

} // namespace
} // namespace ebtq::shell
