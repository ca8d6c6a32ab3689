#include "library/matching/match_reasons.h"

#include "contracts/conversions.h"
#include "database/values/number_text.h"
#include "database/values/row_block.h"
#include "library/controls/drawn_later.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/frame/wait_cursor.h"
#include "library/lists/list_grid.h"

#include <iterator>
#include <limits>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

struct Measure
{
    QStringView name;
    QStringView unit;
    QStringView listingColumn;
    QStringView listingNumber; ///< the column as a number
    QStringView lower;         ///< columns of the customer
    QStringView upper;
};
constexpr Measure measures[] = {
    {u"楼层", u"层", u"楼层", u"val(楼层)", u"楼层1", u"楼层2"},
    {u"面积", u"㎡", u"总面积", u"总面积", u"面积1", u"面积2"},
    {u"售价", u"万元", u"售房价格", u"售房价格", u"求购价格1", u"求购价格2"},
    {u"租价", u"元/月", u"租房价格", u"租房价格", u"求租价格1", u"求租价格2"},
};

/// Both directions: the record that is looked at, the table that is searched.
struct Direction
{
    QStringView ownTable;
    QStringView ownKey;
    QStringView ownNumber;
    QStringView table;
    QStringView number;
    QStringView shown;  ///< columns of a near miss
    QStringView format; ///< of their grid, with the reason as last column
    QStringView counted;
};
constexpr Direction directions[] = {
    {u"fykh", u"客源ID", u"客源编号", u"fyxx", u"房源编号",
     u"房源编号,楼盘字典,房型_房 & '-' & 房型_厅 & '-' & 房型_卫 & '-' & 房型_阳台 as 房型,楼层 as 层,总面积 "
     u"as 面积,"
     u"售房价格 as 售价,租房价格 as 租价",
     u"房源编号    |楼盘字典          |房型      |楼层  |面积    |售价    |租价    |差在哪里                 "
     u"   ",
     u"套房源"},
    {u"fyxx", u"房源ID", u"房源编号", u"fykh", u"客源编号",
     u"客源编号,地区,需求户型,楼层1 & '-' & 楼层2 as 楼层,面积1 & '-' & 面积2 as 面积,"
     u"求购价格1 & '-' & 求购价格2 as 求购价,求租价格1 & '-' & 求租价格2 as 求租价",
     u"委托编号    |需求片区          |需求房型  |楼层  |面积    |求购价    |求租价    |差在哪里             "
     u"     ",
     u"位客户"},
};
constexpr int shownColumns = 7;

const Direction &directionOf(MatchReasons::Of of)
{
    return directions[of == MatchReasons::Of::Customer ? 0 : 1];
}

QString whole(const RowBlock &row, int column)
{
    return QString::number(static_cast<qint64>(leadingNumber(row.cell(0, column))));
}

} // namespace

struct MatchReasons::Bound
{
    const Measure *measure;
    bool isUpper;
    double number; ///< that the searched column is compared with

    /// A customer's own bound compares the listing, a listing's measure compares the customers' bounds.
    [[nodiscard]] QStringView column(Of of) const
    {
        return of == Of::Customer ? measure->listingColumn : isUpper ? measure->upper : measure->lower;
    }
    [[nodiscard]] SqlText condition(Of of) const
    {
        const bool isAtMost = of == Of::Customer ? isUpper : !isUpper;
        SqlText sql((of == Of::Customer ? measure->listingNumber : column(of)).toString());
        sql += isAtMost ? QStringView(u"<=") : QStringView(u">=");
        sql += typed(PlainDecimal(number));
        return sql;
    }
    [[nodiscard]] QString caption(Of of) const
    {
        if (of == Of::Customer)
            return u"%1 %2 %3 %4"_s.arg(measure->name, isUpper ? u"≤" : u"≥", PlainDecimal(number),
                                        measure->unit);
        return u"客户的%1%2 %3 %4"_s.arg(measure->name, isUpper ? u"上限 ≥" : u"下限 ≤", PlainDecimal(number),
                                         measure->unit);
    }
};

MatchReasons::MatchReasons(Module &module, Of of)
    : ModulePart(module)
    , m_of(of)
{}

void MatchReasons::show(const QString &id)
{
    const bool isRead = trapped(u"-->MatchReasons::", [&] { return read(id); });
    if (isRead)
        desktop().showModal(*this);
}

bool MatchReasons::read(const QString &id)
{
    const Direction &direction = directionOf(m_of);
    const QString select = u"select * from %1 where %2="_s;
    const auto rows =
        openRows(app().Db(), SqlText(select.arg(direction.ownTable, direction.ownKey)) + quoted(id));
    if (isEmpty(*rows)) {
        desktop().messageBox(id.isEmpty() ? u"请先在列表中选择一条记录！"_s
                                          : u"这条记录已被他人删除，请刷新列表！"_s,
                             u"提示:"_s, Desktop::Icon::Information, Desktop::Buttons::Ok);
        return false;
    }
    const WaitCursor wait(desktop());
    const DetailRecord record(rows->GetRows());
    m_title = record.text(direction.ownNumber);
    const std::vector<Bound> bounds = boundsOf(record);
    setUpGrids();
    readCounts(bounds);
    readMisses(bounds);
    return true;
}

std::vector<MatchReasons::Bound> MatchReasons::boundsOf(const DetailRecord &record) const
{
    std::vector<Bound> bounds;
    for (const Measure &measure : measures) {
        for (const bool isUpper : {false, true}) {
            const QStringView column = m_of == Of::Listing ? measure.listingColumn
                                       : isUpper           ? measure.upper
                                                           : measure.lower;
            bounds.push_back({&measure, isUpper, record.number(column)});
        }
    }
    return bounds;
}

