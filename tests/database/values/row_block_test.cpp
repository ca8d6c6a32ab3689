#include "database/values/row_block.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace ebtq {

namespace {

RowBlock sample()
{
    RowBlock block({{u"名称"_qs, ColumnType::Text},
                    {u"楼层"_qs, ColumnType::Integer},
                    {u"面积"_qs, ColumnType::Number},
                    {u"日期"_qs, ColumnType::Date},
                    {u"内容"_qs, ColumnType::Binary}});
    block.append("云山花园");
    block.appendInteger(-12);
    block.appendNumber(128.5);
    block.appendDate("2026-09-08 14:05:09");
    block.append(std::string_view("\0\xff", 2));
    for (int cell = 0; cell < 5; ++cell)
        block.appendNull();
    block.append("");
    block.appendInteger(5'000'000'000);
    block.append("无");
    block.append("不详");
    block.append("");
    block.finish();
    return block;
}

} // namespace

TEST(RowBlock, KeepsCellsNullsAndTypes)
{
    const RowBlock block = sample();
    ASSERT_EQ(block.rowCount(), 3);
    EXPECT_EQ(block.cell(0, 0), "云山花园");
    EXPECT_EQ(block.cell(0, 1), "-12");
    EXPECT_EQ(block.cell(0, 2), "128.5");
    EXPECT_EQ(block.cell(0, 3), "2026-9-8 14:05:09");
    EXPECT_EQ(block.value(0, 0), QVariant(u"云山花园"_qs));
    EXPECT_EQ(block.value(0, 1), QVariant(-12));
    EXPECT_EQ(block.value(0, 2), QVariant(128.5));
    EXPECT_EQ(block.value(0, 3), QVariant(QDateTime(QDate(2026, 9, 8), QTime(14, 5, 9))));
    EXPECT_EQ(block.value(0, 4), QVariant(QByteArray("\0\xff", 2)));
    for (int column = 0; column < 5; ++column) {
        EXPECT_TRUE(block.isNull(1, column));
        EXPECT_FALSE(block.value(1, column).isValid());
        EXPECT_TRUE(block.cell(1, column).empty());
        EXPECT_FALSE(block.isNull(2, column)) << "an empty text is no Null";
    }
    EXPECT_EQ(block.value(2, 1), QVariant(5'000'000'000LL));
    EXPECT_EQ(block.value(2, 2), QVariant(u"无"_qs)) << "a foreign value is shown, not lost";
    EXPECT_EQ(block.value(2, 3), QVariant(u"不详"_qs));
    EXPECT_EQ(cellText("\xEF\xBB\xBF\xEF\xBB\xBF中"), u"\xFEFF\xFEFF中"_qs);
}

} // namespace ebtq
