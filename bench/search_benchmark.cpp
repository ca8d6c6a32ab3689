#include "agency.h"
#include "benchmarks.h"
#include "host/module_ids.h"
#include "library/listings/fcxx.h"
#include "measure.h"

#include <QJsonObject>

#include <cstring>

namespace ebtq::bench {

namespace {

/// Every occurrence of the text in the bytes, as one plain pass finds them.
size_t countIn(std::string_view bytes, std::string_view text)
{
    size_t found = 0;
    const char *at = bytes.data();
    const char *end = bytes.data() + bytes.size();
    while (const void *hit = memmem(at, static_cast<size_t>(end - at), text.data(), text.size())) {
        ++found;
        at = static_cast<const char *>(hit) + text.size();
    }
    return found;
}

/// All cells of the data rows in one text, as they lie in the block that the grid took over.
std::string bytesOf(const VSFlexGrid &grid)
{
    std::string bytes;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        for (int column = 0; column < grid.Cols(); ++column)
            bytes += grid.cell(row, column);
    }
    return bytes;
}

struct Search
{
    const char *name;
    const char16_t *text;
};

/// A name that is rare, a number that is in one row, a word that is in a third of the rows, nothing, and a
/// text over two columns of which each part is frequent.
constexpr Search searches[] = {{"rare", u"FY2026"},
                               {"one", u"00042"},
                               {"frequent", u"出售"},
                               {"none", u"没有这样的内容"},
                               {"spanning", u"出售%有效"}};

} // namespace

int searchBenchmark(const Options &options)
{
    Agency agency(options);
    Fcxx list(agency.desktop());
    list.IReportUI_Init(agency.app(), host::ListingModule);
    if (!list.IReportUI_Refresh())
        return 1;
    VSFlexGrid &grid = list.VS();
    const std::string bytes = bytesOf(grid);
    QJsonObject figures{{QStringLiteral("benchmark"), QStringLiteral("search")},
                        {QStringLiteral("rows"), grid.Rows() - 1},
                        {QStringLiteral("bytes"), static_cast<double>(bytes.size())}};
    double worst = 0;
    for (const Search &search : searches) {
        const QString text = QString::fromUtf16(search.text);
        const std::string needle = text.toStdString();
        const auto times = medians({{"plain", [&] { keep(countIn(bytes, needle)); }},
                                    {"ours", [&] { grid.hideRowsWithout(text, list.SearchBox1().columns()); },
                                     [&] { grid.showAllRows(); }}},
                                   options.rounds * 3);
        const double ratio = times[1] / times[0];
        worst = std::max(worst, ratio);
        figures.insert(QLatin1String(search.name),
                       QJsonObject{{QStringLiteral("plain_ms"), rounded(times[0])},
                                   {QStringLiteral("ours_ms"), rounded(times[1])},
                                   {QStringLiteral("ratio"), rounded(ratio)},
                                   {QStringLiteral("rows_left"), grid.visibleCount()}});
    }
    figures.insert(QStringLiteral("ratio"), rounded(worst));
    print(figures);
    return 0;
}

} // namespace ebtq::bench
