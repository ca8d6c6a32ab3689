#pragma once

#include <QString>

#include <string>
#include <vector>

namespace ebtq {

/// One column of a grid; widths in pixels at 96 dots an inch.
struct GridColumn
{
    std::string caption = {};
    int width = 0;
    int alignment = 0;
    int fixedAlignment = 0;
    bool hidden = false; ///< by the screen itself; a person hides a column by giving it no width
    int givenWidth = 0;  ///< of the screen as it was built
    int shownWidth = 0;  ///< the last one above 0
    bool isMerged = false;
    int dataType = 0;
    QString format = {};
};

/// Columns of a format string: captions separated by "|", each with an optional "<", "^" or ">" in front that
/// aligns the column left, centred or right. The caption shown is without its blanks; they only count for the
/// width.
[[nodiscard]] std::vector<GridColumn> gridColumns(const QString &format);

/// A new column without a caption.
[[nodiscard]] GridColumn emptyGridColumn();

/// Width of a column as wide as that text: 7 pixels for each letter or blank, 14 for each Chinese character,
/// and 14 for the cell's edges. It does not depend on the font, so that a stored layout looks alike
/// everywhere.
[[nodiscard]] int gridColumnWidth(QStringView text);

} // namespace ebtq
