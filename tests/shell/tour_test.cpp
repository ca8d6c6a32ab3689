#include "shell/tour/tour.h"

#include "contracts/host_contracts.h"
#include "host/application.h"
#include "shell/panels/widget_panel_presenter.h"
#include "shell/tour/caption_walk.h"
#include "shell/tour/tour_database.h"
#include "support/messages.h"

#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
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
        field.setObjectName(u"field"_qs);
        button.setObjectName(u"button"_qs);
        button.move(0, 100);
        window.show();
    }
    QWidget window;
    QLineEdit field{&window};
    QPushButton button{&window};
};

TEST_F(PersonTest, WordsThatAreWrongAreFoundOnTheScreen)
{
    QLabel label(&window);
    label.show();
    field.setAccessibleName(u"名称"_qs);
    button.setText(u"保存(&S)"_qs);
    const std::tuple<QString, QWidget *, qsizetype> cases[] = {{u"搜索(&F):"_qs, &field, 0},
                                                               {u"搜索(&F):"_qs, nullptr, 1},
                                                               {u"甲  乙"_qs, nullptr, 1},
                                                               {u" 甲 "_qs, nullptr, 0}};
    for (const auto &[text, buddy, faults] : cases) {
        label.setText(text);
        label.setBuddy(buddy);
        EXPECT_EQ(captionFaults(window).size(), faults) << captionFaults(window).join(u' ').toStdString();
    }
    field.setAccessibleName({});
    button.setText({});
    EXPECT_EQ(captionFaults(window).size(), 2) << "without names";
}

TEST_F(PersonTest, ABoxThatNobodyExpectsEndsTheStepWithItsText)
{
    Person person(window);
    QObject::connect(&button, &QPushButton::clicked, [&] {
        QMessageBox(QMessageBox::NoIcon, {}, u"磁盘已满"_qs, QMessageBox::Ok, &window).exec();
    });
    EXPECT_EQ(test::messageOf([&] { person.click(u"button"_qs); }), "没有料到的提示：磁盘已满");
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(PersonTest, WhatCannotBeSeenCannotBeUsed)
{
    Person person(window);
    button.hide();
    EXPECT_THROW(person.click(u"button"_qs), Failure);
    EXPECT_THROW((void)person.see<QLineEdit>(u"nowhere"_qs), Failure);
    EXPECT_THROW((void)person.see<QPushButton>(u"field"_qs), Failure) << "another kind of widget";
}

TEST_F(PersonTest, ATourThatSeesSomethingElseFailsAndSaysWhy)
{
    const QTemporaryDir folder;
    const auto connection = db::Connection::open(u":memory:"_qs);
    WidgetPanelPresenter presenter;
    host::Application app(*connection, {}, {.appPath = folder.path(), .loginDate = {}}, presenter);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(runTour(window, {folder.path(), *connection, app}), 1);
    EXPECT_FALSE(::testing::internal::GetCapturedStderr().empty());
    QFile notes(folder.filePath(u"tour.txt"_qs));
    ASSERT_TRUE(notes.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(notes.readAll()).contains(u"失败："));
    EXPECT_TRUE(QFile::exists(folder.filePath(u"01-failed.png"_qs)));
}

TEST_F(PersonTest, AnOpenDialogIsAllThatCanBeReachedAndIsClosedWhenSomethingFailsInside)
{
    Person person(window);
    QDialog dialog(&window);
    QLineEdit inner(&dialog);
    inner.setObjectName(u"inner"_qs);
    person.withDialog([&] { dialog.exec(); },
                      [&] {
                          person.focus(u"inner"_qs);
                          person.type(u"梅"_qs);
                          EXPECT_THROW((void)person.see(u"button"_qs), Failure);
                          person.press(Qt::Key_Escape);
                      });
    EXPECT_EQ(inner.text(), u"梅");
    EXPECT_THROW(person.withDialog([&] { dialog.exec(); }, [&] { (void)person.see(u"nowhere"_qs); }),
                 Failure);
    EXPECT_FALSE(dialog.isVisible());
    QMenu menu;
    menu.addAction(u"甲"_qs);
    EXPECT_THROW(person.withPopup([&] { menu.exec(); }, [&] { (void)person.see(u"nowhere"_qs); }), Failure);
    EXPECT_FALSE(menu.isVisible());
}

TEST(TourDatabaseTest, ATourWritesIntoACopy)
{
    const QTemporaryDir folder;
    const auto original =
        db::Connection::open(folder.filePath(u"it's.db"_qs), db::Connection::Missing::IsCreated);
    original->executeNative("create table t (a); insert into t values (1)");
    const QTemporaryDir tourFolder(folder.filePath(u"it's XXXXXX"_qs));
    const auto copy = openTourDatabase(*original, tourFolder.path());
    copy->executeNative("insert into t values (2)");
    EXPECT_EQ(copy->queryNative("select a from t").rowCount(), 2);
    EXPECT_EQ(original->queryNative("select a from t").rowCount(), 1);
}

} // namespace
} // namespace ebtq::shell
