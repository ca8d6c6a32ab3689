#include "shell/login_dialog.h"

#include "host/users.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

class LoginDialogTest : public ::testing::Test
{
protected:
    void open(const QString &presetName = {})
    {
        dialog = std::make_unique<LoginDialog>(presetName, u"本地数据库"_qs,
                                               [this](const QString &name, const QString &password) {
                                                   attempts << name + u'/' + password;
                                                   if (password != u"demo")
                                                       throw host::WrongPassword(u"用户名或密码不正确。"_qs);
                                               });
        dialog->show();
        dialog->activateWindow();
        QApplication::processEvents();
    }
    QLineEdit &field(const char *name) { return *dialog->findChild<QLineEdit *>(QLatin1String(name)); }
    QString shownError()
    {
        auto *label = dialog->findChild<QLabel *>(u"error"_qs);
        return label->isVisible() ? label->text() : QString();
    }

    QStringList attempts;
    std::unique_ptr<LoginDialog> dialog;
};

TEST_F(LoginDialogTest, SignsInWithTheKeyboardAlone)
{
    open();
    QTest::keyClick(&field("password"), Qt::Key_Return);
    EXPECT_TRUE(attempts.isEmpty()) << "there is no name";
    EXPECT_FALSE(shownError().isEmpty());
    EXPECT_EQ(dialog->focusWidget(), &field("name"));
    QTest::keyClicks(dialog->focusWidget(), u" Demo "_qs);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(dialog->focusWidget(), u"demo"_qs);
    EXPECT_NE(field("password").displayText(), u"demo");
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(attempts, QStringList(u"Demo/demo"_qs));
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->name(), u"Demo");
}

TEST_F(LoginDialogTest, ARefusalIsShownAndThePasswordIsTypedAnew)
{
    open(u"演示"_qs);
    EXPECT_EQ(dialog->focusWidget(), &field("password")) << "the name of last time stands there already";
    QTest::keyClicks(dialog->focusWidget(), u"wrong"_qs);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(shownError(), u"用户名或密码不正确。");
    EXPECT_TRUE(dialog->isVisible());
    QTest::keyClicks(dialog->focusWidget(), u"demo"_qs);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(attempts.back(), u"演示/demo"_qs);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(LoginDialogTest, WrongPasswordsAreSlowedDown)
{
    open(u"演示"_qs);
    const auto press = [this](const QString &password) {
        field("password").setText(password);
        QTest::keyClick(&field("password"), Qt::Key_Return);
    };
    press(u"1"_qs);
    press(u"2"_qs);
    EXPECT_EQ(shownError(), u"用户名或密码不正确。\n2 秒后可以再试。");
    press(u"demo"_qs);
    EXPECT_EQ(attempts.size(), 2) << "nothing is tried during the pause";
    auto *second = dialog->findChild<QTimer *>();
    EXPECT_EQ(second->interval(), 1000);
    second->setInterval(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownError() == u"用户名或密码不正确。"; }));
    press(u"demo"_qs);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

} // namespace
} // namespace ebtq::shell
