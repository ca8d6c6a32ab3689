#include "library/controls/flex_grid.h"
#include "library/support/grids.h"

#include <gtest/gtest.h>

using namespace ebtq;
using ebtq::test::blockOf;

namespace {

const QList<QStringList> threeRows = {{u"A1"_qs, u"天河"_qs}, {u"A2"_qs, u"海珠"_qs}, {u"A3"_qs, u"越秀"_qs}};

class GridTest : public ::testing::Test
{
protected:
    GridTest()
    {
        grid.setFormatString(u"编号  |城区"_qs);
        QObject::connect(&grid, &VSFlexGrid::AfterRowColChange,
                         [this](int oldRow, int oldCol, int newRow, int newCol) {
                             moves.append(u"%1,%2>%3,%4"_qs.arg(oldRow).arg(oldCol).arg(newRow).arg(newCol));
                         });
    }
    QStringList takeMoves() { return std::exchange(moves, {}); }

    VSFlexGrid grid{u"VS"_qs};
    QStringList moves;
};

TEST_F(GridTest, FormatStringGivesCaptionsWidthsAndAlignment)
{
    grid.setFormatString(u" |<房源编号  |^㎡|>Ab |委托日      |"_qs);
    ASSERT_EQ(grid.Cols(), 6);
    const std::tuple<QString, int, int> cases[] = {
        {{}, 7 + 14, VSFlexGrid::AlignGeneral},
        {u"房源编号"_qs, 10 * 7 + 14, VSFlexGrid::AlignLeft},
        {u"㎡"_qs, 2 * 7 + 14, VSFlexGrid::AlignCentre},
        {u"Ab"_qs, 3 * 7 + 14, VSFlexGrid::AlignRight},
        {u"委托日"_qs, 12 * 7 + 14, VSFlexGrid::AlignGeneral},
        {{}, 14, VSFlexGrid::AlignGeneral},
    };
    for (int col = 0; col < grid.Cols(); ++col)
        EXPECT_EQ(std::tuple(grid.TextMatrix(0, col), grid.ColWidth(col), grid.ColAlignment(col)),
                  cases[col]);
    EXPECT_EQ(grid.columnOrder(), (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.Row(), 0) << "an empty list stands on its header";
}

TEST_F(GridTest, CellsOutsideReadEmptyAndTakeNothing)
{
    grid.LoadArray(blockOf(2, threeRows));
    for (const auto &[row, col] : {std::pair(-1, 0), {1, -1}, {1, 2}, {1'000'000, 1}}) {
        grid.setTextMatrix(row, col, u"x"_qs);
        grid.setCellPicture(row, col, u"tag"_qs);
        grid.setRowHidden(row, true);
        EXPECT_EQ(grid.TextMatrix(row, col) + grid.CellPicture(row, col), QString());
    }
    grid.RemoveItem(0);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_EQ(grid.TextMatrix(0, 0), u"编号"_qs);
    EXPECT_EQ(grid.ColWidth(7), 0);
    EXPECT_EQ(grid.rowInSight(-1), -1);
    EXPECT_EQ(grid.positionInSight(0), -1);
    // Pictures of rows go with them; that of a caption stays.
    grid.setCellPicture(0, 0, u"header"_qs);
    grid.setCellPicture(2, 0, u"mail-attachment"_qs, VSFlexGrid::AlignRight);
    grid.insertRow(1);
    EXPECT_EQ(grid.CellPictureAlignment(3, 0), VSFlexGrid::AlignRight);
    grid.LoadArray(blockOf(2, threeRows));
    EXPECT_EQ(grid.CellPicture(0, 0) + grid.CellPicture(3, 0), u"header"_qs);
}

TEST_F(GridTest, BlockMayStandRightOfFixedColumnsAndBeWiderThanTheGrid)
{
    grid.setCols(3);
    grid.LoadArray(blockOf(3, {{u"a"_qs, u"b"_qs, u"unseen"_qs}}), 1);
    EXPECT_EQ(test::rowText(grid, 1), u"a|b");
    EXPECT_EQ(grid.TextMatrix(1, 0) + grid.TextMatrix(1, 3), QString());
    grid.setTextMatrix(1, 0, u"*"_qs);
    EXPECT_EQ(grid.TextMatrix(1, 0), u"*"_qs);
    EXPECT_EQ(grid.columnType(1), ColumnType::Text);
}

TEST_F(GridTest, CurrentCellFollowsRowsAndColumns)
{
    EXPECT_EQ(grid.Col(), 1) << "the first column behind the fixed one";
    grid.LoadArray(blockOf(2, threeRows));
    EXPECT_EQ(takeMoves(), QStringList(u"0,1>1,1"_qs));
    grid.setCurrent(3, 0);
    grid.setCurrent(3, 0);
    EXPECT_EQ(takeMoves(), QStringList(u"1,1>3,0"_qs));
    grid.setRow(99);
    grid.setCol(-5);
    EXPECT_EQ(takeMoves(), QStringList());
    grid.LoadArray(blockOf(2, threeRows));
    EXPECT_EQ(takeMoves(), QStringList()) << "a row that is still there stays current";
    grid.LoadArray(blockOf(2, {threeRows[0], threeRows[1]}));
    EXPECT_EQ(takeMoves(), QStringList(u"3,0>1,0"_qs));
    grid.setRow(2);
    grid.setRows(2);
    EXPECT_EQ(takeMoves(), QStringList({u"1,0>2,0"_qs, u"2,0>1,0"_qs}));
    grid.setRows(1);
    grid.setRows(0);
    EXPECT_EQ(takeMoves(), QStringList({u"1,0>0,0"_qs, u"0,0>-1,0"_qs}));
    grid.setRows(1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.TextMatrix(0, 1), u"城区"_qs) << "captions outlast an emptied grid";
}

TEST_F(GridTest, CurrentRowStaysOnItsContents)
{
    grid.LoadArray(blockOf(2, threeRows));
    grid.setRow(2);
    takeMoves();
    grid.insertRow(2);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.TextMatrix(3, 0), u"A2"_qs);
    grid.insertRow(4);
    EXPECT_EQ(grid.Row(), 3);
    grid.RemoveItem(4);
    grid.RemoveItem(2);
    EXPECT_EQ(grid.Row(), 2);
    grid.RemoveItem(2);
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), u"A3"_qs);
    EXPECT_EQ(takeMoves(), QStringList()) << "the number of the current row did not change by itself";
    grid.RemoveItem(2);
    EXPECT_EQ(takeMoves(), QStringList(u"2,1>1,1"_qs));
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, TopRowIsADataRow)
{
    grid.LoadArray(blockOf(2, threeRows));
    int tops = 0;
    QObject::connect(&grid, &VSFlexGrid::topRowChanged, [&] { ++tops; });
    grid.setTopRow(-3);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.setTopRow(99);
    EXPECT_EQ(grid.TopRow(), 3);
    grid.setRows(2);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(tops, 2);
}

