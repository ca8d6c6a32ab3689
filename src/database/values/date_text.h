#pragma once

#include <QDateTime>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace ebtq {

/// Dates in three forms. Stored: "2026-09-08" or "2026-09-08 14:05:09", which sort as text and are the same
/// on every engine. Regional, what people see and type: "2026-9-8", with " 14:05:09" unless it is midnight.
/// In memory: a QDateTime in local time without a zone.

/// Reads year-month-day, year/month/day and month/day/year, each with or without hours:minutes[:seconds]
/// [AM|PM].
/// Nothing for any other text and for a day that no calendar has. Years are 100 to 9999; two-digit years are
/// refused.
[[nodiscard]] std::optional<QDateTime> parseDate(QStringView text);

[[nodiscard]] QString regionalDate(const QDateTime &date);
[[nodiscard]] QString regionalDate(const QDate &date);

/// The stored form; the time is left out at midnight.
[[nodiscard]] QString storedDate(const QDateTime &date);

/// Whether a text stands in stored form, digit by digit; whether there is such a day is not looked at.
[[nodiscard]] bool isStoredDate(std::string_view text);

/// Appends the regional form of a stored date. A text that is no stored date is appended as it stands: a
/// foreign value is shown rather than lost.
void appendRegionalDate(std::string_view stored, std::string &out);

} // namespace ebtq
