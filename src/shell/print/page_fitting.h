#pragma once

#include <functional>
#include <vector>

/// How a list is cut into pages, in any one unit and without a painter.
namespace ebtq::shell {

/// The width that a column would like, and the smallest at which its contents can be read.
struct ColumnNeed
{
    double wish = 0;
    double least = 0;
};

/// Columns on paper: `bands` are side by side, each as wide as a page, and everything in them is scaled by
/// `scale`.
struct FittedColumns
{
    struct Column
    {
        int number = 0;
        double left = 0;
        double width = 0;
    };
    using Band = std::vector<Column>;

    double scale = 1;
    std::vector<Band> bands;
};

/// Keeps the proportions of the wishes on a page of that width. What is too wide gives up the room that it
/// does not need; then everything becomes smaller together, but not below `smallestScale`, where nobody could
/// read it. From there on, and with `smallestScale` 1 at once, columns stay as they are and go on on further
/// pages, which can be laid side by side. There is always one band, also without columns.
[[nodiscard]] FittedColumns fitColumns(const std::vector<ColumnNeed> &needs, double width,
                                       double smallestScale);

/// The first row of each page on which rows of these heights stand below one another within `room`; at least
/// one row a page, and one page without rows. `goOn` is asked now and then; empty when it said no.
[[nodiscard]] std::vector<int> breakPages(int rows, double room, const std::function<double(int row)> &height,
                                          const std::function<bool(int row)> &goOn);

} // namespace ebtq::shell
