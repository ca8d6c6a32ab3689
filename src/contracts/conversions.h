#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

#include <optional>

namespace ebtq {

// The conversions that the modules' rules speak of. Dates have theirs in database/values/date_text.h.

/// The leading number of a text or of a value's text, 0 when there is none: "12.5万" is 12.5.
[[nodiscard]] double Val(const QString &text);
[[nodiscard]] double Val(const QVariant &value);

/// A number that a person typed, as `Val` reads it: full-width digits become plain ones, blanks around it and
/// commas or blanks between thousands go. Empty for blanks alone, nothing for a text that is no number from
/// end to end.
[[nodiscard]] std::optional<QString> TypedNumber(const QString &text);

/// A date that a person typed: in a form that the database reads, with points or 年, 月 and 日 between its
/// parts, as eight digits, without the year, which is then that of `today`, as 前天 to 后天, or as days from
/// `today` on ("+7"); full-width digits are plain ones. Nothing for any other text.
[[nodiscard]] std::optional<QDateTime> TypedDate(const QString &text, const QDate &today);

/// A number in the shortest form, without a trailing ".0"; with an exponent from 1E+15 on.
[[nodiscard]] QString NumberText(double number);

/// A number as it may stand in a statement: digits and a point, never an exponent. Throws Failure for one
/// that is too large to be a number at all.
[[nodiscard]] QString PlainDecimal(double number);

/// A number by a pattern of digits such as "#,##0.00": "0" is a digit that is always there, "#" one that is
/// there when needed, a "," left of the point parts thousands. The last digit is rounded half away from zero
/// on the number's decimal form, so that 1.005 gives 1.01. Null gives the empty text; a text that is no
/// number and a pattern of other kinds give the value's text as it is.
[[nodiscard]] QString Format(const QVariant &value, QStringView pattern);

/// The text without blanks at both ends. Tabs, line ends and wide blanks are contents and stay: what was
/// stored with them is found only with them.
[[nodiscard]] QString Trim(QStringView text);

/// The part of a number before its point, kept within the range of an int.
[[nodiscard]] int WholePart(double number);

} // namespace ebtq