void MatchReasons::setUpGrids()
{
    setUpListGrid(m_criteria, {.format = u"条件                              |单独符合  |其余都符合",
                               .fixedColumns = 0,
                               .hiddenColumns = {}});
    setUpListGrid(m_misses, {.format = directionOf(m_of).format, .fixedColumns = 0, .hiddenColumns = {}});
    for (VSFlexGrid *grid : {&m_criteria, &m_misses})
        grid->setRows(grid->FixedRows());
    for (const int column : {Alone, AllBut})
        m_criteria.setColAlignment(column, VSFlexGrid::AlignRight);
}

/// One pass over the table: the number of all rows, of those that meet everything, and two counts for each
/// criterion. Each criterion is tested once a row, below; without the limit a server would write the tests
/// into every place that names them.
void MatchReasons::readCounts(const std::vector<Bound> &bounds)
{
    constexpr int all = std::numeric_limits<int>::max();
    const Direction &direction = directionOf(m_of);
    SqlText tests(u"select top %1 %2"_s.arg(all).arg(direction.number));
    QStringList met;
    for (const Bound &bound : bounds) {
        if (!(bound.number > 0))
            continue;
        met += u"符合%1"_s.arg(met.size());
        tests += SqlText(u",iif("_s) + bound.condition(m_of) + u",1,0) as %1"_s.arg(met.last());
    }
    const QString sum = met.isEmpty() ? u"0"_s : met.join(u'+');
    QString counts = u"select count(%1),sum(iif(%2=%3,1,0))"_s.arg(direction.number, sum).arg(met.size());
    for (const QString &each : std::as_const(met))
        counts += u",sum(%1),sum(iif(%2-%1=%3,1,0))"_s.arg(each, sum).arg(met.size() - 1);
    const SqlText sql = SqlText(counts + u" from ("_s) + tests + u" from %1) A"_s.arg(direction.table);
    showCounts(bounds, openRows(app().Db(), sql)->GetRows());
}

void MatchReasons::showCounts(const std::vector<Bound> &bounds, const RowBlock &counts)
{
    m_title +=
        u"：共 %1 %3，全部符合 %2"_s.arg(whole(counts, 0), whole(counts, 1), directionOf(m_of).counted);
    m_criteria.setRows(1 + static_cast<int>(bounds.size()));
    int column = 2;
    for (int row = 1; const Bound &bound : bounds) {
        const bool isSet = bound.number > 0;
        m_criteria.setTextMatrix(
            row, Criterion,
            isSet ? bound.caption(m_of)
                  : u"%1%2：未设"_s.arg(bound.measure->name, bound.isUpper ? u"上限" : u"下限"));
        for (int at = Alone; isSet && at <= AllBut; ++at)
            m_criteria.setTextMatrix(row, at, whole(counts, column++));
        ++row;
    }
}

void MatchReasons::readMisses(const std::vector<Bound> &bounds)
{
    const Direction &direction = directionOf(m_of);
    SqlText sql(u"select top %1 %2"_s.arg(mostMisses + 1).arg(direction.shown));
    SqlText failures;
    std::vector<const Bound *> tested;
    for (const Bound &bound : bounds) {
        if (!(bound.number > 0))
            continue;
        tested.push_back(&bound);
        const SqlText failed = SqlText(u"iif("_s) + bound.condition(m_of) + u",0,1)"_s;
        sql += u",%1 as 值%2,"_s.arg(bound.column(m_of)).arg(tested.size());
        sql += failed;
        if (!failures.isEmpty())
            failures += QStringView(u"+");
        failures += failed;
    }
    m_remark = u"没有只差一项的记录。"_s;
    if (tested.empty())
        return;
    sql += u" from %1 where "_s.arg(direction.table);
    sql += failures;
    sql += u"=1 order by %1"_s.arg(direction.number);
    const auto rows = openRows(app().Db(), sql);
    if (isEmpty(*rows))
        return;
    const RowBlock found = rows->GetRows();
    const auto shown = std::min<qsizetype>(found.rowCount(), mostMisses);
    m_remark = found.rowCount() > mostMisses ? u"只列出前 %1 条。"_s.arg(mostMisses) : QString();
    drawnLater(m_misses, [&] {
        m_misses.setRows(1 + static_cast<int>(shown));
        for (qsizetype row = 0; row < shown; ++row) {
            for (int column = 0; column < shownColumns; ++column)
                m_misses.setTextMatrix(static_cast<int>(row) + 1, column, cellText(found.cell(row, column)));
            for (size_t at = 0; at < tested.size(); ++at) {
                const int value = shownColumns + 2 * static_cast<int>(at);
                if (leadingNumber(found.cell(row, value + 1)) != 0)
                    m_misses.setTextMatrix(static_cast<int>(row) + 1, shownColumns,
                                           reason(*tested[at], cellText(found.cell(row, value))));
            }
        }
        return true;
    });
}

/// The listing's number and the bound that it does not keep, in this order for both.
QString MatchReasons::reason(const Bound &bound, const QString &found) const
{
    const QString number = PlainDecimal(bound.number);
    const QStringView against = bound.isUpper ? u">" : u"<";
    const QString other = found.isEmpty() ? u"未填"_s : found;
    const auto text = [&](const QString &left, const QString &right) {
        return u"%1 %2 %3 %4"_s.arg(bound.measure->name, left, against, right);
    };
    if (m_of == Of::Customer)
        return text(other, number);
    return text(number, Val(found) == 0 ? other + u"（未设）"_s : other);
}

} // namespace ebtq
