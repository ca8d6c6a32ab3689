#include "agency.h"
#include "benchmarks.h"
#include "database/values/date_text.h"
#include "host/module_ids.h"
#include "library/listings/fcxx.h"
#include "measure.h"
#include "server_statements.h"

#include <QJsonObject>

#include <iostream>

namespace ebtq::bench {

namespace {

/// The fastest statement that was found. Attachments are counted once and joined. The order is that of the
/// column, but on a text, of which each row's lower case is made once: with a join by hashing in between the
/// server must sort.
QByteArray listForServer(int moduleId)
{
    return "select '', 房源编号, 交易方式, 交易状态, 地区, 楼盘字典, 栋座位置, 房号,"
           " coalesce(楼层,'')||'/'||coalesce(总楼层,''), 附属房,"
           " coalesce(房型_房::text,'')||'房'||coalesce(房型_厅::text,'')||'厅'||coalesce(房型_卫::text,'')||"
           "'卫'"
           "||coalesce(房型_阳台::text,'')||'阳台',"
           " 总面积, 朝向, 装修, coalesce(售房价格::text,'')||'万元', coalesce(租房价格::text,'')||'元/月', "
           "委托日期,"
           " C.mtname, D.姓名, \"房源ID\", coalesce(E.n,0)"
           " from fyxx A left join su_membership B on A.\"用户ID\"=B.\"userID\""
           " left join su_usertype C on B.\"UserTypeID\"=C.\"mtID\""
           " left join pdmgy D on A.\"业务员ID\"=D.\"雇员ID\""
           " left join (select \"IDs\", count(\"rowIndex\") as n from \"pubAttach\""
           " where \"isActive\"=1 and \"isPicture\"<>1 and \"progID\"=" +
           QByteArray::number(moduleId) +
           " group by \"IDs\") E on E.\"IDs\"=A.\"房源ID\""
           " order by lower(房源编号::text collate \"default\") collate \"C\" desc nulls last";
}

/// The first cell that the grid shows otherwise; empty when there is none.
QString firstDifference(pg_conn *handle, const QByteArray &sql, const VSFlexGrid &grid)
{
    QString difference;
    int rows = 0;
    fetchFromServer(handle, sql, [&](int row, int column, std::string_view cell) {
        rows = row + 1;
        std::string regional;
        appendRegionalDate(cell, regional);
        if (difference.isEmpty() && row + 1 < grid.Rows() && grid.cell(row + 1, column) != regional)
            difference = QStringLiteral("row %1, column %2").arg(row).arg(column);
    });
    return rows + 1 == grid.Rows() ? difference
                                   : QStringLiteral("%1 rows for %2").arg(grid.Rows() - 1).arg(rows);
}

} // namespace

int serverListBenchmark(const Options &options)
{
    Agency agency(options);
    agency.server().executeNative("analyze");
    Fcxx list(agency.desktop());
    QObject::connect(&list, &Fcxx::ErrMessage, &list,
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    list.IReportUI_Init(agency.app(), host::ListingModule);
    const QByteArray sql = listForServer(host::ListingModule);
    pg_conn *handle = agency.server().handle();
    if (!list.IReportUI_Refresh())
        return 1;
    if (const QString difference = firstDifference(handle, sql, list.VS()); !difference.isEmpty()) {
        std::cerr << "the grid and the hand-written statement differ: " << qPrintable(difference) << '\n';
        return 1;
    }
    const auto times =
        medians({{"copy", [&] { copyFromServer(handle, sql); }}, {"ours", [&] { list.IReportUI_Refresh(); }}},
                options.rounds);
    const double rows = list.VS().Rows() - 1;
    print({{QStringLiteral("benchmark"), QStringLiteral("list")},
           {QStringLiteral("engine"), QStringLiteral("postgresql")},
           {QStringLiteral("rows"), rows},
           {QStringLiteral("copy_ms"), rounded(times[0])},
           {QStringLiteral("ours_ms"), rounded(times[1])},
           {QStringLiteral("ratio_copy"), rounded(times[1] / times[0])},
           {QStringLiteral("ours_us_per_row"), rounded(times[1] * 1000 / rows)}});
    return 0;
}

} // namespace ebtq::bench
