#include "agency.h"
#include "benchmarks.h"
#include "database/dialect/dialect.h"
#include "database/dialect/translator.h"
#include "host/module_ids.h"
#include "library/listings/fcxx.h"
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

/// The list with a filter in every field, as an agent's longest question is.
void fillFilter(Fcxx &list)
{
    list.qzTxt(0).setText(QStringLiteral("天河区"));
    list.qzTxt(1).setText(QStringLiteral("3-2-2-1"));
    list.qzTxt(3).setText(QStringLiteral("有效"));
    list.qzTxt(4).setText(QStringLiteral("营业一部"));
    list.qzTxt(4).setValue(1);
    list.qzTxt(7).setText(QStringLiteral("云山花园"));
    list.Chk(0).setValue(1);
    list.XPCmb().setText(QStringLiteral("三个月内"));
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
    Fcxx list(agency.desktop());
    list.IReportUI_Init(agency.app(), host::ListingModule);
    sqlite3 *handle = agency.connection().handle();
    const db::Catalog &catalog = agency.connection().catalog();
    const QJsonObject plain = compare(handle, list.listStatement(), catalog, options.rounds);
    fillFilter(list);
    const QJsonObject filtered = compare(handle, list.listStatement(), catalog, options.rounds);
    const double worst =
        std::max(plain[QStringLiteral("ratio")].toDouble(), filtered[QStringLiteral("ratio")].toDouble());
    print({{QStringLiteral("benchmark"), QStringLiteral("dialect")},
           {QStringLiteral("list"), plain},
           {QStringLiteral("filtered"), filtered},
           {QStringLiteral("ratio"), worst}});
    return 0;
}

} // namespace ebtq::bench
