#include "database/values/row_block.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace ebtq {

TEST(RowBlock, KeepsCellsNullsAndTypes)
{
    RowBlock block({{{}, ColumnType::Text},
                    {{}, ColumnType::Integer},
                    {{}, ColumnType::Number},
                    {{}, ColumnType::Date},
                    {{}, ColumnType::Binary}});
    block.append("云山花园");
    block.appendInteger(-12);
    block.appendNumber(128.5);
    block.appendDate("2026-09-08 14:05:09");
    block.append(std::string_view("\0\xff", 2));
    for (int cell = 0; cell < 5; ++cell)
        block.appendNull();
    for (const char *foreign : {"", "5000000000", "无", "不详", ""}) // is shown, not lost
        block.append(foreign);
    block.finish();
    ASSERT_EQ(block.rowCount(), 3);
    EXPECT_EQ(block.cell(0, 3), "2026-9-8 14:05:09");
    const QVariant values[][5] = {
        {u"云山花园"_qs, -12, 128.5, QDateTime(QDate(2026, 9, 8), QTime(14, 5, 9)), QByteArray("\0\xff", 2)},
        {{}, {}, {}, {}, {}},
        {u""_qs, 5'000'000'000LL, u"无"_qs, u"不详"_qs, QByteArray("")}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 5; ++column) {
            EXPECT_EQ(block.value(row, column), values[row][column]) << row << ' ' << column;
            EXPECT_EQ(block.isNull(row, column), row == 1) << "an empty text is no Null";
        }
    }
    EXPECT_EQ(cellText("\xEF\xBB\xBF\xEF\xBB\xBF中"), u"\xFEFF\xFEFF中"_qs);
}

} // namespace ebtq
