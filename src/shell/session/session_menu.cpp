#include "shell/session/session_menu.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace ebtq::shell {

namespace {

struct Ingredient
{
    QStringView name;
    QStringView licence;
};

constexpr Ingredient ingredients[] = {
    {u"Qt", u"LGPL-3.0"},          {u"SQLite", u"公有领域"},     {u"libpq", u"PostgreSQL License"},
    {u"libsodium", u"ISC"},        {u"libzip", u"BSD-3-Clause"}, {u"libxlsxwriter", u"BSD-2-Clause"},
    {u"Breeze 图标", u"LGPL-3.0"},
};

} // namespace

SessionMenu::SessionMenu(QWidget &window, const Commands &commands)
    : QMenu(&window)
{
    setObjectName(QStringLiteral("SessionMenu"));
    addAction(QStringLiteral("修改密码(&P)…"), commands.changePassword);
    QAction *lock = addAction(QStringLiteral("锁定(&L)"), Qt::CTRL | Qt::Key_L, commands.lock);
    window.addAction(lock);
    addAction(QStringLiteral("切换用户(&U)…"), commands.switchUser);
    addSeparator();
    QAction *agent = addAction(QStringLiteral("新房源和跟进填入本人为经纪人(&M)"));
    agent->setObjectName(QStringLiteral("OwnAgent"));
    agent->setCheckable(true);
    agent->setChecked(commands.fillsAgentIn);
    connect(agent, &QAction::toggled, this, commands.fillAgentIn);
    addSeparator();
    addAction(QStringLiteral("关于(&A)…"), commands.about);
}

void showAbout(QWidget &window)
{
    QString text = QStringLiteral("房源管理 %1\n许可：Apache-2.0\n\n使用了：")
                       .arg(QCoreApplication::applicationVersion());
    for (const Ingredient &each : ingredients)
        text += QStringLiteral("\n%1　%2").arg(each.name, each.licence);
    text += QStringLiteral("\n\nQt %1").arg(QLatin1String(qVersion()));
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("关于"), text, QMessageBox::NoButton, &window);
    box.setTextFormat(Qt::PlainText);
    box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.exec();
}

} // namespace ebtq::shell
