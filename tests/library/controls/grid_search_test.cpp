#include "library/controls/flex_grid.h"
#include "library/support/grids.h"

#include <gtest/gtest.h>

#include <random>

using namespace ebtq;
using ebtq::test::blockOf;

namespace {

class GridSearchTest : public ::testing::Test
{
protected:
    GridSearchTest()
    {
        grid.setFixedCols(0);
        grid.setFormatString(u"a|b|c|key"_qs);
        grid.LoadArray(blockOf(4, {{u"FY01"_qs, u"天河区"_qs, u"3房"_qs, u"AB-天河"_qs},
                                   {u"FY02"_qs, u"海珠区"_qs, u""_qs, u"房CD"_qs},
                                   {u"fy03"_qs, u""_qs, u"4房%"_qs, u"EF"_qs}}));
    }
    /// Row numbers that stay in sight.
    QList<int> kept(const QString &text, const QList<int> &columns)
    {
        grid.hideRowsWithout(text, columns);
        QList<int> rows;
        for (int position = 0; position < grid.visibleCount(); ++position)
            rows.append(grid.rowInSight(position));
        return rows;
    }

    VSFlexGrid grid{u"VS"_qs};
};

TEST_F(GridSearchTest, HitsByTable)
{
    const std::tuple<const char *, int, QString, QList<int>, QList<int>> cases[] = {
        {"a cell of a searched column", 0, u"天河"_qs, {0, 1, 2}, {1}},
        {"a column that is not searched", 0, u"CD"_qs, {0, 1, 2}, {}},
        {"the current column is always searched", 3, u"CD"_qs, {0, 1, 2}, {2}},
        {"a hit in an unsearched column hides none behind it", 0, u"F"_qs, {1, 2}, {1, 2}},
        {"the end of one cell and the begin of the next are no hit", 0, u"01天"_qs, {0, 1, 2}, {}},
        {"the end of a row and the begin of the next are no hit", 0, u"河F"_qs, {0, 1, 2, 3}, {}},
        {"nor across an empty cell", 0, u"区房"_qs, {0, 1, 2, 3}, {}},
        {"neighbours are parted by %", 0, u"01%天"_qs, {0, 1, 2}, {1}},
        {"an empty neighbour leaves its %", 0, u"区%%房C"_qs, {0, 1, 2, 3}, {2}},
        {"a % of a cell is one too", 0, u"房%"_qs, {0, 1, 2}, {3}},
        {"the current column stands in front of the list", 2, u"3房%FY"_qs, {0, 1, 2}, {1}},
        {"the current column counts twice", 0, u"FY01%FY01%"_qs, {0, 1, 2}, {1}},
        {"case counts", 0, u"fy"_qs, {0, 1, 2}, {3}},
        {"no text is in all rows", 0, QString(), {0}, {1, 2, 3}},
        {"% alone needs a second column", 0, u"%"_qs, {}, {}},
    };
    for (const auto &[why, currentCol, text, columns, rows] : cases) {
        grid.setCol(currentCol);
        EXPECT_EQ(kept(text, columns), rows) << why;
        EXPECT_EQ(grid.findRow(text, columns, 1), rows.isEmpty() ? -1 : rows.front()) << why;
    }
}

/// All texts of up to that many letters.
QStringList textsOver(const QString &letters, int length)
{
    QStringList texts{QString()};
    for (qsizetype at = 0; at < texts.size() && texts[at].size() < length; ++at)
        for (const QChar letter : letters)
            texts.append(texts[at] + letter);
    return texts;
}

TEST(GridSearchDefinition, EveryShortTextIsFoundWhereTheRowsTextHoldsIt)
{
    // The Kelvin sign is a k whose UTF-8 is longer; р, Р and Ѡ share their bytes.
    const std::pair<QString, Qt::CaseSensitivity> alphabets[] = {{u"ab%"_qs, Qt::CaseSensitive},
                                                                 {u"kK%\u212A"_qs, Qt::CaseInsensitive},
                                                                 {u"рР%Ѡ"_qs, Qt::CaseInsensitive}};
    for (const auto &[letters, sensitivity] : alphabets) {
        const QStringList cells = textsOver(letters, 3);
        std::mt19937 random(7); // the same rows each time
        QList<QStringList> rows;
        for (int row = 0; row < 60; ++row) {
            rows.append(QStringList());
            for (int col = 0; col < 4; ++col)
                rows.last().append(cells[static_cast<qsizetype>(random() % 40)]);
        }
        VSFlexGrid grid(u"VS"_qs);
        grid.setFormatString(u"a|b|c|d"_qs);
        grid.LoadArray(blockOf(4, rows));
        grid.setCol(1);
        for (const QString &text : textsOver(letters, 5)) {
            grid.hideRowsWithout(text, {0, 1, 3, -1}, sensitivity);
            for (qsizetype row = 0; row < rows.size(); ++row) {
                const QStringList &cell = rows[row];
                const QString whole = QStringList({cell[1], cell[0], cell[1], cell[3], QString()}).join(u'%');
                ASSERT_EQ(!grid.RowHidden(static_cast<int>(row) + 1), whole.contains(text, sensitivity))
                    << text.toStdString() << " in " << whole.toStdString();
            }
        }
    }
}

// Edited, inserted, removed and hidden rows are searched among the grid's random operations.

TEST_F(GridSearchTest, FindGoesOnFromARowAndSeesHiddenOnes)
{
    grid.setRowHidden(2, true);
    for (const auto &[from, row] : {std::pair(2, 2), {3, -1}, {-7, 1}, {4, -1}})
        EXPECT_EQ(grid.findRow(u"FY"_qs, {0}, from), row) << from;
    EXPECT_EQ(grid.findRow(u"fY0"_qs, {0}, 3, Qt::CaseInsensitive), 3);
}

TEST(GridSearchLimits, EmptyGridsAndBlocksAreSearched)
{
    VSFlexGrid grid(u"VS"_qs);
    grid.hideRowsWithout(u"x"_qs, {0, 5});
    EXPECT_EQ(grid.findRow(u"x"_qs, {0}, 0), -1);
    grid.setCols(2);
    grid.LoadArray(RowBlock());
    grid.setRows(3);
    EXPECT_EQ(grid.findRow(u"x"_qs, {0, 1}, 1), -1);
    grid.LoadArray(blockOf(1, {{QString()}, {QString()}, {u"x"_qs}}), 1);
    EXPECT_EQ(grid.findRow(u"x"_qs, {0, 1}, 1), 3);
    grid.setCol(0);
    EXPECT_EQ(grid.findRow(u"x"_qs, {0}, 1), -1) << "left of the block's first column";
}

} // namespace
