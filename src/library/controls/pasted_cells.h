#pragma once

#include <QStringList>
#include <QStringView>

#include <vector>

namespace ebtq {

/// The cells of a block as spreadsheets put it on the clipboard: tabs between cells, a line for each row,
/// cells that hold tabs, line ends or quotes between quotes. Line ends and tabs within a cell become blanks.
[[nodiscard]] std::vector<QStringList> pastedCells(QStringView text);

} // namespace ebtq
