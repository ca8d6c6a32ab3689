#include "benched_list.h"
#include "benchmarks.h"
#include "database/sqlite/functions.h"
#include "database/values/date_text.h"
#include "measure.h"

#include <QJsonObject>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQueryModel>

#include <sqlite3.h>

#include <ctime>
#include <iostream>
#include <limits>

namespace ebtq::bench {

namespace {

/// Steps a statement of the engine's own with every cell's text read; `take` gets each cell.
template<class Take> void stepThrough(sqlite3 *handle, const QByteArray &sql, Take take)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(handle, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
    const int columns = sqlite3_column_count(statement);
    for (int row = 0; sqlite3_step(statement) == SQLITE_ROW; ++row) {
        for (int column = 0; column < columns; ++column) {
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
            take(row, column, std::string_view(text ? text : "", sqlite3_column_bytes(statement, column)));
        }
    }
    sqlite3_finalize(statement);
}

void readRaw(sqlite3 *handle, const QByteArray &sql)
{
    size_t bytes = 0;
    stepThrough(handle, sql, [&](int, int, std::string_view cell) { bytes += cell.size(); });
    keep(bytes);
}

/// The first difference between the grid and the hand-written statement; empty when there is none.
QString firstDifference(sqlite3 *handle, BenchedList &list)
{
    const VSFlexGrid &grid = list.module().VS();
    QString difference;
    int rows = 0;
    stepThrough(handle, list.forSqlite(), [&](int row, int column, std::string_view cell) {
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

/// A Qt SQL connection to the same file, for the model that most programs would use.
class QtDatabase
{
public:
    explicit QtDatabase(const QString &file)
        : m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench")))
    {
        m_database.setDatabaseName(file);
        if (!m_database.open())
            throw std::runtime_error(m_database.lastError().text().toStdString());
        // The text columns' collation is the program's own.
        db::registerFunctions(*static_cast<sqlite3 *const *>(m_database.driver()->handle().constData()));
    }
    void fetchAll(const QByteArray &sql) const
    {
        QSqlQueryModel model;
        model.setQuery(QString::fromUtf8(sql), m_database);
        while (model.canFetchMore())
            model.fetchMore();
        keep(static_cast<size_t>(model.rowCount()));
    }

private:
    QSqlDatabase m_database;
};

/// Processor time of the fastest round, in milliseconds: what other programs do at the same time hardly
/// counts.
double processorTime(const std::function<void()> &run, int rounds)
{
    double least = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round) {
        const std::clock_t begin = std::clock();
        run();
        least = std::min(least, static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC);
    }
    return least;
}

} // namespace

int listBenchmark(const Options &options)
{
    if (db::PostgresAddress::isUrl(options.database))
        return serverListBenchmark(options);
    Agency agency(BenchedList::sized(options));
    BenchedList benched(options, agency);
    RecordList &list = benched.module();
    const QByteArray &sql = benched.forSqlite();
    sqlite3 *handle = agency.connection().handle();
    if (const QString difference = firstDifference(handle, benched); !difference.isEmpty()) {
        std::cerr << "the grid and the hand-written statement differ: " << qPrintable(difference) << '\n';
        return 1;
    }
    const QtDatabase qt(agency.file());
    const auto times = medians({{"raw", [&] { readRaw(handle, sql); }},
                                {"ours", [&] { list.IReportUI_Refresh(); }},
                                {"qt", [&] { qt.fetchAll(sql); }}},
                               options.rounds);
    const double processor = processorTime([&] { list.IReportUI_Refresh(); }, options.rounds);
    const double rows = list.VS().Rows() - 1;
    print({{QStringLiteral("benchmark"), QStringLiteral("list")},
           {QStringLiteral("module"), options.module},
           {QStringLiteral("rows"), rows},
           {QStringLiteral("raw_ms"), rounded(times[0])},
           {QStringLiteral("ours_ms"), rounded(times[1])},
           {QStringLiteral("qt_model_ms"), rounded(times[2])},
           {QStringLiteral("ratio_raw"), rounded(times[1] / times[0])},
           {QStringLiteral("ratio_qt"), rounded(times[2] / times[1])},
           {QStringLiteral("ours_us_per_row"), rounded(times[1] * 1000 / rows)},
           {QStringLiteral("ours_cpu_us_per_row"), rounded(processor * 1000 / rows)},
           {QStringLiteral("bytes_per_row"), rounded(static_cast<double>(list.VS().byteSize()) / rows)}});
    return 0;
}

} // namespace ebtq::bench
