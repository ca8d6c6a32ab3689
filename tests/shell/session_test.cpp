#include "host/users.h"
#include "shell/login_dialog.h"
#include "shell/session/password_dialog.h"
#include "shell/session/screen_lock.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

QLineEdit &field(const QWidget &dialog, const char *name)
{
    return *dialog.findChild<QLineEdit *>(QLatin1String(name));
}

void checkPassword(const QString &name, const QString &password)
{
    if (name != u"张敏" || password != u"demo-demo")
        throw host::WrongPassword(u"用户名或密码不正确。"_qs);
}

/// Answers the lock as a person does, and sees that nothing else leads out of it.
void unlock(const QWidget &window)
{
    auto *dialog = qobject_cast<LoginDialog *>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    const auto *curtain = window.findChild<QLabel *>(u"Curtain"_qs);
    ASSERT_TRUE(curtain);
    EXPECT_EQ(curtain->geometry(), window.rect());
    EXPECT_TRUE(field(*dialog, "name").isReadOnly());
    QTest::keyClick(dialog, Qt::Key_Escape);
    dialog->close();
    field(*dialog, "password").setText(u"wrong"_qs);
    QTest::keyClick(&field(*dialog, "password"), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    field(*dialog, "password").setText(u"demo-demo"_qs);
    QTest::keyClick(&field(*dialog, "password"), Qt::Key_Return);
}

TEST(ScreenLockTest, CoversTheProgramUntilThePasswordIsGiven)
{
    QWidget window;
    window.resize(400, 300);
    window.show();
    ScreenLock lock(u"张敏"_qs, u"本地数据库"_qs, std::chrono::milliseconds(0), checkPassword);
    QTimer::singleShot(0, &window, [&] { unlock(window); });
    lock.lock();
    EXPECT_FALSE(window.findChild<QLabel *>(u"Curtain"_qs));
}

TEST(ScreenLockTest, LocksByItselfOnceNobodyUsesTheProgram)
{
    QWidget window;
    window.show();
    int asked = 0;
    ScreenLock lock(u"张敏"_qs, u"本地数据库"_qs, std::chrono::milliseconds(300), checkPassword);
    for (int key = 0; key < 20; ++key) {
        QTest::keyClick(&window, Qt::Key_A);
        QTest::qWait(20);
        ASSERT_FALSE(QApplication::activeModalWidget()) << "somebody is typing";
    }
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, &window, [&] {
        if (!QApplication::activeModalWidget())
            return;
        answers.stop();
        ++asked;
        unlock(window);
    });
    answers.start(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 1; }));
}

TEST(PasswordDialogTest, AsksUntilThePasswordIsChangedOnce)
{
    QStringList changes;
    PasswordDialog dialog(
        [&](const QString &present, const QString &wanted) {
            checkPassword(u"张敏"_qs, present);
            changes << wanted;
        },
        {});
    dialog.show();
    const auto accept = [&](const QString &present, const QString &wanted, const QString &again) {
        field(dialog, "present").setText(present);
        field(dialog, "wanted").setText(wanted);
        field(dialog, "again").setText(again);
        dialog.accept();
        return dialog.isVisible();
    };
    EXPECT_TRUE(accept(u"demo-demo"_qs, u"secret-12"_qs, u"secret-13"_qs));
    EXPECT_TRUE(accept(u"demo"_qs, u"secret-12"_qs, u"secret-12"_qs));
    EXPECT_EQ(dialog.findChild<QLabel *>(u"error"_qs)->text(), u"用户名或密码不正确。");
    EXPECT_FALSE(accept(u"demo-demo"_qs, u"secret-12"_qs, u"secret-12"_qs));
    EXPECT_EQ(changes, QStringList(u"secret-12"_qs));
}

} // namespace
} // namespace ebtq::shell
