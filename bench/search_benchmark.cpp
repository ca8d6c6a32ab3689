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
size_t countByMemmem(std::string_view bytes, std::string_view text)
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

size_t countByFind(std::string_view bytes, std::string_view text)
{
    size_t found = 0;
    for (size_t at = bytes.find(text); at != std::string_view::npos; at = bytes.find(text, at + text.size()))
        ++found;
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
    const char16_t *inRows = nullptr; ///< the text as rows hold it; set where case does not count
};

/// A name that is rare, a number that is in one row, a word that is in a third of the rows, nothing, and a
/// text over two columns of which each part is frequent; then without regard to case Latin letters, both
/// scripts, letters with a third form ("K" and "ſ" also stand for k and s), and a text over
/// columns.
constexpr Search searches[] = {{"rare", u"FY2026"},
                               {"one", u"00042"},
                               {"frequent", u"出售"},
                               {"none", u"没有这样的内容"},
                               {"spanning", u"出售%有效"},
                               {"caseless latin", u"fy2026", u"FY2026"},
                               {"caseless both", u"没有such内容", u"没有SUCH内容"},
                               {"caseless third form", u"天河task", u"天河TASK"},
                               {"caseless spanning", u"出售%有效%a", u"出售%有效%A"}};

/// One line; gives the ratio.
double measure(const Search &search, VSFlexGrid &grid, const QList<int> &columns, const std::string &bytes,
               int rounds)
{
    const QString text = QString::fromUtf16(search.text);
    const bool isCaseless = search.inRows != nullptr;
    const auto sensitivity = isCaseless ? Qt::CaseInsensitive : Qt::CaseSensitive;
    const std::string needle = QString::fromUtf16(isCaseless ? search.inRows : search.text).toStdString();
    const auto times = medians(
        {{"memmem", [&] { keep(countByMemmem(bytes, needle)); }},
         {"find", [&] { keep(countByFind(bytes, needle)); }},
         {"ours", [&] { grid.hideRowsWithout(text, columns, sensitivity); }, [&] { grid.showAllRows(); }}},
        rounds);
    const double plain = std::min(times[0], times[1]);
    print({{QStringLiteral("search"), QLatin1String(search.name)},
           {QStringLiteral("plain_ms"), rounded(plain)},
           {QStringLiteral("ours_ms"), rounded(times[2])},
           {QStringLiteral("ratio"), rounded(times[2] / plain)},
           {QStringLiteral("rows_left"), grid.visibleCount()}});
    return times[2] / plain;
}

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
    double exact = 0;
    double caseless = 0;
    for (const Search &search : searches) {
        double &worst = search.inRows ? caseless : exact;
        worst =
            std::max(worst, measure(search, grid, list.SearchBox1().columns(), bytes, options.rounds * 3));
    }
    print({{QStringLiteral("benchmark"), QStringLiteral("search")},
           {QStringLiteral("rows"), grid.Rows() - 1},
           {QStringLiteral("bytes"), static_cast<double>(bytes.size())},
           {QStringLiteral("ratio_exact"), rounded(exact)},
           {QStringLiteral("ratio_caseless"), rounded(caseless)},
           {QStringLiteral("ratio"), rounded(std::max(exact, caseless))}});
    return 0;
}

} // namespace ebtq::bench
