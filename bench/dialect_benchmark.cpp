#include "agency.h"
#include "benchmarks.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "host/module_ids.h"
#include "library/listings/fcxx_tables.h"
#include "measure.h"

#include <QJsonObject>

#include <sqlite3.h>

namespace ebtq::bench {

namespace {

constexpr int repetitions = 1000;

void prepareOnly(sqlite3 *handle, const QByteArray &sql)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(handle, sql.constData(), static_cast<int>(sql.size()), &statement, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
    sqlite3_finalize(statement);
}

/// A filter in every field, as an agent's longest question is.
SqlText longestFilter()
{
    using namespace ListingFilter;
    const FilterValues values{.fields = {{Department, {QStringLiteral("营业一部"), 1}},
                                         {Agent, {QStringLiteral("张敏"), 2}},
                                         {District, {QStringLiteral("天河区")}},
                                         {Building, {QStringLiteral("云山花园")}},
                                         {Rooms, {QStringLiteral("3-2-2-1")}},
                                         {State, {QStringLiteral("有效")}}},
                              .first = true,
                              .period = QStringLiteral("三个月内")};
    return filterWhere(listingList().filter->clauses, values, QDateTime(QDate(2026, 11, 22), {}));
}

QJsonObject compare(sqlite3 *handle, const SqlText &statement, const db::Catalog &catalog, int rounds)
{
    const QByteArray translated = translate(statement, db::sqliteDialect(), catalog).sql;
    const auto times = medians(
        {{"prepare",
          [&] {
              for (int i = 0; i < repetitions; ++i)
                  prepareOnly(handle, translated);
          }},
         {"translate",
          [&] {
              for (int i = 0; i < repetitions; ++i)
                  keep(static_cast<size_t>(translate(statement, db::sqliteDialect(), catalog).sql.size()));
          }}},
        rounds);
    return {{QStringLiteral("prepare_us"), rounded(times[0] * 1000 / repetitions)},
            {QStringLiteral("translate_us"), rounded(times[1] * 1000 / repetitions)},
            {QStringLiteral("ratio"), rounded(times[1] / times[0])}};
}

} // namespace

int dialectBenchmark(const Options &options)
{
    Options small = options;
    small.rows = 100;
    Agency agency(small);
    sqlite3 *handle = agency.connection().handle();
    const db::Catalog &catalog = agency.connection().catalog();
    const auto figuresOf = [&](const SqlText &where) {
        return compare(handle, listingStatement(host::ListingModule, where), catalog, options.rounds);
    };
    const QJsonObject plain = figuresOf({});
    const QJsonObject filtered = figuresOf(longestFilter());
    const double worst =
        std::max(plain[QStringLiteral("ratio")].toDouble(), filtered[QStringLiteral("ratio")].toDouble());
    print({{QStringLiteral("benchmark"), QStringLiteral("dialect")},
           {QStringLiteral("list"), plain},
           {QStringLiteral("filtered"), filtered},
           {QStringLiteral("ratio"), worst}});
    return 0;
}

} // namespace ebtq::bench
