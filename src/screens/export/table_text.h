#pragma once

#include <QString>

#include <functional>
#include <string>
#include <string_view>

namespace ebtq {

class ShownGrid;

/// Lists as text for other programs. Columns without a caption hold icons, which a text cannot tell; whoever
/// calls leaves them out by ShownGrid::keepCaptioned.

/// Told now and then how many rows are done; false stops the writing.
using ExportProgress = std::function<bool(int rowsDone)>;

/// A number as people write it, from a sign or digit to a "%" at its end; "," may separate thousands.
[[nodiscard]] bool looksLikeNumber(std::string_view text);

/// One cell of a CSV file as RFC 4180 says: in quotes when it holds a quote, a comma or a line's end, quotes
/// doubled.
///
/// A spreadsheet takes a cell that begins with = + - @ or their full-width forms, or with a tab or a line's
/// end, for a formula, and runs it. Such a cell gets an apostrophe in front unless it is a number: "-12.5"
/// stays, "=1+1" and "-外环" become "'=1+1" and "'-外环".
void appendCsvCell(std::string_view text, std::string &out);

/// A CSV file of captions and rows: UTF-8 with byte order mark, lines ended by CR LF. The file is written
/// completely or left as it was; false when `progress` stopped it. Throws Failure when it cannot be written.
bool writeCsv(const ShownGrid &table, const QString &path, const ExportProgress &progress = {});

/// What a cell of the clipboard's text that a spreadsheet would run is: as it is shown, or guarded as in a
/// CSV file.
enum class Formulas : quint8 { AsShown, Guarded };

/// For the clipboard: captions and rows separated by tabs and line ends, and as an HTML table. In the plain
/// text a cell with a tab, a line end or a quote is quoted. In the table, texts are marked as such, so that a
/// spreadsheet neither runs them as formulas nor cuts leading zeros; where there is no table, they are to be
/// guarded.
[[nodiscard]] QString tabbedText(const ShownGrid &table, Formulas formulas);
[[nodiscard]] QString htmlTable(const ShownGrid &table);

/// Why a file could not be written, for the user.
[[nodiscard]] QString notWritten(const QString &path, const QString &reason);

} // namespace ebtq
