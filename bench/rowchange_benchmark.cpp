#include "agency.h"
#include "benchmarks.h"
#include "host/module_ids.h"
#include "library/listings/fcxx.h"
#include "measure.h"
#include "statement_trace.h"

#include <QJsonObject>

#include <iostream>

namespace ebtq::bench {

namespace {

constexpr int rowsVisited = 500;

/// Goes down the list in even steps, and back to its first row.
void goDown(VSFlexGrid &grid)
{
    const int rows = grid.Rows() - grid.FixedRows();
    const int visited = std::min(rows, rowsVisited);
    for (int step = 1; step <= visited; ++step)
        grid.setRow(static_cast<int>(static_cast<qint64>(rows) * step / visited));
    grid.setRow(grid.FixedRows());
}

QJsonObject measureTab(Fcxx &list, int tab, sqlite3 *handle, int rounds)
{
    list.detail().qzVSTabCtl1().setActiveTab(tab);
    const std::vector<QByteArray> texts = statementsOf(handle, [&] { goDown(list.VS()); });
    const PreparedStatements prepared(handle, texts);
    const auto times = medians({{"bare",
                                 [&] {
                                     for (const QByteArray &text : texts)
                                         runBare(handle, text);
                                 }},
                                {"prepared", [&] { prepared.run(); }},
                                {"ours", [&] { goDown(list.VS()); }}},
                               rounds);
    const double changes = std::min(list.VS().Rows() - 1, rowsVisited) + 1;
    return {{QStringLiteral("statements"), static_cast<double>(texts.size()) / changes},
            {QStringLiteral("bare_us"), rounded(times[0] * 1000 / changes)},
            {QStringLiteral("prepared_before_us"), rounded(times[1] * 1000 / changes)},
            {QStringLiteral("ours_us"), rounded(times[2] * 1000 / changes)},
            {QStringLiteral("ratio"), rounded(times[2] / times[0])}};
}

/// As many customers and follow-ups to a listing as an agency has.
Options inProportion(Options options)
{
    options.customers = options.rows / 4;
    options.followUps = options.rows * 5 / 4;
    return options;
}

} // namespace

int rowChangeBenchmark(const Options &options)
{
    Agency agency(inProportion(options));
    Fcxx list(agency.desktop());
    QObject::connect(&list, &Fcxx::ErrMessage, &list,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    list.IReportUI_Init(agency.app(), host::ListingModule);
    list.IReportUI_DoGetFormStatus(agency.app().Session().AppPath() + QStringLiteral("/Fcxx.txt"));
    if (!list.IReportUI_Refresh())
        return 1;
    QJsonObject figures{{QStringLiteral("benchmark"), QStringLiteral("rowchange")},
                        {QStringLiteral("rows"), list.VS().Rows() - 1}};
    const std::pair<int, const char *> tabs[] = {
        {1, "listing"}, {2, "owner"}, {3, "follow_ups"}, {4, "customers"}};
    double ratios[] = {0, 0};
    for (const auto &[tab, name] : tabs) {
        const QJsonObject measured = measureTab(list, tab, agency.connection().handle(), options.rounds);
        double &worst = ratios[tab <= 2 ? 0 : 1];
        worst = std::max(worst, measured[QStringLiteral("ratio")].toDouble());
        figures.insert(QLatin1String(name), measured);
    }
    figures.insert(QStringLiteral("ratio_fields"), ratios[0]);
    figures.insert(QStringLiteral("ratio_grids"), ratios[1]);
    print(figures);
    return 0;
}

} // namespace ebtq::bench
