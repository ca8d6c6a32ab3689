#pragma once

#include "screens/export/table_text.h"

namespace ebtq {

/// An XLSX workbook with one sheet of captions and rows: numbers and sums as numbers, dates as dates,
/// everything else as text, so that nothing in it is ever a formula. Numbers of more than 15 digits, which a
/// spreadsheet would round, those that it does not know, and dates before 1901 stay texts. The heading row is
/// bold, stays visible and filters; rows keep the colours of the list.
///
/// The file is written completely or left as it was; false when `progress` stopped it. Throws Failure when it
/// cannot be written or when the list does not fit a sheet.
bool writeWorkbook(const ShownGrid &table, const QString &path, const ExportProgress &progress = {});

} // namespace ebtq
