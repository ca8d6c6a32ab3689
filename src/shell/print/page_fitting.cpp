#include "shell/print/page_fitting.h"

#include <algorithm>
#include <numeric>

namespace ebtq::shell {

namespace {

constexpr int rowsBetweenQuestions = 256;

/// Side by side, on a new band whenever the next column does not fit.
std::vector<FittedColumns::Band> bandsOf(const std::vector<double> &widths, double width)
{
    constexpr double rounding = 1e-6;
    std::vector<FittedColumns::Band> bands(1);
    double left = 0;
    for (size_t number = 0; number < widths.size(); ++number) {
        const double own = std::min(widths[number], width);
        if (left > 0 && left + own > width * (1 + rounding)) {
            bands.emplace_back();
            left = 0;
        }
        bands.back().push_back({static_cast<int>(number), left, own});
        left += own;
    }
    return bands;
}

double sumOf(const std::vector<ColumnNeed> &needs, double ColumnNeed::*member)
{
    return std::accumulate(needs.begin(), needs.end(), 0.0,
                           [member](double sum, const ColumnNeed &need) { return sum + need.*member; });
}

} // namespace

FittedColumns fitColumns(const std::vector<ColumnNeed> &needs, double width, double smallestScale)
{
    const double wish = sumOf(needs, &ColumnNeed::wish);
    const double least = sumOf(needs, &ColumnNeed::least);
    const double stretch = wish > 0 ? width / wish : 1;
    const double scale = least > 0 ? std::min(1.0, width / least) : 1;
    std::vector<double> widths;
    for (const ColumnNeed &need : needs) {
        if (wish <= width)
            widths.push_back(need.wish * stretch);
        else if (least <= width)
            widths.push_back(need.least + (need.wish - need.least) * (width - least) / (wish - least));
        else
            widths.push_back(scale < smallestScale ? need.least : need.least * scale);
    }
    return {scale < smallestScale ? 1 : scale, bandsOf(widths, width)};
}

std::vector<int> breakPages(int rows, double room, const std::function<double(int)> &height,
                            const std::function<bool(int)> &goOn)
{
    std::vector<int> firstRows{0};
    double used = 0;
    for (int row = 0; row < rows; ++row) {
        if (row % rowsBetweenQuestions == 0 && !goOn(row))
            return {};
        const double own = height(row);
        if (used > 0 && used + own > room) {
            firstRows.push_back(row);
            used = 0;
        }
        used += own;
    }
    return firstRows;
}

} // namespace ebtq::shell
