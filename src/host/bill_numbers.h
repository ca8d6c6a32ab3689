#pragma once

#include "database/connection.h"

#include <QDate>
#include <QString>

namespace ebtq::host {

/// Document numbers: the module's prefix, year, month, then a number that runs through the month, of at least
/// four digits, as in FY2026110012. Both throw Failure for a module without numbers and for an invalid date,
/// and db::DatabaseError.

/// The number that comes next; nothing is used up, so another person may be given the same one.
[[nodiscard]] QString previewBillCode(db::Connection &connection, int moduleId, const QDate &date);
/// A number given out once and for all, by one write transaction or within the one that is open: numbers are
/// never given out twice, whoever else asks at the same time. What a rolled back transaction took comes back.
[[nodiscard]] QString issueBillCode(db::Connection &connection, int moduleId, const QDate &date);

/// The running number that is the last one given out so far, for rows that bring their numbers along.
void setLastBillNumber(db::Connection &connection, int moduleId, const QDate &date, int number);
[[nodiscard]] QString billCode(QStringView prefix, const QDate &date, int number);

} // namespace ebtq::host
