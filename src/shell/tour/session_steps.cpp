#include "shell/tour/session_steps.h"

#include "host/users.h"
#include "shell/session/screen_lock.h"
#include "shell/session/session_menu.h"
#include "shell/tour/tour.h"

#include <QAction>
#include <QLabel>

namespace ebtq::shell {

namespace {

void choose(Tour &tour, const QString &command, const std::function<void()> &inside)
{
    const auto *menu = tour.person().window().findChild<SessionMenu *>();
    Tour::expect(menu, QStringLiteral("应有登录人的菜单"));
    for (QAction *action : menu->actions()) {
        if (action->text().startsWith(command))
            return tour.person().withDialog([action] { action->trigger(); }, inside);
    }
    throw Failure(QStringLiteral("没有命令“%1”").arg(command));
}

void changePassword(Tour &tour)
{
    Person &person = tour.person();
    choose(tour, QStringLiteral("修改密码"), [&] {
        person.fill(QStringLiteral("present"), QStringLiteral("wrong"));
        person.fill(QStringLiteral("wanted"), QStringLiteral("secret-12"));
        person.fill(QStringLiteral("again"), QStringLiteral("secret-12"));
        person.press(Qt::Key_Return);
        tour.note(QStringLiteral("  %1").arg(person.see<QLabel>(QStringLiteral("error")).text()));
        tour.takePicture(QStringLiteral("session-password"));
        person.press(Qt::Key_Escape);
    });
}

/// With a password of its own: nobody knows here that of who is signed in.
void lockAndUnlock(Tour &tour)
{
    const QString password = QStringLiteral("secret-12");
    ScreenLock lock(tour.app().Session().UserName(), QStringLiteral("演示副本"), std::chrono::minutes(0),
                    [&](const QString &, const QString &typed) {
                        if (typed != password)
                            throw host::WrongPassword(QStringLiteral("用户名或密码不正确，请重新输入！"));
                    });
    Person &person = tour.person();
    person.withDialog([&] { lock.lock(); },
                      [&] {
                          person.press(Qt::Key_Escape);
                          tour.takePicture(QStringLiteral("session-locked"));
                          person.focus(QStringLiteral("password"));
                          person.type(password);
                          person.press(Qt::Key_Return);
                      });
}

void showTheProgram(Tour &tour)
{
    choose(tour, QStringLiteral("关于"), [&] {
        tour.takePicture(QStringLiteral("session-about"));
        tour.person().press(Qt::Key_Return);
    });
}

void seeNoCurtain(Tour &tour)
{
    Tour::expect(!tour.person().window().findChild<QLabel *>(QStringLiteral("Curtain")),
                 QStringLiteral("主窗口应可使用"));
}

constexpr TourStep steps[] = {
    {u"修改自己的密码", u"session-password-left", changePassword, seeNoCurtain},
    {u"锁定和解锁", u"session-unlocked", lockAndUnlock, seeNoCurtain},
    {u"关于", u"session-about-left", showTheProgram, seeNoCurtain},
};

} // namespace

std::span<const TourStep> sessionSteps()
{
    return steps;
}

} // namespace ebtq::shell
