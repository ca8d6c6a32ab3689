#include "screens/controls/flex_grid_model.h"

#include "library/controls/flex_grid.h"
#include "screens/support/screen.h"

#include <QAbstractItemModelTester>

using namespace ebtq;

namespace {

constexpr int keyColumn = 1;

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
    RowBlock block({{u"a"_qs, ColumnType::Text}, {u"b"_qs, ColumnType::Integer}});
    for (int row = 0; row < rows; ++row) {
        block.append("x");
        block.appendInteger(from + row);
    }
    block.finish();
    return block;
}

/// What has happened is right by the grid's own test; here it must reach a view as it happened.
TEST(FlexGridModel, EverySignalFitsWhatHappenedToTheRows)
{
    VSFlexGrid grid(u"VS"_qs);
    grid.setFormatString(u" |编号"_qs);
    grid.LoadArray(numberedBlock(10, 0));
    FlexGridModel model(grid);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    QString told;
    QObject::connect(&model, &FlexGridModel::modelReset, [&] { told += u"reset "_qs; });
    QObject::connect(&model, &FlexGridModel::rowsInserted,
                     [&](const QModelIndex &, int row) { told += u"+%1 "_qs.arg(row); });
    QObject::connect(&model, &FlexGridModel::rowsRemoved,
                     [&](const QModelIndex &, int row) { told += u"-%1 "_qs.arg(row); });
    QObject::connect(&model, &FlexGridModel::dataChanged,
                     [&](const QModelIndex &first) { told += u"~%1 "_qs.arg(first.row()); });
    const std::tuple<const char *, std::function<void()>, QString> steps[] = {
        {"insert", [&] { grid.insertRow(3); }, u"+2 "_qs},
        {"edit", [&] { grid.setTextMatrix(3, keyColumn, u"x"_qs); }, u"~2 "_qs},
        {"remove", [&] { grid.RemoveItem(5); }, u"-4 "_qs},
        {"hide", [&] { grid.setRowHidden(2, true); }, u"reset "_qs},
        {"edit what is hidden", [&] { grid.setTextMatrix(2, keyColumn, u"x"_qs); }, {}},
        {"remove behind what is hidden", [&] { grid.RemoveItem(4); }, u"-2 "_qs},
        {"show", [&] { grid.setRowHidden(2, false); }, u"reset "_qs},
        {"filter", [&] { grid.hideRowsWithout(u"x"_qs, {keyColumn}); }, u"reset "_qs},
        {"show all", [&] { grid.showAllRows(); }, u"reset "_qs},
        {"load", [&] { grid.LoadArray(numberedBlock(20, 5)); }, u"reset "_qs},
        {"move", [&] { grid.setCurrent(3, keyColumn); }, {}},
        {"undrawn",
         [&] {
             grid.setRedraw(false);
             grid.setRows(grid.FixedRows());
             EXPECT_EQ(model.rowCount(), 20);
             EXPECT_FALSE(model.index(9, keyColumn).data().isValid());
             grid.insertRow(1);
             grid.setRedraw(true);
         },
         u"reset "_qs},
    };
    for (const auto &[what, act, expected] : steps) {
        told.clear();
        act();
        EXPECT_EQ(told, expected) << what << ": " << told.toStdString();
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(model.index(row, keyColumn).data().toString());
        EXPECT_EQ(rows, rowsInSight(grid)) << what;
    }
}

TEST(FlexGridModel, TellsCellsAndHeaderAsTheyAreToBeSeen)
{
    VSFlexGrid grid(u"VS"_qs);
    grid.setFormatString(u" |编号    |>价|^中"_qs);
    RowBlock block({{{}, ColumnType::Text}, {{}, ColumnType::Integer}, {{}, ColumnType::Text}, {}});
    for (const char *cell : {"", "7", "5万元", "中"})
        block.append(cell);
    block.finish();
    grid.LoadArray(std::move(block));
    grid.setCellPicture(1, 0, u"mail-attachment"_qs);
    const FlexGridModel model(grid);
    const std::tuple<QString, QString, Qt::AlignmentFlag> columns[] = {
        {{}, {}, Qt::AlignLeft},
        {u"编号"_qs, u"7"_qs, Qt::AlignRight}, // a number by its type
        {u"价"_qs, u"5万元"_qs, Qt::AlignRight},
        {u"中"_qs, u"中"_qs, Qt::AlignHCenter}};
    for (int column = 0; column < 4; ++column) {
        const auto &[header, text, across] = columns[column];
        const QModelIndex index = model.index(0, column);
        EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString(), header);
        EXPECT_EQ(index.data().toString(), text);
        EXPECT_TRUE(index.data(Qt::TextAlignmentRole).toInt() & across) << column;
        EXPECT_EQ(index.data(Qt::DecorationRole).isValid(), column == 0);
    }
    EXPECT_FALSE(model.headerData(9, Qt::Horizontal).isValid());
}

} // namespace
