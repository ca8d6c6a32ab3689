#include "agency.h"
#include "benchmarks.h"
#include "editor_widgets.h"
#include "host/module_ids.h"
#include "library/listings/frm_fx.h"
#include "measure.h"
#include "statement_trace.h"

#include <QJsonObject>

#include <iostream>

namespace ebtq::bench {

namespace {

constexpr int opened = 200;

/// Keys of listings from all over the table.
QStringList someListings(db::Connection &connection)
{
    const RowBlock rows = connection.query(SqlText(QStringLiteral("select 房源ID from fyxx")));
    const qsizetype count = std::min<qsizetype>(rows.rowCount(), opened);
    QStringList keys;
    for (qsizetype at = 0; at < count; ++at)
        keys.append(rows.value(at * rows.rowCount() / count, 0).toString());
    return keys;
}

} // namespace

/// The form without its widgets, against its bare statements; what the widgets cost stands beside it.
int editorBenchmark(const Options &options)
{
    Agency agency(options);
    FrmFx form(agency.desktop());
    QObject::connect(&form, &FrmFx::ErrMessage, &form,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    const QStringList keys = someListings(agency.connection());
    const auto openAll = [&] {
        for (const QString &key : keys)
            form.py_Init(agency.app(), host::ListingModule, key, false);
    };
    const std::vector<QByteArray> texts = statementsOf(agency.connection().handle(), openAll);
    const auto times = medians({{"bare",
                                 [&] {
                                     for (const QByteArray &text : texts)
                                         runBare(agency.connection().handle(), text);
                                 }},
                                {"ours", openAll},
                                {"widgets", [&] { buildEditorWidgets(form); }}},
                               options.rounds);
    const double count = static_cast<double>(keys.size());
    print({{QStringLiteral("benchmark"), QStringLiteral("editor")},
           {QStringLiteral("statements"), static_cast<double>(texts.size()) / count},
           {QStringLiteral("bare_us"), rounded(times[0] * 1000 / count)},
           {QStringLiteral("ours_us"), rounded(times[1] * 1000 / count)},
           {QStringLiteral("ratio"), rounded(times[1] / times[0])},
           {QStringLiteral("widgets_ms"), rounded(times[2])}});
    return 0;
}

} // namespace ebtq::bench
