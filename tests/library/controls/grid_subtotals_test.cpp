// Sums among the rows against a plain walk over the same rows, and the orders that a column can be sorted in.

#include "contracts/conversions.h"
#include "library/controls/flex_grid.h"
#include "library/support/grids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace ebtq;
using namespace ebtq::test;

namespace {

enum Cell : int { District, Building, Area, Price };

/// All rows as "a|b|c|d", sums with a "*" in front.
QStringList rowsOf(const VSFlexGrid &grid)
{
    QStringList rows = rowTexts(grid);
    for (qsizetype at = 0; at < rows.size(); ++at) {
        if (grid.isSubtotal(static_cast<int>(at) + grid.FixedRows()))
            rows[at].prepend(u'*');
    }
    return rows;
}

class SubtotalTest : public testing::Test
{
protected:
    SubtotalTest()
    {
        grid.setFormatString(u"城区|楼盘|面积|售价"_qs);
        grid.setFixedCols(0);
    }
    void load(const QList<QStringList> &rows) { grid.LoadArray(blockOf(4, rows)); }

    VSFlexGrid grid{u"VS"_qs};
};

TEST_F(SubtotalTest, SumsEachGroupInTheRowsThatItsColumnShares)
{
    const QList<QStringList> rows{{u"天河"_qs, u"甲"_qs, u"80.5"_qs, u"100万元"_qs},
                                  {u"天河"_qs, u"甲"_qs, u"0.1"_qs, u"万元"_qs},
                                  {u"天河"_qs, u"乙"_qs, u"0.2"_qs, u"-7万元"_qs},
                                  {u"海珠"_qs, u"乙"_qs, {}, u"1E3"_qs}};
    const auto of = [](int group, int total) {
        return Subtotal{.groupColumn = group, .totalColumn = total, .caption = u"%s小计"_qs};
    };
    const auto inFirstColumn = [&](int total) {
        Subtotal result = of(District, total);
        result.matchFrom = 0;
        result.totalOnly = true;
        return result;
    };
    Subtotal overTwo = of(Building, Area);
    overTwo.matchFrom = District;
    const Subtotal ofAll{.totalColumn = Price, .format = u"#,##0.00"_qs, .caption = u"合计"_qs};
    using enum SubtotalPosition;
    // What is expected are the sums, with the number of the row in front.
    const std::tuple<std::vector<Subtotal>, SubtotalPosition, QStringList> cases[] = {
        {{inFirstColumn(Area), inFirstColumn(Price)},
         Below,
         {u"4*天河小计||80.8|93"_qs, u"6*海珠小计||0|1000"_qs}},
        {{of(District, Price), ofAll},
         Below,
         {u"4*天河小计|||93"_qs, u"6*海珠小计|||1000"_qs, u"7*合计|||1,093.00"_qs}},
        {{of(District, Area)}, Above, {u"1*天河小计||80.8|"_qs, u"5*海珠小计||0|"_qs}},
        {{overTwo}, Below, {u"3*|甲小计|80.6|"_qs, u"5*|乙小计|0.2|"_qs, u"7*|乙小计|0|"_qs}},
    };
    for (const auto &[wanted, position, expected] : cases) {
        load(rows);
        grid.setSubtotalPosition(position);
        grid.addSubtotals(wanted);
        QStringList sums;
        const QStringList seen = rowsOf(grid);
        for (qsizetype at = 0; at < seen.size(); ++at) {
            if (seen[at].startsWith(u'*'))
                sums.append(QString::number(at + 1) + seen[at]);
        }
        EXPECT_EQ(sums, expected) << sums.join(u'\n').toStdString();
        grid.addSubtotals(wanted);
        EXPECT_EQ(rowsOf(grid), seen) << "the same sums go into the same rows";
        grid.clearSubtotals();
        EXPECT_EQ(grid.Rows(), 5);
    }
}

/// Few values, long runs, cents that no binary number holds.
QList<QStringList> randomRows(std::mt19937 &random)
{
    QList<QStringList> rows;
    for (auto count = static_cast<int>(random() % 200); count > 0; --count) {
        const bool repeats = !rows.isEmpty() && random() % 3 != 0;
        const int cents = static_cast<int>(random() % 2000000) - 500000;
        rows.append({repeats ? rows.last()[District] : u"区%1"_qs.arg(random() % 3),
                     repeats && random() % 2 ? rows.last()[Building] : u"盘%1"_qs.arg(random() % 3),
                     QString::number(cents / 100.0, 'f', 2), u"%1元/月"_qs.arg(random() % 100)});
    }
    return rows;
}

/// What a person would write down: walks the rows once for each group and adds cents as whole numbers.
QStringList naive(const QList<QStringList> &rows)
{
    QStringList result;
    qint64 cents[3] = {0, 0, 0};
    const auto sum = [&](const QString &label, int level) {
        result.append(u"*%1|%2|"_qs.arg(label, NumberText(static_cast<double>(cents[level]) / 100)));
        cents[level] = 0;
    };
    for (qsizetype at = 0; at < rows.size(); ++at) {
        const QStringList &row = rows[at];
        for (qint64 &level : cents)
            level += qRound64(row[Area].toDouble() * 100);
        result.append(row.join(u'|'));
        const bool last = at + 1 == rows.size();
        const bool outer = last || rows[at + 1][District] != row[District];
        if (outer || rows[at + 1][Building] != row[Building])
            sum(row[District] + u'|' + row[Building] + u"小计"_qs, 2);
        if (outer)
            sum(row[District] + u"小计|"_qs, 1);
        if (last)
            sum(u"合计|"_qs, 0);
    }
    return result;
}

TEST_F(SubtotalTest, SumsAreNoRecords)
{
    load({{u"天河"_qs, {}, {}, {}}, {u"天河"_qs, {}, {}, {}}, {u"海珠"_qs, {}, {}, {}}});
    const Subtotal wanted[] = {{.groupColumn = District, .totalColumn = Area, .caption = u"%s小计"_qs}};
    grid.addSubtotals(wanted);
    grid.insertRow(1);
    grid.setRowHidden(2, true);
    EXPECT_EQ(grid.Rows() - grid.FixedRows(), 6);
    EXPECT_EQ(grid.recordCount(), 4);
    EXPECT_EQ(grid.recordCountInSight(), 3);
}

TEST_F(SubtotalTest, RandomRowsAddUpAsAWalkByHandDoes)
{
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        const QList<QStringList> rows = randomRows(random);
        load(rows);
        const int current = rows.isEmpty() ? 0 : 1 + static_cast<int>(random() % rows.size());
        grid.setRow(current);
        const QString contents = grid.TextMatrix(current, Area);
        int moves = 0;
        const auto moved = QObject::connect(&grid, &VSFlexGrid::AfterRowColChange, [&] { ++moves; });
        const Subtotal wanted[] = {
            {.groupColumn = District, .totalColumn = Area, .caption = u"%s小计"_qs},
            {.groupColumn = Building, .totalColumn = Area, .caption = u"%s小计"_qs},
            {.totalColumn = Area, .caption = u"合计"_qs},
        };
        grid.addSubtotals(wanted);
        ASSERT_EQ(rowsOf(grid), naive(rows)) << "seed " << seed;
        EXPECT_EQ(grid.TextMatrix(grid.Row(), Area), contents);
        grid.clearSubtotals();
        EXPECT_EQ(grid.Row(), current);
        EXPECT_EQ(moves, 0) << "a row that moves with its contents is no change of row";
        QObject::disconnect(moved);
    }
}

