#include "screens/controls/flex_grid_model.h"

#include "library/controls/flex_grid.h"
#include "screens/support/screen.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <random>

using namespace ebtq;

namespace {

constexpr int keyColumn = 1;

/// The key column of a model as somebody sees it who reads a row only when a signal says that it is new.
class Mirror : public QObject
{
public:
    explicit Mirror(const QAbstractItemModel &model)
        : m_model(model)
    {
        connect(&model, &QAbstractItemModel::modelReset, this, [this] { readAll(); });
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [this](const QModelIndex &, int first, int last) {
                    for (int row = first; row <= last; ++row)
                        m_rows.insert(row, read(row));
                });
        connect(&model, &QAbstractItemModel::rowsRemoved, this,
                [this](const QModelIndex &, int first, int last) { m_rows.remove(first, last - first + 1); });
        connect(&model, &QAbstractItemModel::dataChanged, this,
                [this](const QModelIndex &first, const QModelIndex &last) {
                    for (int row = first.row(); row <= last.row(); ++row)
                        m_rows[row] = read(row);
                });
        readAll();
    }
    [[nodiscard]] const QStringList &rows() const { return m_rows; }

private:
    [[nodiscard]] QString read(int row) const { return m_model.index(row, keyColumn).data().toString(); }
    void readAll()
    {
        m_rows.clear();
        for (int row = 0; row < m_model.rowCount(); ++row)
            m_rows.append(read(row));
    }

    const QAbstractItemModel &m_model;
    QStringList m_rows;
};

QStringList rowsInSight(const VSFlexGrid &grid)
{
    QStringList rows;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (!grid.RowHidden(row))
            rows.append(grid.TextMatrix(row, keyColumn));
    }
    return rows;
}

RowBlock numberedBlock(int rows, int from)
{
    RowBlock block({{QStringLiteral("a"), ColumnType::Text}, {QStringLiteral("b"), ColumnType::Integer}});
    for (int row = 0; row < rows; ++row) {
        block.append("x");
        block.appendInteger(from + row);
    }
    block.finish();
    return block;
}

/// One random change of the grid, small enough that all kinds of them meet.
void changeAtRandom(VSFlexGrid &grid, std::mt19937 &random, int step)
{
    const auto upTo = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit + 1));
    };
    const int row = upTo(grid.Rows());
    switch (upTo(9)) {
    case 0:
    case 1:
        grid.insertRow(row);
        break;
    case 2:
        grid.RemoveItem(row);
        break;
    case 3:
    case 4:
        if (row >= grid.FixedRows() && row < grid.Rows())
            grid.setTextMatrix(row, keyColumn, QString::number(step));
        break;
    case 5:
        if (row >= grid.FixedRows() && row < grid.Rows())
            grid.setRowHidden(row, upTo(1) == 1);
        break;
    case 6:
        grid.hideRowsWithout(QString::number(upTo(9)), {keyColumn});
        break;
    case 7:
        upTo(2) == 0 ? grid.setRows(grid.FixedRows() + upTo(12)) : grid.showAllRows();
        break;
    case 8:
        if (upTo(4) == 0)
            grid.LoadArray(numberedBlock(upTo(20), step));
        break;
    default:
        grid.setCurrent(row, keyColumn);
    }
}

TEST(FlexGridModel, EverySignalFitsWhatHappenedToTheRows)
{
    VSFlexGrid grid(QStringLiteral("VS"));
    grid.setFormatString(QStringLiteral(" |编号"));
    grid.LoadArray(numberedBlock(10, 0));
    FlexGridModel model(grid);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    const Mirror mirror(model);
    std::mt19937 random(20261122); // fixed, so that a failure comes again
    for (int step = 0; step < 3000 && !testing::Test::HasFailure(); ++step) {
        const bool undrawn = step % 7 == 0;
        grid.setRedraw(!undrawn);
        changeAtRandom(grid, random, step);
        changeAtRandom(grid, random, step + 10000);
        grid.setRedraw(true);
        ASSERT_EQ(model.rowCount(), grid.visibleCount()) << "step " << step;
        ASSERT_EQ(mirror.rows(), rowsInSight(grid)) << "step " << step;
    }
}

TEST(FlexGridModel, KeepsItsShapeWhileTheGridIsFilledUndrawn)
{
    VSFlexGrid grid(QStringLiteral("VS"));
    grid.setFormatString(QStringLiteral(" |编号"));
    grid.LoadArray(numberedBlock(10, 0));
    const FlexGridModel model(grid);
    grid.setRedraw(false);
    grid.setRows(grid.FixedRows());
    EXPECT_EQ(model.rowCount(), 10);
    EXPECT_FALSE(model.index(9, keyColumn).data().isValid());
    grid.setRedraw(true);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(FlexGridModel, TellsCellsAndHeaderAsTheyAreToBeSeen)
{
    VSFlexGrid grid(QStringLiteral("VS"));
    grid.setFormatString(QStringLiteral(" |编号    |>价|^中"));
    RowBlock block({{QString(), ColumnType::Text},
                    {QString(), ColumnType::Integer},
                    {QString(), ColumnType::Text},
                    {QString(), ColumnType::Text}});
    for (const char *cell : {"", "7", "5万元", "中"})
        block.append(cell);
    block.finish();
    grid.LoadArray(std::move(block));
    grid.setCellPicture(1, 0, QStringLiteral("mail-attachment"));
    const FlexGridModel model(grid);

    struct Case
    {
        int column;
        QString header;
        QString text;
        Qt::AlignmentFlag across;
        bool picture;
    };
    const Case cases[] = {
        {0, QString(), QString(), Qt::AlignLeft, true},
        {1, QStringLiteral("编号"), QStringLiteral("7"), Qt::AlignRight, false}, // a number by its type
        {2, QStringLiteral("价"), QStringLiteral("5万元"), Qt::AlignRight, false},
        {3, QStringLiteral("中"), QStringLiteral("中"), Qt::AlignHCenter, false},
    };
    for (const Case &expected : cases) {
        SCOPED_TRACE(expected.column);
        const QModelIndex index = model.index(0, expected.column);
        EXPECT_EQ(model.headerData(expected.column, Qt::Horizontal).toString(), expected.header);
        EXPECT_EQ(index.data().toString(), expected.text);
        EXPECT_TRUE(index.data(Qt::TextAlignmentRole).toInt() & expected.across);
        EXPECT_EQ(index.data(Qt::DecorationRole).isValid(), expected.picture);
    }
    EXPECT_FALSE(model.headerData(9, Qt::Horizontal).isValid());
}

TEST(FlexGridModel, FollowsAnotherNumberOfColumns)
{
    VSFlexGrid grid(QStringLiteral("VS"));
    FlexGridModel model(grid);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    grid.setFormatString(QStringLiteral("a|b|c"));
    EXPECT_EQ(model.columnCount(), 3);
    grid.setFormatString(QStringLiteral("a"));
    EXPECT_EQ(model.columnCount(), 1);
}

} // namespace
