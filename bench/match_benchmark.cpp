#include "agency.h"
#include "benchmarks.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "host/module_ids.h"
#include "library/listings/fcxx.h"
#include "library/listings/listing_matching.h"
#include "measure.h"
#include "server_statements.h"
#include "statement_trace.h"

#include <QJsonObject>

#include <algorithm>
#include <iostream>

namespace ebtq::bench {

namespace {

constexpr int customersTab = 4;

/// A customer's search that is hard, one that finds few, one that finds all; keys as the system gives them.
struct Listing
{
    const char *name;
    const char16_t *key;
    const char16_t *measures; ///< floor, area, sale price, rent
};
constexpr Listing listings[] = {
    {"usual", u"BE4C0000-0000-4000-8000-000000000001", u"'12',90,150,0"},
    {"rent", u"BE4C0000-0000-4000-8000-000000000002", u"'6',75,0,2500"},
    {"villa", u"BE4C0000-0000-4000-8000-000000000003", u"'2',280,700,0"},
    {"few", u"BE4C0000-0000-4000-8000-000000000004", u"'2',600,5000,0"},
    {"all", u"BE4C0000-0000-4000-8000-000000000005", u"'',0,0,0"},
};

/// What only the engine can tell.
struct Engine
{
    std::function<void(const QByteArray &text)> run; ///< bare, every value read
    std::function<QByteArray(const QByteArray &text)> plan;
};

Engine embedded(sqlite3 *handle)
{
    return {[handle](const QByteArray &text) { runBare(handle, text); },
            [handle](const QByteArray &text) { return planOf(handle, text); }};
}

Engine server(db::PostgresConnection &connection)
{
    return {[handle = connection.handle()](const QByteArray &text) { readFromServer(handle, text); },
            [&connection](const QByteArray &text) {
                QByteArray plan;
                const RowBlock rows = connection.queryNative("explain (costs off) " + text);
                for (qsizetype row = 0; row < rows.rowCount(); ++row)
                    plan += rows.value(row, 0).toString().toUtf8() + '\n';
                return plan;
            }};
}

/// What the tab asks for a listing, in the engine's language.
std::vector<QByteArray> statementsFor(db::Connection &connection, const QString &key)
{
    const SqlText measures = measuresStatement(key);
    const SqlText customers = matchingCustomersStatement(DetailRecord(connection.query(measures)));
    std::vector<QByteArray> texts;
    for (const SqlText &statement : {measures, customers})
        texts.push_back(db::translate(statement, connection.dialect(), connection.catalog()).sql);
    return texts;
}

/// A search that takes no time to speak of is repeated until a round does.
size_t repetitions(const std::function<void()> &run)
{
    constexpr double wantedMilliseconds = 50;
    constexpr double most = 100;
    const double once = medians({{"once", run}}, 3)[0];
    return static_cast<size_t>(std::clamp(wantedMilliseconds / once, 1.0, most));
}

QJsonObject measureListing(Fcxx &list, const Listing &listing, db::Connection &connection,
                           const Engine &engine, int rounds)
{
    const QString key = QString::fromUtf16(listing.key);
    const std::vector<QByteArray> texts = statementsFor(connection, key);
    const auto bare = [&] {
        for (const QByteArray &text : texts)
            engine.run(text);
    };
    const auto ours = [&] { list.detail().ShowDetail(key); };
    const size_t times = repetitions(bare);
    const std::vector<std::vector<Contender>> stretches(times, {{"bare", bare}, {"ours", ours}});
    const auto sums = sumsOfMedians(stretches, rounds);
    const auto count = static_cast<double>(times);
    return {{QStringLiteral("found"), list.detail().VsP().Rows() - 1},
            {QStringLiteral("bare_ms"), rounded(sums[0] / count)},
            {QStringLiteral("ours_ms"), rounded(sums[1] / count)},
            {QStringLiteral("ratio"), rounded(sums[1] / sums[0])},
            {QStringLiteral("plan"), QString::fromUtf8(engine.plan(texts.back()))}};
}

void removeListings(db::Connection &connection)
{
    for (const Listing &listing : listings)
        connection.execute(
            QStringLiteral("delete from fyxx where 房源ID='%1'").arg(QString::fromUtf16(listing.key)));
}

void addListings(db::Connection &connection)
{
    removeListings(connection);
    for (const Listing &listing : listings)
        connection.execute(
            QStringLiteral("insert into fyxx(房源ID,楼层,总面积,售房价格,租房价格) values('%1',%2)")
                .arg(QString::fromUtf16(listing.key), QString::fromUtf16(listing.measures)));
}

} // namespace

int matchBenchmark(const Options &options)
{
    Options agencyOptions = options;
    agencyOptions.rows = 100;
    Agency agency(agencyOptions);
    const bool isServer = db::PostgresAddress::isUrl(options.database);
    db::Connection &connection =
        isServer ? static_cast<db::Connection &>(agency.server()) : agency.connection();
    const Engine engine = isServer ? server(agency.server()) : embedded(agency.connection().handle());
    if (isServer)
        connection.executeNative("analyze");
    addListings(connection);
    Fcxx list(agency.desktop());
    QObject::connect(&list, &Fcxx::ErrMessage, &list,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    list.IReportUI_Init(agency.app(), host::ListingModule);
    list.detail().qzVSTabCtl1().setActiveTab(customersTab);
    QJsonObject figures{
        {QStringLiteral("benchmark"), QStringLiteral("match")},
        {QStringLiteral("engine"), QString::fromLatin1(connection.dialect().name)},
        {QStringLiteral("customers"),
         connection.query(QStringLiteral("select count(客源ID) from fykh")).value(0, 0).toInt()}};
    double worst = 0;
    for (const Listing &listing : listings) {
        const QJsonObject measured = measureListing(list, listing, connection, engine, options.rounds);
        worst = std::max(worst, measured[QStringLiteral("ratio")].toDouble());
        figures.insert(QLatin1String(listing.name), measured);
    }
    removeListings(connection);
    figures.insert(QStringLiteral("ratio"), worst);
    print(figures);
    return 0;
}

} // namespace ebtq::bench