TEST_F(SubtotalTest, SumsAreRowsThatAreSearchedHiddenAndRemovedLikeOthers)
{
    load({{u"天河"_qs, u"甲"_qs, u"1"_qs, {}}, {u"海珠"_qs, u"乙"_qs, u"2"_qs, {}}});
    const Subtotal wanted[] = {{.groupColumn = District,
                                .totalColumn = Area,
                                .foreColor = 128,
                                .caption = u"%s小计"_qs,
                                .totalOnly = true}};
    grid.addSubtotals(wanted);
    EXPECT_EQ(grid.CellForeColor(2, 0, 3), 128);
    EXPECT_EQ(grid.CellForeColor(1, 0, 3), 0);
    grid.setCellForeColor(2, 1, 1, 255);
    EXPECT_EQ(grid.CellForeColor(2, 0, 3), 0) << "no longer one colour";
    EXPECT_EQ(grid.CellForeColor(2, 1, 1), 255);
    EXPECT_EQ(grid.findRow(u"海珠小计"_qs, {District}, 1), 4);
    grid.hideRowsWithout(u"天河"_qs, {District});
    EXPECT_EQ(grid.visibleCount(), 2);
    grid.showAllRows();
    grid.RemoveItem(2);
    grid.addSubtotals(wanted);
    EXPECT_EQ(rowsOf(grid),
              QStringList({u"天河|甲|1|"_qs, u"*天河小计||1|"_qs, u"海珠|乙|2|"_qs, u"*海珠小计||2|"_qs}));
    grid.setSort(1);
    EXPECT_EQ(grid.Rows(), 3) << "sums stood for another order";
    load({{u"天河"_qs, u"甲"_qs, u"1"_qs, {}}});
    EXPECT_EQ(grid.Rows(), 2);
    load({});
    grid.addSubtotals(wanted);
    EXPECT_EQ(grid.Rows(), 1) << "no rows, no sums";
}

TEST_F(SubtotalTest, SortsByTheCurrentColumnAndKeepsEqualRowsInOrder)
{
    const std::tuple<int, ColumnType, QString, QString> cases[] = {
        {1, ColumnType::Number, u"10 9 -1 9"_qs, u"-1 9 9 10"_qs},
        {2, ColumnType::Integer, u"10 9 -1"_qs, u"10 9 -1"_qs},
        {1, ColumnType::Date, u"2026-11-2 x 2026-2-11"_qs, u"x 2026-2-11 2026-11-2"_qs},
        {1, ColumnType::Text, u"b A 10 9 a"_qs, u"10 9 A a b"_qs},
        {3, ColumnType::Text, u"10万 9万 x"_qs, u"x 9万 10万"_qs},
        {4, ColumnType::Text, u"10万 9万 x"_qs, u"10万 9万 x"_qs},
        {5, ColumnType::Number, u"10 9 B a"_qs, u"10 9 a B"_qs},
        {6, ColumnType::Text, u"a B 天"_qs, u"天 B a"_qs},
        {7, ColumnType::Text, u"a B 10"_qs, u"10 B a"_qs},
        {8, ColumnType::Text, u"10 a B"_qs, u"a B 10"_qs},
        {9, ColumnType::Text, u"b a"_qs, u"b a"_qs},
        {-1, ColumnType::Text, u"b a"_qs, u"b a"_qs},
    };
    for (const auto &[sort, type, before, after] : cases) {
        SCOPED_TRACE(testing::Message() << sort << ' ' << before.toStdString());
        RowBlock block(std::vector<Column>{Column(), {u"x"_qs, type}});
        const QStringList cells = before.split(u' ');
        for (const QString &cell : cells) {
            block.append("");
            block.append(cell.toStdString());
        }
        block.finish();
        grid.LoadArray(std::move(block));
        grid.setCurrent(1, 1);
        grid.setSort(sort);
        EXPECT_EQ(columnText(grid, 1), after);
        EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), cells.first()) << "the current row goes with its contents";
    }
}

} // namespace
