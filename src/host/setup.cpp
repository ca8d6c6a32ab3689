#include "host/setup.h"

#include "host/host_parameters.h"
#include "host/module_ids.h"
#include "host/rights.h"
#include "host/staff.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr int listGroup = 12;

struct DefaultParameter
{
    QStringView key;
    QStringView value;
};

constexpr DefaultParameter defaultParameters[] = {
    {u"dzbm", u"222"},    // length of each level of a district's code, a digit a level
    {u"savecheck", u"1"}, // before a save, look whether somebody else has changed the row since it was opened
    {u"lockminutes", u"30"}, // without keyboard or mouse until the desktop locks; 0 for never
    {u"7", u"2"},            // decimals of the kinds of numbers that a list's layout may name
    {u"8", u"2"},
    {u"9", u"2"},
    {u"10", u"2"},
    {u"11", u"2"},
    {u"12", u"2"},
    {u"13", u"2"},
    {u"14", u"2"},
};

/// Who has every right has those on the modules that a new program brings, too: nobody else could give them.
void writeModules(db::Connection &connection)
{
    const std::vector<Account> before = accounts(connection);
    connection.execute(u"delete from host_modules"_s);
    for (const ModuleEntry &module : modules) {
        connection.execute(
            u"insert into host_modules(moduleID,caption,className,prefix) values(%1,'%2','%3','%4')"_s
                .arg(module.id)
                .arg(module.caption, module.className, module.prefix));
    }
    for (const Account &account : before) {
        if (account.isAdministrator)
            grantAll(connection, account.id);
    }
}

void writeMissingParameters(db::Connection &connection)
{
    for (const DefaultParameter &parameter : defaultParameters) {
        const QString key = parameter.key.toString();
        if (parameterText(connection, {}, listGroup, key).isEmpty())
            setParameter(connection, {}, listGroup, key, parameter.value.toString());
    }
}

} // namespace

db::InstallReport prepareDatabase(db::Connection &connection, db::Foreign foreign)
{
    db::Transaction transaction(connection);
    db::InstallReport report = db::install(connection, foreign);
    writeModules(connection);
    writeMissingParameters(connection);
    transaction.commit();
    return report;
}

bool hasUsers(db::Connection &connection)
{
    return connection.catalog().table(u"host_users") &&
           connection.query(u"select top 1 userID from host_users"_s).rowCount() != 0;
}

} // namespace ebtq::host
