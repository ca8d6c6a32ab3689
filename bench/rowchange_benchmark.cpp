#include "benched_list.h"
#include "benchmarks.h"
#include "measure.h"
#include "statement_trace.h"

#include <QJsonObject>

#include <deque>
#include <iostream>

namespace ebtq::bench {

namespace {

constexpr int mostVisited = 500;
constexpr int rowsInStretch = 20;

/// Goes down a stretch of the list, whose rows are visited in even steps.
void goDown(VSFlexGrid &grid, int stretch)
{
    const int rows = grid.Rows() - grid.FixedRows();
    const int visited = std::min(rows, mostVisited);
    const int last = std::min((stretch + 1) * rowsInStretch, visited);
    for (int step = stretch * rowsInStretch + 1; step <= last; ++step)
        grid.setRow(static_cast<int>(static_cast<qint64>(rows) * step / visited));
}

/// The statements of one stretch, and the ways to have them run.
struct Stretch
{
    std::vector<QByteArray> texts;
    std::unique_ptr<PreparedStatements> prepared;

    [[nodiscard]] std::vector<Contender> contenders(sqlite3 *handle, const std::function<void()> &ours) const
    {
        return {{"bare",
                 [this, handle] {
                     for (const QByteArray &text : texts)
                         runBare(handle, text);
                 }},
                {"prepared", [this] { prepared->run(); }},
                {"ours", ours}};
    }
};

QJsonObject measureTab(BenchedList &benched, int tab, sqlite3 *handle, int rounds)
{
    RecordList &list = benched.module();
    benched.tabs().setActiveTab(tab);
    const int changes = std::min(list.VS().Rows() - 1, mostVisited);
    std::deque<Stretch> stretches;
    std::vector<std::vector<Contender>> contenders;
    size_t statements = 0;
    for (int at = 0; at * rowsInStretch < changes; ++at) {
        const auto ours = [&list, at] { goDown(list.VS(), at); };
        Stretch &stretch = stretches.emplace_back();
        stretch.texts = statementsOf(handle, ours);
        stretch.prepared = std::make_unique<PreparedStatements>(handle, stretch.texts);
        contenders.push_back(stretch.contenders(handle, ours));
        statements += stretch.texts.size();
    }
    const auto times = sumsOfMedians(contenders, rounds);
    return {{QStringLiteral("statements"), static_cast<double>(statements) / changes},
            {QStringLiteral("bare_us"), rounded(times[0] * 1000 / changes)},
            {QStringLiteral("prepared_before_us"), rounded(times[1] * 1000 / changes)},
            {QStringLiteral("ours_us"), rounded(times[2] * 1000 / changes)},
            {QStringLiteral("ratio"), rounded(times[2] / times[0])}};
}

/// As many customers and follow-ups to a listing as an agency has.
Options inProportion(Options options)
{
    if (options.module != QStringLiteral("customers"))
        options.customers = options.rows / 4;
    options.followUps = options.rows * 5 / 4;
    return options;
}

} // namespace

int rowChangeBenchmark(const Options &options)
{
    Agency agency(inProportion(BenchedList::sized(options)));
    BenchedList list(options, agency);
    QJsonObject figures{{QStringLiteral("benchmark"), QStringLiteral("rowchange")},
                        {QStringLiteral("module"), options.module},
                        {QStringLiteral("rows"), list.module().VS().Rows() - 1}};
    // The last one of the listings, their pictures, is a count alone.
    const char *const names[] = {"record", "confidential", "third", "fourth"};
    double ratios[] = {0, 0};
    for (int tab = 1; tab <= static_cast<int>(std::size(names)); ++tab) {
        const QJsonObject measured = measureTab(list, tab, agency.connection().handle(), options.rounds);
        double &worst = ratios[tab <= 2 ? 0 : 1];
        worst = std::max(worst, measured[QStringLiteral("ratio")].toDouble());
        figures.insert(QLatin1String(names[tab - 1]), measured);
    }
    figures.insert(QStringLiteral("ratio_fields"), ratios[0]);
    figures.insert(QStringLiteral("ratio_grids"), ratios[1]);
    print(figures);
    return 0;
}

} // namespace ebtq::bench
