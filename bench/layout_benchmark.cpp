#include "agency.h"
#include "benchmarks.h"
#include "contracts/host_contracts.h"
#include "database/values/number_text.h"
#include "library/controls/flex_grid.h"
#include "library/layout/grid_layout.h"
#include "library/layout/ini_store.h"
#include "measure.h"

#include <QJsonObject>

namespace ebtq::bench {

namespace {

constexpr int columns = 21;
constexpr int groups[] = {4, 5};
constexpr int totals[] = {11, 14, 15};

/// Rows as the list of listings has them, ordered by district and building as a list with sums is.
RowBlock sortedListings(int rows)
{
    RowBlock block{std::vector<Column>(columns)};
    for (int row = 0; row < rows; ++row) {
        const std::string number = std::to_string(row);
        for (int col = 0; col < columns; ++col) {
            if (col == groups[0])
                block.append("城区" + std::to_string(row * 10LL / rows));
            else if (col == groups[1])
                block.append("楼盘" + std::to_string(row * 300LL / rows));
            else if (col == totals[0])
                block.append(std::to_string(40 + row % 160) + "." + std::to_string(row % 10));
            else if (col == totals[1])
                block.append(std::to_string(100 + row % 900) + "万元");
            else if (col == totals[2])
                block.append(std::to_string(1000 + row % 9000) + "元/月");
            else
                block.append(number);
        }
    }
    block.finish();
    return block;
}

void writeLayout(const QString &file)
{
    IniStore store;
    store.setFileName(file);
    for (const int group : groups)
        store.SetInt(QStringLiteral("VsIsGroupOn"), QStringLiteral("VsCol%1").arg(group), 1);
    for (const int total : totals)
        store.SetInt(QStringLiteral("VsIsTotalOn"), QStringLiteral("VsCol%1").arg(total), 1);
    if (!store.save())
        throw Failure(QStringLiteral("cannot write %1").arg(file));
}

double plainSum(const VSFlexGrid &grid, int col)
{
    double sum = 0;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
        sum += leadingNumber(grid.cell(row, col));
    return sum;
}

struct Times
{
    double oneSum;
    double allSums;
    double restore;
    int sumRows;
};

Times measure(int rows, int rounds, const QString &file, HostApp &app)
{
    VSFlexGrid plain(QStringLiteral("VS"));
    VSFlexGrid shaped(QStringLiteral("VS"));
    for (VSFlexGrid *grid : {&plain, &shaped}) {
        grid->setFormatString(QString(columns - 1, u'|'));
        grid->setFixedCols(0);
        grid->LoadArray(sortedListings(rows));
    }
    const auto times = medians(
        {{"one sum", [&] { keep(static_cast<size_t>(plainSum(plain, totals[0]))); }},
         {"all sums",
          [&] {
              for (const int total : totals)
                  keep(static_cast<size_t>(plainSum(plain, total)));
          }},
         {"restore", [&] { GridRestore(file, shaped, false, app); }, [&] { shaped.clearSubtotals(); }}},
        rounds * 3);
    return {times[0], times[1], times[2], shaped.Rows() - plain.Rows()};
}

} // namespace

/// Ours reads three columns once each, compares two with the row before and puts the rows of the sums among
/// the others; a plain sum reads one column.
int layoutBenchmark(const Options &options)
{
    Options small = options;
    small.rows = 1;
    small.customers = 1;
    small.followUps = 1;
    Agency agency(small);
    const QString file = agency.app().Session().AppPath() + QStringLiteral("/layout.txt");
    writeLayout(file);
    const Times times = measure(options.rows, options.rounds, file, agency.app());
    const Times tenfold = measure(options.rows * 10, std::max(1, options.rounds / 3), file, agency.app());
    print(
        {{QStringLiteral("benchmark"), QStringLiteral("layout")},
         {QStringLiteral("rows"), options.rows},
         {QStringLiteral("sum_rows"), times.sumRows},
         {QStringLiteral("plain_sum_ms"), rounded(times.oneSum)},
         {QStringLiteral("three_plain_sums_ms"), rounded(times.allSums)},
         {QStringLiteral("restore_ms"), rounded(times.restore)},
         {QStringLiteral("ratio"), rounded(times.restore / times.oneSum)},
         {QStringLiteral("meaning"),
          QStringLiteral("ratio: restoring the layout (reading the file, sums of three columns by two groups "
                         "and in all) takes as long as that many plain sums over one column; growth near 10 "
                         "for ten times the rows: linear")},
         {QStringLiteral("ratio_three_sums"), rounded(times.restore / times.allSums)},
         {QStringLiteral("tenfold_rows_restore_ms"), rounded(tenfold.restore)},
         {QStringLiteral("tenfold_ratio"), rounded(tenfold.restore / tenfold.oneSum)},
         {QStringLiteral("growth_for_tenfold_rows"), rounded(tenfold.restore / times.restore)}});
    return 0;
}

} // namespace ebtq::bench
