#include "library/controls/flex_grid.h"
#include "library/support/grids.h"

#include <gtest/gtest.h>

#include <random>

using namespace ebtq;
using ebtq::test::blockOf;

namespace {

/// All texts of up to that many letters.
QStringList textsOver(const QString &letters, int length)
{
    QStringList texts{QString()};
    for (qsizetype at = 0; at < texts.size() && texts[at].size() < length; ++at)
        for (const QChar letter : letters)
            texts.append(texts[at] + letter);
    return texts;
}

/// The current column, then the searched ones, "%" between their cells. Column 2 is not searched.
TEST(GridSearchTest, EveryShortTextIsFoundWhereTheRowsTextHoldsIt)
{
    // The Kelvin sign is a k whose UTF-8 is longer; р, Р and Ѡ share their bytes.
    const std::pair<QString, Qt::CaseSensitivity> alphabets[] = {{u"ab%"_qs, Qt::CaseSensitive},
                                                                 {u"kK%\u212A"_qs, Qt::CaseSensitive},
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

TEST(GridSearchTest, EmptyGridsAndBlocksAreSearched)
{
    VSFlexGrid grid(u"VS"_qs);
    grid.hideRowsWithout(u"x"_qs, {0, 5});
    EXPECT_EQ(grid.findRow(u"x"_qs, {0}, 0), -1);
    grid.setCols(2);
    grid.LoadArray(RowBlock());
    grid.setRows(3);
    EXPECT_EQ(grid.findRow(u"x"_qs, {0, 1}, 1), -1);
    grid.LoadArray(blockOf(1, {{QString()}, {QString()}, {u"x"_qs}}), 1);
    EXPECT_EQ(grid.findRow(u"x"_qs, {0, 1}, -7), 3);
    grid.setCol(0);
    EXPECT_EQ(grid.findRow(u"x"_qs, {0}, 1), -1) << "left of the block's first column";
    EXPECT_EQ(grid.findRow(u"%"_qs, {}, 1), -1) << "needs a second column";
}

} // namespace
