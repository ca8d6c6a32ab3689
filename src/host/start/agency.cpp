#include "host/start/agency.h"

#include "contracts/host_contracts.h"
#include "database/schema/installer.h"
#include "host/host_parameters.h"
#include "host/rights.h"
#include "host/setup.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr int agencyGroup = 12;
const QString nameKey = u"agency"_s;

/// A database that was taken over or copied may hold rows already.
int nextKey(db::Connection &connection, QStringView table, QStringView column)
{
    return connection.query(u"select max(%1) from %2"_s.arg(column, table)).value(0, 0).toInt() + 1;
}

void writeStaff(db::Connection &connection, const NewAgency &agency, PasswordCost cost)
{
    const int department = nextKey(connection, u"su_usertype", u"mtID");
    connection.execute(
        SqlText(u"insert into su_usertype(mtID,mtcode,mtname) values(%1,'%2','"_s.arg(department)
                    .arg(department, 2, 10, QLatin1Char('0'))) +
        typed(agency.department.trimmed()) + u"')"_s);
    connection.execute(SqlText(u"insert into pdmgy(雇员ID,姓名) values(%1,'"_s.arg(
                           nextKey(connection, u"pdmgy", u"雇员ID"))) +
                       typed(agency.administrator.trimmed()) + u"')"_s);
    grantAll(connection, createUser(connection, {agency.administrator, agency.password, department}, cost));
}

/// Capitals, small letters, digits, other marks, Chinese.
int kindsOfCharacters(const QString &password)
{
    QSet<int> kinds;
    for (const QChar c : password) {
        constexpr char16_t lastAscii = 0x7f;
        kinds.insert(c.unicode() > lastAscii ? 0 : c.isUpper() ? 1 : c.isLower() ? 2 : c.isDigit() ? 3 : 4);
    }
    return static_cast<int>(kinds.size());
}

} // namespace

void requireAgency(const NewAgency &agency)
{
    if (!agency.name.trimmed().isEmpty())
        requireName(u"机构名称"_s, agency.name);
    requireName(u"部门名称"_s, agency.department);
    requireUserName(agency.administrator);
    requirePassword(agency.password);
}

void createAgency(db::Connection &connection, const NewAgency &agency, db::Foreign foreign, PasswordCost cost)
{
    requireAgency(agency);
    db::Transaction transaction(connection);
    (void)prepareDatabase(connection, foreign);
    if (hasUsers(connection))
        throw Failure(u"数据库中已有用户，不能再建立新机构！"_s);
    if (!agency.districts.empty() && nextKey(connection, u"pdmdq", u"地区ID") > 1)
        throw Failure(u"数据库中已有地区，请不要再给出地区！"_s);
    writeStaff(connection, agency, cost);
    writeDistricts(connection, agency.districts);
    (void)writeStandardLists(connection, agency.lists);
    setParameter(connection, {}, agencyGroup, nameKey, agency.name.trimmed());
    db::updateStatistics(connection);
    transaction.commit();
}

QString agencyName(db::Connection &connection)
{
    return parameterText(connection, {}, agencyGroup, nameKey);
}

Strength strengthOf(const QString &password)
{
    constexpr qsizetype fairLength = 10;
    constexpr qsizetype strongLength = 14;
    constexpr qsizetype fewestDifferent = 5;
    if (password.size() < shortestPassword)
        return Strength::TooShort;
    const int kinds = kindsOfCharacters(password);
    if (QSet<QChar>(password.begin(), password.end()).size() < fewestDifferent || kinds == 1)
        return Strength::Weak;
    if (password.size() >= strongLength || (password.size() >= fairLength && kinds > 2))
        return Strength::Strong;
    return password.size() >= fairLength || kinds > 2 ? Strength::Fair : Strength::Weak;
}

} // namespace ebtq::host
