#include "shell/tour/tour.h"

#include "host/application.h"
#include "library/frame/host_contracts.h"
#include "shell/panels/widget_panel_presenter.h"
#include "shell/tour/tour_database.h"

#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

class PersonTest : public ::testing::Test
{
protected:
    PersonTest()
    {
        window.resize(300, 200);
        field.setObjectName(QStringLiteral("field"));
        button.setObjectName(QStringLiteral("button"));
        button.move(0, 100);
        window.show();
    }
    QWidget window;
    QLineEdit field{&window};
    QPushButton button{&window};
};

TEST_F(PersonTest, TypesAndClicksOnRealWidgets)
{
    Person person(window);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    person.focus(QStringLiteral("field"));
    person.type(QStringLiteral("天河x"));
    person.press(Qt::Key_Backspace);
    person.click(QStringLiteral("button"));
    EXPECT_EQ(field.text(), u"天河");
    EXPECT_EQ(clicks, 1);
}

TEST_F(PersonTest, WhatCannotBeSeenCannotBeUsed)
{
    Person person(window);
    button.hide();
    EXPECT_THROW(person.click(QStringLiteral("button")), Failure);
    EXPECT_THROW((void)person.see<QLineEdit>(QStringLiteral("nowhere")), Failure);
    EXPECT_THROW((void)person.see<QPushButton>(QStringLiteral("field")), Failure) << "another kind of widget";
}

TEST_F(PersonTest, ADisabledButtonIsNotPressed)
{
    Person person(window);
    button.setEnabled(false);
    QObject::connect(&button, &QPushButton::clicked, [] { FAIL(); });
    person.click(QStringLiteral("button"));
}

TEST_F(PersonTest, AFailureInsideAPopupComesOutAndClosesIt)
{
    Person person(window);
    QMenu menu;
    menu.addAction(QStringLiteral("甲"));
    EXPECT_THROW(person.withPopup([&] { menu.exec(); }, [&] { (void)person.see(QStringLiteral("nowhere")); }),
                 Failure);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(PersonTest, ATourThatSeesSomethingElseFailsAndSaysWhy)
{
    const QTemporaryDir folder;
    const auto connection = db::Connection::open(QStringLiteral(":memory:"));
    WidgetPanelPresenter presenter;
    host::Application app(*connection, {}, {.appPath = folder.path(), .loginDate = {}}, presenter);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(runTour(window, {folder.path(), *connection, app}), 1);
    EXPECT_FALSE(::testing::internal::GetCapturedStderr().empty());
    QFile notes(folder.filePath(QStringLiteral("tour.txt")));
    ASSERT_TRUE(notes.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(notes.readAll()).contains(u"失败："));
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("01-failed.png"))));
}

TEST_F(PersonTest, AnOpenDialogIsAllThatCanBeReachedAndIsClosedWhenSomethingFailsInside)
{
    Person person(window);
    QDialog dialog(&window);
    QLineEdit inner(&dialog);
    inner.setObjectName(QStringLiteral("inner"));
    person.withDialog([&] { dialog.exec(); },
                      [&] {
                          person.focus(QStringLiteral("inner"));
                          person.type(QStringLiteral("梅"));
                          EXPECT_THROW((void)person.see(QStringLiteral("button")), Failure);
                          person.press(Qt::Key_Escape);
                      });
    EXPECT_EQ(inner.text(), u"梅");
    EXPECT_THROW(
        person.withDialog([&] { dialog.exec(); }, [&] { (void)person.see(QStringLiteral("nowhere")); }),
        Failure);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(TourDatabaseTest, ATourWritesIntoACopy)
{
    const QTemporaryDir folder;
    const auto original =
        db::Connection::open(folder.filePath(QStringLiteral("it's.db")), db::Connection::Missing::IsCreated);
    original->executeNative("create table t (a); insert into t values (1)");
    const QTemporaryDir tourFolder(folder.filePath(QStringLiteral("it's XXXXXX")));
    const auto copy = openTourDatabase(*original, tourFolder.path());
    copy->executeNative("insert into t values (2)");
    EXPECT_EQ(copy->queryNative("select a from t").rowCount(), 2);
    EXPECT_EQ(original->queryNative("select a from t").rowCount(), 1);
}

} // namespace
} // namespace ebtq::shell
