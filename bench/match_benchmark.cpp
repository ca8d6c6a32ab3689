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

constexpr int customersTab = 4;

/// A customer's search that is hard, one that finds few, one that finds all.
struct Listing
{
    const char *name;
    const char16_t *measures; ///< floor, area, sale price, rent
};
constexpr Listing listings[] = {{"usual", u"'12',90,150,0"},
                                {"rent", u"'6',75,0,2500"},
                                {"few", u"'2',600,5000,0"},
                                {"all", u"'',0,0,0"}};

QString keyOf(const Listing &listing)
{
    return QStringLiteral("BENCH-%1").arg(QLatin1String(listing.name));
}

QJsonObject measureListing(Fcxx &list, const Listing &listing, sqlite3 *handle, int rounds)
{
    const auto show = [&] { list.detail().ShowDetail(keyOf(listing)); };
    const std::vector<QByteArray> texts = statementsOf(handle, show);
    const auto times = medians({{"bare",
                                 [&] {
                                     for (const QByteArray &text : texts)
                                         runBare(handle, text);
                                 }},
                                {"ours", show}},
                               rounds);
    return {{QStringLiteral("found"), list.detail().VsP().Rows() - 1},
            {QStringLiteral("bare_ms"), rounded(times[0])},
            {QStringLiteral("ours_ms"), rounded(times[1])},
            {QStringLiteral("ratio"), rounded(times[1] / times[0])},
            {QStringLiteral("plan"), QString::fromUtf8(planOf(handle, texts.back()))}};
}

} // namespace

int matchBenchmark(const Options &options)
{
    Options agencyOptions = options;
    agencyOptions.rows = 100;
    Agency agency(agencyOptions);
    for (const Listing &listing : listings)
        agency.connection().execute(
            QStringLiteral("insert into fyxx(房源ID,楼层,总面积,售房价格,租房价格) values('%1',%2)")
                .arg(keyOf(listing), listing.measures));
    Fcxx list(agency.desktop());
    QObject::connect(&list, &Fcxx::ErrMessage, &list,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    list.IReportUI_Init(agency.app(), host::ListingModule);
    list.detail().qzVSTabCtl1().setActiveTab(customersTab);
    QJsonObject figures{{QStringLiteral("benchmark"), QStringLiteral("match")},
                        {QStringLiteral("customers"), options.customers}};
    double worst = 0;
    for (const Listing &listing : listings) {
        const QJsonObject measured =
            measureListing(list, listing, agency.connection().handle(), options.rounds);
        worst = std::max(worst, measured[QStringLiteral("ratio")].toDouble());
        figures.insert(QLatin1String(listing.name), measured);
    }
    figures.insert(QStringLiteral("ratio"), worst);
    print(figures);
    return 0;
}

} // namespace ebtq::bench
