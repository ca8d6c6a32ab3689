#include "benched_list.h"
#include "benchmarks.h"
#include "database/values/date_text.h"
#include "measure.h"
#include "server_statements.h"

#include <QJsonObject>

#include <iostream>

namespace ebtq::bench {

namespace {

/// The first cell that the grid shows otherwise; empty when there is none.
QString firstDifference(pg_conn *handle, BenchedList &list)
{
    const VSFlexGrid &grid = list.module().VS();
    QString difference;
    int rows = 0;
    fetchFromServer(handle, list.forServer(), [&](int row, int column, std::string_view cell) {
        rows = row + 1;
        std::string regional;
        appendRegionalDate(cell, regional);
        if (difference.isEmpty() && row + 1 < grid.Rows() &&
            grid.cell(row + 1, column + list.firstColumn()) != regional)
            difference = QStringLiteral("row %1, column %2").arg(row).arg(column);
    });
    return rows + 1 == grid.Rows() ? difference
                                   : QStringLiteral("%1 rows for %2").arg(grid.Rows() - 1).arg(rows);
}

} // namespace

int serverListBenchmark(const Options &options)
{
    Agency agency(BenchedList::sized(options));
    agency.server().executeNative("analyze");
    BenchedList benched(options, agency);
    RecordList &list = benched.module();
    const QByteArray &sql = benched.forServer();
    pg_conn *handle = agency.server().handle();
    if (const QString difference = firstDifference(handle, benched); !difference.isEmpty()) {
        std::cerr << "the grid and the hand-written statement differ: " << qPrintable(difference) << '\n';
        return 1;
    }
    const auto times =
        medians({{"copy", [&] { copyFromServer(handle, sql); }}, {"ours", [&] { list.IReportUI_Refresh(); }}},
                options.rounds);
    const double rows = list.VS().Rows() - 1;
    print({{QStringLiteral("benchmark"), QStringLiteral("list")},
           {QStringLiteral("engine"), QStringLiteral("postgresql")},
           {QStringLiteral("module"), options.module},
           {QStringLiteral("rows"), rows},
           {QStringLiteral("copy_ms"), rounded(times[0])},
           {QStringLiteral("ours_ms"), rounded(times[1])},
           {QStringLiteral("ratio_copy"), rounded(times[1] / times[0])},
           {QStringLiteral("ours_us_per_row"), rounded(times[1] * 1000 / rows)}});
    return 0;
}

} // namespace ebtq::bench
