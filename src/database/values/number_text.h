#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace ebtq {

/// The leading number of a text: blanks, tabs and line ends are skipped wherever they stand, a sign, digits,
/// one decimal point and an exponent (E or D) are read, "&H" and "&O" open a hexadecimal or octal integer;
/// reading stops at the first other character. 0 when there is no number. Never fails: what is too large
/// gives the largest number, so that no typed text breaks a statement that reads it.
[[nodiscard]] double leadingNumber(std::string_view text);
[[nodiscard]] double leadingNumber(QStringView text);

/// A number as text: at most 15 significant digits, a point whatever the locale, no trailing zeros or point,
/// an exponent as in 1E+15 from 10^15 on and below 0.0001.
[[nodiscard]] std::string numberText(double number);
[[nodiscard]] QString numberString(double number);

/// The shortest text that reads back as the same number, for copies and comparisons: whole numbers of up to
/// 64 bits in full, all others with as many digits as it takes and an exponent where that is shorter.
[[nodiscard]] std::string exactNumberText(double number);
/// A text as a number; nothing when it is none from end to end.
[[nodiscard]] std::optional<double> exactNumber(std::string_view text);

} // namespace ebtq
