#include "shell/admin/unseen_rows.h"

#include "contracts/conversions.h"
#include "contracts/level_code.h"
#include "host/host_parameters.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace ebtq::admin {

namespace {

constexpr qsizetype mostLines = 20;
constexpr int parameterGroup = 12;

struct TreeKey
{
    QStringView table;
    QStringView column;
};

constexpr TreeKey treeKeys[] = {
    {u"pdmdq", u"编码"}, {u"pdmlpzd", u"楼盘编号"}, {u"pdmcq", u"产权编号"}, {u"pdmfx", u"房型编号"}};

/// Each row of the statement in a pattern with %1 and %2 for its first two values.
QStringList lines(db::Connection &connection, const QString &statement, const QString &pattern)
{
    const RowBlock rows = connection.query(statement);
    QStringList result;
    for (qsizetype row = 0; row < std::min(rows.rowCount(), mostLines); ++row)
        result += pattern.arg(rows.value(row, 0).toString(), rows.value(row, 1).toString());
    if (rows.rowCount() > mostLines)
        result += u"……共 %1 项"_s.arg(rows.rowCount());
    return result;
}

/// Districts whose code continues no other one: neither they nor their buildings are seen.
QStringList districtsWithoutParent(db::Connection &connection)
{
    const QString scheme = host::parameterText(connection, {}, parameterGroup, u"dzbm"_s);
    const RowBlock rows = connection.query(u"select 编码,地区 from pdmdq order by 级次, 编码"_s);
    QSet<QString> seen;
    QStringList result;
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        const QString code = Trim(rows.value(row, 0).toString());
        const QString parent = LevelCode::ParentCode(code, scheme);
        if (code.size() == LevelCode::LevelLength(1, scheme) || seen.contains(parent))
            seen.insert(code);
        else if (result.size() < mostLines)
            result += u"地区“%1 %2”的上级编码“%3”不存在，楼盘字典中看不到它和它的楼盘"_s.arg(
                code, rows.value(row, 1).toString(), parent);
    }
    return result;
}

} // namespace

QStringList namesOfUnseenRows(db::Connection &connection)
{
    QStringList found = districtsWithoutParent(connection);
    found +=
        lines(connection,
              u"select 楼盘编号,楼盘名称 from pdmlpzd where 地区ID is null or 地区ID not in(select 地区ID "
              u"from pdmdq) order by 楼盘编号"_s,
              u"楼盘“%1 %2”的地区不存在，楼盘字典中看不到它"_s);
    for (const TreeKey &key : treeKeys) {
        const QString column = key.column.toString();
        found += lines(
            connection,
            u"select %1,count(*) from %2 group by %1 having count(*)>1 order by %1"_s.arg(column, key.table),
            column + u"“%1”重复 %2 次，字典中只看得到其中一条"_s);
    }
    return found;
}

} // namespace ebtq::admin
