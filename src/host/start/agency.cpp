#include "host/start/agency.h"

#include "contracts/host_contracts.h"
#include "database/schema/installer.h"
#include "host/host_parameters.h"
#include "host/rights.h"
#include "host/setup.h"
#include "host/staff.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr int agencyGroup = 12;
const QString nameKey = u"agency"_s;

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
    if (!agency.districts.empty() && connection.query(u"select top 1 地区ID from pdmdq"_s).rowCount() != 0)
        throw Failure(u"数据库中已有地区，请不要再给出地区！"_s);
    grantAll(connection, hire(connection, agency.administrator, agency.password, agency.department, cost));
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
