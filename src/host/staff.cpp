#include "host/staff.h"

#include "contracts/host_contracts.h"
#include "host/module_ids.h"
#include "host/rights.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr int rightsOfModule = 3;

int nextKey(db::Connection &connection, QStringView table, QStringView column)
{
    return connection.query(u"select max(%1) from %2"_s.arg(column, table)).value(0, 0).toInt() + 1;
}

int departmentNamed(db::Connection &connection, const QString &name)
{
    requireName(u"部门名称"_s, name);
    const QString kept = name.trimmed();
    const RowBlock known = connection.query(SqlText(u"select mtID from su_usertype where mtname='"_s) +
                                            typed(kept) + u"' order by mtID"_s);
    if (known.rowCount() != 0)
        return known.value(0, 0).toInt();
    const int id = nextKey(connection, u"su_usertype", u"mtID");
    connection.execute(SqlText(u"insert into su_usertype(mtID,mtcode,mtname) values(%1,'%2','"_s.arg(id).arg(
                           id, 2, 10, QLatin1Char('0'))) +
                       typed(kept) + u"')"_s);
    return id;
}

bool hasAdministrator(db::Connection &connection)
{
    return std::ranges::any_of(accounts(connection), &Account::isAdministrator);
}

/// Nobody could give rights back where nobody has them all.
template<class Change> void changeKeepingAnAdministrator(db::Connection &connection, Change change)
{
    db::Transaction transaction(connection);
    // Two who take the right from each other at the same moment wait here for one another.
    connection.execute(u"update host_schema set version=version"_s);
    const bool had = hasAdministrator(connection);
    change();
    if (had && !hasAdministrator(connection))
        throw Failure(u"至少要有一位拥有全部权限的在用用户，没有更改！"_s);
    transaction.commit();
}

} // namespace

QString hire(db::Connection &connection, const QString &name, const QString &password,
             const QString &department, PasswordCost cost)
{
    db::Transaction transaction(connection);
    const int departmentId = department.trimmed().isEmpty() ? 0 : departmentNamed(connection, department);
    const QString id = createUser(connection, {name, password, departmentId}, cost);
    connection.execute(SqlText(u"insert into pdmgy(雇员ID,姓名) values(%1,'"_s.arg(
                           nextKey(connection, u"pdmgy", u"雇员ID"))) +
                       typed(name.trimmed()) + u"')"_s);
    transaction.commit();
    return id;
}

std::vector<Account> accounts(db::Connection &connection)
{
    const int moduleCount =
        connection.query(u"select count(moduleID) from host_modules"_s).value(0, 0).toInt();
    const RowBlock rows = connection.query(
        u"select A.userID,A.username,A.isActive,C.mtname,"
        "(select count(rightID) from host_rights where allowed=1 and userID=A.userID) as 权限数 "
        "from (host_users A left join su_membership B on A.userID=B.userID) "
        "left join su_usertype C on B.UserTypeID=C.mtID order by A.username,C.mtcode"_s);
    std::vector<Account> found;
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        const QString id = rows.value(row, 0).toString();
        const bool isActive = rows.value(row, 2).toInt() == 1;
        if (found.empty() || found.back().id != id) // the first of several departments
            found.push_back(
                {id, rows.value(row, 1).toString(), rows.value(row, 3).toString(), isActive,
                 isActive && moduleCount > 0 && rows.value(row, 4).toInt() >= rightsOfModule * moduleCount});
    }
    return found;
}

Account accountNamed(db::Connection &connection, const QString &name)
{
    const std::vector<Account> all = accounts(connection);
    const auto found = std::ranges::find_if(all, [kept = name.trimmed()](const Account &account) {
        return account.name.compare(kept, Qt::CaseInsensitive) == 0;
    });
    if (found == all.end())
        throw Failure(u"没有名为“%1”的用户！"_s.arg(name));
    return *found;
}

void setActive(db::Connection &connection, const QString &name, bool active)
{
    changeKeepingAnAdministrator(connection, [&] {
        connection.execute(
            SqlText(u"update host_users set isActive=%1 where userID='"_s.arg(active ? 1 : 0)) +
            typed(accountNamed(connection, name).id) + u"'"_s);
    });
}

void changeRights(db::Connection &connection, const QString &name, int moduleId,
                  const std::vector<int> &rights, bool allowed)
{
    changeKeepingAnAdministrator(connection, [&] {
        const QString id = accountNamed(connection, name).id;
        for (const ModuleEntry &module : modules) {
            for (const int right : rights) {
                if (moduleId == 0 || moduleId == module.id)
                    setRight(connection, id, module.id, right, allowed);
            }
        }
    });
}

void copyRights(db::Connection &connection, const QString &from, const QString &to)
{
    changeKeepingAnAdministrator(connection, [&] {
        const QString source = accountNamed(connection, from).id;
        const QString target = accountNamed(connection, to).id;
        for (const ModuleEntry &module : modules) {
            const ModuleRights held(connection, source, module.id);
            for (const int right : {RightNew, RightDelete, RightEdit})
                setRight(connection, target, module.id, right, held.Allowed(right));
        }
    });
}

} // namespace ebtq::host