TEST_F(GridTest, NothingIsDrawnWhileRedrawIsOff)
{
    QStringList told;
    QObject::connect(&grid, &VSFlexGrid::rowsAboutToBeReset, [&] { told.append(u"about"_qs); });
    QObject::connect(&grid, &VSFlexGrid::rowsReset, [&] { told.append(u"reset"_qs); });
    QObject::connect(&grid, &VSFlexGrid::rowInserted, [&] { told.append(u"inserted"_qs); });
    QObject::connect(&grid, &VSFlexGrid::rowChanged, [&] { told.append(u"changed"_qs); });
    QObject::connect(&grid, &VSFlexGrid::columnsChanged, [&] { told.append(u"columns"_qs); });
    QObject::connect(&grid, &VSFlexGrid::currentChanged, [&] { told.append(u"current"_qs); });
    QObject::connect(&grid, &VSFlexGrid::topRowChanged, [&] { told.append(u"top"_qs); });
    grid.setRedraw(false);
    grid.setRedraw(true);
    EXPECT_EQ(told, QStringList()) << "nothing changed";
    grid.setRedraw(false);
    grid.LoadArray(blockOf(2, threeRows));
    grid.setTextMatrix(1, 1, u"荔湾"_qs);
    grid.setColWidth(1, 99);
    grid.insertRow(1);
    grid.setRow(2);
    EXPECT_EQ(told, QStringList());
    EXPECT_FALSE(takeMoves().isEmpty()) << "the rules hear of it all the same";
    grid.setRedraw(true);
    EXPECT_EQ(told, QStringList({u"columns"_qs, u"about"_qs, u"reset"_qs, u"current"_qs}));
    told.clear();
    grid.setRedraw(false);
    grid.setTopRow(2);
    grid.setRow(2);
    grid.setRedraw(true);
    EXPECT_EQ(told, QStringList({u"top"_qs, u"current"_qs}))
        << "no rows are read anew, the current one is seen";
}

TEST_F(GridTest, BytesCountTheRowsAndNotTheirCells)
{
    constexpr int rows = 20'000;
    RowBlock block(std::vector<Column>(10));
    for (int cell = 0; cell < rows * 10; ++cell)
        block.append("FY2026112400");
    block.finish();
    const size_t ofBlock = block.byteSize();
    grid.setCols(10);
    grid.LoadArray(std::move(block));
    EXPECT_GE(grid.byteSize(), ofBlock + rows * sizeof(quint32));
    EXPECT_LE(grid.byteSize(), ofBlock + rows * 2 * sizeof(quint32))
        << "an index entry a row, no copy of a cell";
    const size_t loaded = grid.byteSize();
    grid.setTextMatrix(1, 1, QString(1000, u'房'));
    EXPECT_GE(grid.byteSize(), loaded + 3000);
}

} // namespace
