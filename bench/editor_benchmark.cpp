#include "agency.h"
#include "benchmarks.h"
#include "editor_widgets.h"
#include "host/module_ids.h"
#include "library/customers/frm_kh.h"
#include "library/listings/frm_fx.h"
#include "measure.h"
#include "statement_trace.h"

#include <QJsonObject>

#include <iostream>
#include <stdexcept>

namespace ebtq::bench {

namespace {

constexpr int opened = 200;

/// Keys from all over a table.
QStringList someKeys(db::Connection &connection, const QString &statement)
{
    const RowBlock rows = connection.query(SqlText(statement));
    const qsizetype count = std::min<qsizetype>(rows.rowCount(), opened);
    QStringList keys;
    for (qsizetype at = 0; at < count; ++at)
        keys.append(rows.value(at * rows.rowCount() / count, 0).toString());
    return keys;
}

template<class Form>
int measure(Agency &agency, const Options &options, int moduleId, const QString &keyStatement)
{
    Form form(agency.desktop());
    QObject::connect(&form, &Form::ErrMessage, &form,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    const QStringList keys = someKeys(agency.connection(), keyStatement);
    const auto openAll = [&] {
        for (const QString &key : keys)
            form.py_Init(agency.app(), moduleId, key, false);
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
           {QStringLiteral("module"), options.module},
           {QStringLiteral("statements"), static_cast<double>(texts.size()) / count},
           {QStringLiteral("bare_us"), rounded(times[0] * 1000 / count)},
           {QStringLiteral("ours_us"), rounded(times[1] * 1000 / count)},
           {QStringLiteral("ratio"), rounded(times[1] / times[0])},
           {QStringLiteral("widgets_ms"), rounded(times[2])}});
    return 0;
}

} // namespace

/// The form without its widgets, against its bare statements; what the widgets cost stands beside it.
int editorBenchmark(const Options &options)
{
    if (options.module == QStringLiteral("listings")) {
        Agency agency(options);
        return measure<FrmFx>(agency, options, host::ListingModule,
                              QStringLiteral("select 房源ID from fyxx"));
    }
    if (options.module != QStringLiteral("customers"))
        throw std::invalid_argument("unknown module: " + options.module.toStdString());
    Options customers = options;
    customers.customers = options.rows;
    customers.rows = 1000;
    Agency agency(customers);
    return measure<frmKh>(agency, options, host::CustomerModule, QStringLiteral("select 客源ID from fykh"));
}

} // namespace ebtq::bench
