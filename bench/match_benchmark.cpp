#include "benched_list.h"
#include "benchmarks.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "engine.h"
#include "library/customers/customer_matching.h"
#include "library/customers/khxx.h"
#include "library/listings/fcxx.h"
#include "library/listings/listing_matching.h"
#include "library/matching/match_reasons.h"
#include "measure.h"

#include <QJsonObject>

#include <algorithm>
#include <limits>
#include <span>
#include <tuple>

namespace ebtq::bench {

namespace {

/// A search that is hard, one that finds few, one that finds all; keys as the system gives them.
struct Sought
{
    const char *name;
    const char16_t *key;
    const char16_t *values;
};
constexpr Sought listings[] = {
    {"usual", u"BE4C0000-0000-4000-8000-000000000001", u"'12',90,150,0"},
    {"rent", u"BE4C0000-0000-4000-8000-000000000002", u"'6',75,0,2500"},
    {"villa", u"BE4C0000-0000-4000-8000-000000000003", u"'2',280,700,0"},
    {"few", u"BE4C0000-0000-4000-8000-000000000004", u"'2',600,5000,0"},
    {"all", u"BE4C0000-0000-4000-8000-000000000005", u"'',0,0,0"},
};
constexpr Sought requests[] = {
    {"usual", u"BE4C0000-0000-4000-8000-000000000001", u"5,20,80,100,100,120,0,0"},
    {"rent", u"BE4C0000-0000-4000-8000-000000000002", u"0,0,60,75,0,0,2000,2300"},
    {"floor", u"BE4C0000-0000-4000-8000-000000000003", u"30,0,0,0,0,0,0,0"},
    {"few", u"BE4C0000-0000-4000-8000-000000000004", u"0,0,600,0,5000,0,0,0"},
    {"all", u"BE4C0000-0000-4000-8000-000000000005", u"0,0,0,0,0,0,0,0"},
};

/// Who looks for whom.
struct Direction
{
    std::span<const Sought> seekers;
    const char16_t *insertion; ///< of a seeker, up to its values
    const char16_t *table;
    const char16_t *key;
    SqlText (*read)(const QString &key);
    SqlText (*search)(const DetailRecord &seeker);
    int tab;
    MatchReasons::Of reasonsOf;
    const char *searched;                 ///< the table as the translated search names it
    std::span<const char *const> indexes; ///< by which a person would search it on the embedded engine
};
constexpr const char *customerIndexes[] = {"ix_fykh_match_area", "ix_fykh_match_buy", "ix_fykh_match_rent",
                                           "ix_fykh_number"};
constexpr const char *listingIndexes[] = {"ix_fyxx_match_area", "ix_fyxx_match_sale", "ix_fyxx_match_rent",
                                          "ix_fyxx_number"};
constexpr Direction fromListing{listings,
                                u"fyxx(房源ID,楼层,总面积,售房价格,租房价格)",
                                u"fyxx",
                                u"房源ID",
                                measuresStatement,
                                matchingCustomersStatement,
                                4,
                                MatchReasons::Of::Listing,
                                "\"fykh\" AS t0",
                                customerIndexes};
constexpr Direction fromCustomer{
    requests,
    u"fykh(客源ID,楼层1,楼层2,面积1,面积2,求购价格1,求购价格2,求租价格1,求租价格2)",
    u"fykh",
    u"客源ID",
    requestStatement,
    matchingListingsStatement,
    3,
    MatchReasons::Of::Customer,
    "\"fyxx\" AS t0",
    listingIndexes};

QByteArray planned(const db::Translation &translation, db::Connection &connection)
{
    return translation.bestSql([&](const QByteArray &count) -> db::CountWithin {
        const RowBlock counts = connection.queryNative(count);
        return {counts.value(0, 0).toLongLong(), counts.value(0, 1).toLongLong()};
    });
}

/// What the tab asks for a seeker, in the engine's language.
struct Asked
{
    QByteArray reading;
    QByteArray search;
    QByteArray planned; ///< the search as the engine is asked it
};

Asked statementsFor(const Direction &direction, db::Connection &connection, const QString &key)
{
    const auto translated = [&](const SqlText &statement) {
        return db::translate(statement, connection.dialect(), connection.catalog());
    };
    const SqlText reading = direction.read(key);
    const db::Translation search = translated(direction.search(DetailRecord(connection.query(reading))));
    return {translated(reading).sql, search.sql, planned(search, connection)};
}

/// A search that takes no time to speak of is repeated until a round does.
size_t repetitions(const std::function<void()> &run)
{
    constexpr double wantedMilliseconds = 50;
    constexpr double most = 100;
    const double once = medians({{"once", run}}, 3)[0];
    return static_cast<size_t>(std::clamp(wantedMilliseconds / once, 1.0, most));
}

/// The fastest of the searches that a person would write: the statement as it is, and, where the engine takes
/// such a wish, by each of the indexes.
QByteArray fastestSearch(const Direction &direction, const QByteArray &search, const Engine &engine)
{
    std::vector<QByteArray> texts{QByteArray(search).replace("unlikely(", "(")};
    if (!engine.isServer) {
        for (const char *index : direction.indexes)
            texts.push_back(QByteArray(search).replace(
                direction.searched, QByteArray(direction.searched) + " INDEXED BY \"" + index + '"'));
    }
    double least = std::numeric_limits<double>::max();
    QByteArray fastest;
    for (const QByteArray &text : texts) {
        const double time = medians({{"once", [&] { engine.run(text); }}}, 5)[0];
        if (time < least)
            std::tie(least, fastest) = std::pair(time, text);
    }
    return fastest;
}

QJsonObject measureSeeker(const Direction &direction, BenchedList &list, const Sought &seeker,
                          db::Connection &connection, const Engine &engine, int rounds)
{
    const QString key = QString::fromUtf16(seeker.key);
    const Asked asked = statementsFor(direction, connection, key);
    const QByteArray best = fastestSearch(direction, asked.search, engine);
    const auto bare = [&] {
        engine.run(asked.reading);
        engine.run(asked.search);
    };
    const auto byHand = [&] {
        engine.run(asked.reading);
        engine.run(best);
    };
    const auto ours = [&] { list.showDetail(key); };
    MatchReasons reasons(list.module(), direction.reasonsOf);
    const double why = medians({{"why", [&] { reasons.show(key); }}}, rounds)[0];
    const size_t times = repetitions(bare);
    const std::vector<std::vector<Contender>> stretches(times,
                                                        {{"bare", bare}, {"hand", byHand}, {"ours", ours}});
    const auto sums = sumsOfMedians(stretches, rounds);
    const auto count = static_cast<double>(times);
    return {{QStringLiteral("found"), list.matches().Rows() - 1},
            {QStringLiteral("bare_ms"), rounded(sums[0] / count)},
            {QStringLiteral("hand_ms"), rounded(sums[1] / count)},
            {QStringLiteral("ours_ms"), rounded(sums[2] / count)},
            {QStringLiteral("ratio"), rounded(sums[2] / std::min(sums[0], sums[1]))},
            {QStringLiteral("why_ms"), rounded(why)},
            {QStringLiteral("near_misses"), reasons.misses().Rows() - 1},
            {QStringLiteral("plan"), QString::fromUtf8(engine.plan(asked.planned))}};
}

void removeSeekers(const Direction &direction, db::Connection &connection)
{
    for (const Sought &seeker : direction.seekers)
        connection.execute(QStringLiteral("delete from %1 where %2='%3'")
                               .arg(direction.table, direction.key, QString::fromUtf16(seeker.key)));
}

void addSeekers(const Direction &direction, db::Connection &connection)
{
    removeSeekers(direction, connection);
    for (const Sought &seeker : direction.seekers)
        connection.execute(
            QStringLiteral("insert into %1 values('%2',%3)")
                .arg(direction.insertion, QString::fromUtf16(seeker.key), QString::fromUtf16(seeker.values)));
}

} // namespace

int matchBenchmark(const Options &options)
{
    const bool isOfCustomers = options.module == QStringLiteral("customers");
    const Direction &direction = isOfCustomers ? fromCustomer : fromListing;
    Options agencyOptions = options;
    if (isOfCustomers)
        agencyOptions.customers = 100;
    else
        agencyOptions.rows = 100;
    Agency agency(agencyOptions);
    db::Connection &connection = agency.database();
    const Engine engine = engineOf(agency);
    if (engine.isServer)
        connection.executeNative("analyze");
    addSeekers(direction, connection);
    BenchedList list(options, agency);
    list.tabs().setActiveTab(direction.tab);
    QJsonObject figures{
        {QStringLiteral("benchmark"), QStringLiteral("match")},
        {QStringLiteral("module"), options.module},
        {QStringLiteral("engine"), QString::fromLatin1(connection.dialect().name)},
        {QStringLiteral("searched"), isOfCustomers ? agencyOptions.rows : agencyOptions.customers}};
    double worst = 0;
    for (const Sought &seeker : direction.seekers) {
        const QJsonObject measured =
            measureSeeker(direction, list, seeker, connection, engine, options.rounds);
        worst = std::max(worst, measured[QStringLiteral("ratio")].toDouble());
        figures.insert(QLatin1String(seeker.name), measured);
    }
    removeSeekers(direction, connection);
    figures.insert(QStringLiteral("ratio"), worst);
    print(figures);
    return 0;
}

} // namespace ebtq::bench
