#include "shell/admin/staff_commands.h"

#include "contracts/host_contracts.h"
#include "database/connection.h"
#include "database/schema/identity.h"
#include "host/module_ids.h"
#include "host/rights.h"
#include "host/staff.h"
#include "shell/admin/output.h"
#include "shell/admin/password.h"

#include <algorithm>
#include <array>

namespace ebtq::admin {

namespace {

struct RightName
{
    int right;
    QStringView name;
};

constexpr std::array<RightName, 3> rightNames{
    {{RightNew, u"新建"}, {RightDelete, u"删除"}, {RightEdit, u"修改"}}};

std::unique_ptr<db::Connection> openCurrent(const CommandLine &line)
{
    auto connection = db::Connection::open(line.requiredText(QStringLiteral("db")));
    db::requireCurrent(*connection);
    return connection;
}

void requireAtMostOne(const CommandLine &line, const QStringList &options)
{
    if (std::ranges::count_if(options, [&line](const QString &option) { return line.isSet(option); }) > 1)
        throw UsageError(QStringLiteral("选项 --%1 不能同时使用").arg(options.join(QStringLiteral("、--"))));
}

/// The numbers of rights named as "新建,修改".
std::vector<int> rightsOf(const QString &names)
{
    std::vector<int> rights;
    for (const QString &name : names.split(u',')) {
        const auto *found = std::ranges::find(rightNames, QStringView(name), &RightName::name);
        if (found == rightNames.end())
            throw UsageError(QStringLiteral("没有权限“%1”，应为新建、删除、修改，用逗号分隔").arg(name));
        rights.push_back(found->right);
    }
    return rights;
}

int moduleNamed(const QString &name)
{
    if (name.isEmpty())
        return 0;
    const auto *found = std::ranges::find(host::modules, QStringView(name), &host::ModuleEntry::caption);
    if (found == host::modules.end())
        throw UsageError(QStringLiteral("没有模块“%1”").arg(name));
    return found->id;
}

void printUsers(db::Connection &connection)
{
    for (const host::Account &account : host::accounts(connection)) {
        printLine(stdout, QStringLiteral("%1\t%2\t%3")
                              .arg(account.name, account.department,
                                   account.isAdministrator ? QStringLiteral("管理员")
                                   : account.isActive      ? QStringLiteral("在用")
                                                           : QStringLiteral("停用")));
    }
}

void printRights(db::Connection &connection, const QString &userId)
{
    for (const host::ModuleEntry &module : host::modules) {
        const host::ModuleRights held(connection, userId, module.id);
        QStringList names;
        for (const RightName &each : rightNames) {
            if (held.Allowed(each.right))
                names << each.name.toString();
        }
        printLine(stdout, QStringLiteral("%1\t%2").arg(module.caption, names.join(u',')));
    }
}

} // namespace

int manageUsers(const CommandLine &line)
{
    requireAtMostOne(line, {QStringLiteral("add"), QStringLiteral("activate"), QStringLiteral("deactivate")});
    const auto connection = openCurrent(line);
    if (line.isSet(QStringLiteral("add"))) {
        const QString name = line.text(QStringLiteral("add"));
        host::requireUserName(name);
        host::hire(*connection, name, readPassword(), line.text(QStringLiteral("department")));
    }
    if (line.isSet(QStringLiteral("activate")))
        host::setActive(*connection, line.text(QStringLiteral("activate")), true);
    if (line.isSet(QStringLiteral("deactivate")))
        host::setActive(*connection, line.text(QStringLiteral("deactivate")), false);
    printUsers(*connection);
    return 0;
}

int changePassword(const CommandLine &line)
{
    const QString name = line.requiredText(QStringLiteral("user"));
    const auto connection = openCurrent(line);
    const host::Account account = host::accountNamed(*connection, name);
    const auto use =
        line.isSet(QStringLiteral("temporary")) ? host::PasswordUse::UntilSignIn : host::PasswordUse::Lasting;
    host::setPassword(*connection, account.name, readPassword(), host::PasswordCost::interactive(), use);
    printLine(stdout, QStringLiteral("已更改用户“%1”的密码").arg(account.name));
    return 0;
}

int manageRights(const CommandLine &line)
{
    requireAtMostOne(line, {QStringLiteral("grant"), QStringLiteral("revoke"), QStringLiteral("like")});
    const QString name = line.requiredText(QStringLiteral("user"));
    const int module = moduleNamed(line.text(QStringLiteral("module")));
    const auto connection = openCurrent(line);
    for (const QString &option : {QStringLiteral("grant"), QStringLiteral("revoke")}) {
        if (line.isSet(option))
            host::changeRights(*connection, name, module, rightsOf(line.text(option)), option == u"grant");
    }
    if (line.isSet(QStringLiteral("like")))
        host::copyRights(*connection, line.text(QStringLiteral("like")), name);
    printRights(*connection, host::accountNamed(*connection, name).id);
    return 0;
}

} // namespace ebtq::admin
