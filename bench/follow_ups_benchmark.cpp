#include "benchmarks.h"
#include "engine.h"
#include "host/module_ids.h"
#include "library/followups/cx_gj.h"
#include "library/followups/yj_tx.h"
#include "measure.h"

#include <QJsonObject>

#include <algorithm>
#include <iostream>

namespace ebtq::bench {

namespace {

constexpr int listings = 50'000;
constexpr int customers = 12'500;

Agency agencyWith(Options options)
{
    options.followUps = options.rows;
    options.rows = listings;
    options.customers = customers;
    return Agency(options);
}

/// The rows as the lists show them, written for each engine.
QByteArray byHand(const Engine &engine, const QByteArray &where, int limit = 0)
{
    QByteArray sql =
        "select 操作日期,跟进内容,C.mtname,D.姓名,case 下次提醒 when 1 then '是' else '否' end,提醒日期,"
        "case when 提醒范围=0 or 提醒范围 is null then '本人' when 提醒范围=1 then '本部' else '全部' end,"
        "提醒内容,处理结果,处理日期,\"跟进ID\" from fygj A"
        " left join su_membership B on A.\"用户ID\"=B.\"userID\""
        " left join su_usertype C on B.\"UserTypeID\"=C.\"mtID\""
        " left join pdmgy D on A.\"业务员ID\"=D.\"雇员ID\"" +
        where + " order by 操作日期 desc";
    if (engine.isServer)
        sql += " nulls last";
    return limit == 0 ? sql : sql + " limit " + QByteArray::number(limit);
}

void open(FollowUpList &list, Agency &agency, host::ModuleId module)
{
    QObject::connect(&list, &FollowUpList::ErrMessage, &list,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    if (!list.IReportUI_Init(agency.app(), module) || !list.IReportUI_Refresh())
        throw std::runtime_error("the list could not be loaded");
}

/// What is compared must do the same work.
void expectRows(FollowUpList &list, Agency &agency, const QByteArray &sql)
{
    const qsizetype rows = agency.database().queryNative(sql).rowCount();
    if (rows != list.VS().Rows() - 1)
        throw std::runtime_error("the list and the hand-written statement have different rows");
}

void setTicks(Cx_Gj &list, bool ofListings, bool ofCustomers)
{
    list.Chk(0).setValue(ofListings ? 1 : 0);
    list.Chk(1).setValue(ofCustomers ? 1 : 0);
}

} // namespace

int followUpsBenchmark(const Options &options)
{
    constexpr int newest = 100;
    constexpr int many = 100'000;
    constexpr double newestLimit = 1.3;
    constexpr double kindLimit = 3;
    constexpr double manyLimit = 1.25;
    Agency agency = agencyWith(options);
    const Engine engine = engineOf(agency);
    Cx_Gj list(agency.desktop());
    open(list, agency, host::FollowUpModule);
    const auto refreshed = [&](int limit, bool ofListings, bool ofCustomers) {
        return Contender{"ours", [&list] { list.IReportUI_Refresh(); },
                         [&list, limit, ofListings, ofCustomers] {
                             list.qzTxt(Cx_Gj::Limit).setText(QString::number(limit));
                             setTicks(list, ofListings, ofCustomers);
                         }};
    };
    const QByteArray newestByHand = byHand(engine, {}, newest);
    const QByteArray manyByHand = byHand(engine, {}, many);
    expectRows(list, agency, newestByHand);
    const auto times = medians({{"hand", [&] { engine.run(newestByHand); }},
                                refreshed(newest, false, false),
                                refreshed(newest, true, false),
                                refreshed(newest, false, true)},
                               options.rounds * 10);
    const auto manyTimes =
        medians({{"hand", [&] { engine.run(manyByHand); }}, refreshed(many, false, false)}, options.rounds);
    const double ratioNewest = times[1] / times[0];
    const double ratioListings = times[2] / times[1];
    const double ratioCustomers = times[3] / times[1];
    const double ratioMany = manyTimes[1] / manyTimes[0];
    print(
        {{QStringLiteral("benchmark"), QStringLiteral("followups")},
         {QStringLiteral("engine"), QLatin1String(engine.name)},
         {QStringLiteral("rows"), options.rows},
         {QStringLiteral("hand_ms"), rounded(times[0])},
         {QStringLiteral("ours_ms"), rounded(times[1])},
         {QStringLiteral("listings_ms"), rounded(times[2])},
         {QStringLiteral("customers_ms"), rounded(times[3])},
         {QStringLiteral("many_hand_ms"), rounded(manyTimes[0])},
         {QStringLiteral("many_ours_ms"), rounded(manyTimes[1])},
         {QStringLiteral("ratio_newest"), rounded(ratioNewest)},
         {QStringLiteral("ratio_listings"), rounded(ratioListings)},
         {QStringLiteral("ratio_customers"), rounded(ratioCustomers)},
         {QStringLiteral("ratio_many"), rounded(ratioMany)},
         {QStringLiteral("ratio"), rounded(std::max({ratioNewest / newestLimit, ratioListings / kindLimit,
                                                     ratioCustomers / kindLimit, ratioMany / manyLimit}))}});
    return 0;
}

int remindersBenchmark(const Options &options)
{
    Agency agency = agencyWith(options);
    const Engine engine = engineOf(agency);
    YjTx list(agency.desktop());
    open(list, agency, host::ReminderModule);
    const QByteArray sql = byHand(engine, " where 下次提醒=1 and 提醒日期='2026-11-22' and 处理结果='' and "
                                          "(提醒范围 in(1,2) or \"用户ID\"='bench')");
    expectRows(list, agency, sql);
    const auto times =
        medians({{"hand", [&] { engine.run(sql); }}, {"ours", [&] { list.IReportUI_Refresh(); }}},
                options.rounds * 10);
    print({{QStringLiteral("benchmark"), QStringLiteral("reminders")},
           {QStringLiteral("engine"), QLatin1String(engine.name)},
           {QStringLiteral("rows"), options.rows},
           {QStringLiteral("due"), list.VS().Rows() - 1},
           {QStringLiteral("hand_ms"), rounded(times[0])},
           {QStringLiteral("ours_ms"), rounded(times[1])},
           {QStringLiteral("plan"), QString::fromUtf8(engine.plan(sql))},
           {QStringLiteral("ratio"), rounded(times[1] / times[0])}});
    return 0;
}

} // namespace ebtq::bench
