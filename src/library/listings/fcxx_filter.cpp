#include "library/listings/fcxx_filter.h"

#include "contracts/conversions.h"
#include "database/values/date_text.h"

#include <QStringList>

#include <array>

namespace ebtq {

namespace {

struct Window
{
    QStringView text;
    int days;
    int months;
};
constexpr std::array<Window, 8> windows{{{u"三天内", 3, 0},
                                         {u"七天内", 7, 0},
                                         {u" 十天内", 10, 0},
                                         {u"十五天内", 15, 0},
                                         {u"一个月内", 0, 1},
                                         {u"三个月内", 0, 3},
                                         {u"半年内", 0, 6},
                                         {u"一年内", 0, 12}}};

void addKey(SqlText &where, const QString &text, QStringView before, double key, QStringView behind)
{
    if (text.isEmpty())
        return;
    where += before;
    where += PlainDecimal(key);
    where += behind;
}

void addText(SqlText &where, const QString &text, QStringView before)
{
    const QString trimmed = Trim(text);
    if (trimmed.isEmpty())
        return;
    where += before;
    where += typed(trimmed);
    where += QStringView(u"'");
}

/// With both ticked, as with none, listings of every kind are shown.
void addKind(SqlText &where, const ListingFilter &filter)
{
    if (filter.forSale && !filter.forRent)
        where += QStringView(u" and 交易方式 like '%售%'");
    else if (filter.forRent && !filter.forSale)
        where += QStringView(u" and 交易方式 like '%租%'");
}

void addWindow(SqlText &where, const QString &text, const QDate &today)
{
    for (const Window &window : windows) {
        if (window.text != text)
            continue;
        where += QStringView(u" and 操作日期>#");
        where += regionalDate(today.addMonths(-window.months).addDays(-window.days));
        where += QStringView(u"#");
    }
}

} // namespace

QStringList listingWindowCaptions()
{
    return {QStringLiteral("三天内"),   QStringLiteral("七天内"),   QStringLiteral("十天内"),
            QStringLiteral("十五月内"), QStringLiteral("一个月内"), QStringLiteral("三个月内"),
            QStringLiteral("半年内"),   QStringLiteral("一年内"),   QStringLiteral("全部")};
}

SqlText listingWhere(const ListingFilter &filter, const QDate &today)
{
    SqlText where;
    addKey(where, filter.department, u" and A.用户ID in(select userID from su_membership where UserTypeID=",
           filter.departmentKey, u")");
    addKey(where, filter.agent, u" and A.业务员ID=", filter.agentKey, u"");
    addText(where, filter.district, u" and A.地区='");
    addText(where, filter.building, u" and A.楼盘字典='");
    addText(where, filter.rooms, u" and 房型_房 & '-' & 房型_厅 & '-' & 房型_卫 & '-' & 房型_阳台='");
    addKind(where, filter);
    addText(where, filter.state, u" and 交易状态='");
    addWindow(where, filter.window, today);
    if (where.isEmpty())
        return where;
    constexpr qsizetype leadingAnd = 5;
    return SqlText(QStringLiteral(" where ")) + where.withoutFirst(leadingAnd);
}

} // namespace ebtq
