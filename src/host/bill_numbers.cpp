#include "host/bill_numbers.h"

#include "contracts/host_contracts.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

QString period(const QDate &date)
{
    if (!date.isValid())
        throw Failure(u"单据日期无效，无法取得编号！"_s);
    return date.toString(u"yyyyMM");
}

QString wherePeriod(int moduleId, const QDate &date)
{
    return u" where moduleID=%1 and period='%2'"_s.arg(moduleId).arg(period(date));
}

QString prefixOf(db::Connection &connection, int moduleId)
{
    const RowBlock rows =
        connection.query(u"select prefix from host_modules where moduleID=%1"_s.arg(moduleId));
    const QString prefix = rows.rowCount() == 0 ? QString() : rows.value(0, 0).toString();
    if (prefix.isEmpty())
        throw Failure(u"模块 %1 没有单据编号的前缀，无法取得编号！"_s.arg(moduleId));
    return prefix;
}

int lastNumber(db::Connection &connection, int moduleId, const QDate &date)
{
    const RowBlock rows =
        connection.query(u"select lastNumber from host_numbers"_s + wherePeriod(moduleId, date));
    return rows.rowCount() == 0 ? 0 : rows.value(0, 0).toInt();
}

void insertNumber(db::Connection &connection, int moduleId, const QDate &date, int number)
{
    connection.execute(
        u"insert into host_numbers(moduleID,period,lastNumber) values(%1,'%2',%3)"_s.arg(moduleId)
            .arg(period(date))
            .arg(number));
}

/// Changes before it is read: on a server whoever asks at the same time waits here, and then counts on from
/// what this one has taken. False when the month has no row yet.
bool advance(db::Connection &connection, int moduleId, const QDate &date)
{
    return connection.execute(u"update host_numbers set lastNumber=lastNumber+1"_s +
                              wherePeriod(moduleId, date)) != 0;
}

/// Somebody else may be the first of the month at the same moment; then the row is there all the same.
void beginPeriod(db::Connection &connection, int moduleId, const QDate &date)
{
    try {
        insertNumber(connection, moduleId, date, 0);
    } catch (const db::DatabaseError &) {
        if (!connection.inTransaction() ||
            connection.execute(u"update host_numbers set lastNumber=lastNumber"_s +
                               wherePeriod(moduleId, date)) == 0)
            throw;
    }
}

} // namespace

QString billCode(QStringView prefix, const QDate &date, int number)
{
    return u"%1%2%3"_s.arg(prefix, period(date)).arg(number, 4, 10, QLatin1Char('0'));
}

QString previewBillCode(db::Connection &connection, int moduleId, const QDate &date)
{
    return billCode(prefixOf(connection, moduleId), date, lastNumber(connection, moduleId, date) + 1);
}

QString issueBillCode(db::Connection &connection, int moduleId, const QDate &date)
{
    const QString prefix = prefixOf(connection, moduleId);
    db::Transaction transaction(connection, db::Connection::Flush::AfterCommit);
    if (!advance(connection, moduleId, date)) {
        beginPeriod(connection, moduleId, date);
        advance(connection, moduleId, date);
    }
    const int number = lastNumber(connection, moduleId, date);
    transaction.commit();
    return billCode(prefix, date, number);
}

void setLastBillNumber(db::Connection &connection, int moduleId, const QDate &date, int number)
{
    db::Transaction transaction(connection);
    const qint64 changed = connection.execute(u"update host_numbers set lastNumber=%1"_s.arg(number) +
                                              wherePeriod(moduleId, date));
    if (changed == 0)
        insertNumber(connection, moduleId, date, number);
    transaction.commit();
}

} // namespace ebtq::host
