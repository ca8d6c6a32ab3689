#include "shell/print/page_fitting.h"
#include "shell/print/print_settings.h"

#include "contracts/host_contracts.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ebtq::shell {
namespace {

/// Bands as "0:0+100 1:100+50 | 2:0+80", each column with its left edge and width.
std::string textOf(const FittedColumns &fitted)
{
    std::string text = std::to_string(static_cast<int>(fitted.scale * 100)) + "%";
    for (const FittedColumns::Band &band : fitted.bands) {
        text += " |";
        for (const FittedColumns::Column &column : band)
            text += " " + std::to_string(column.number) + ":" +
                    std::to_string(static_cast<int>(column.left + 0.5)) + "+" +
                    std::to_string(static_cast<int>(column.width + 0.5));
    }
    return text;
}

TEST(FitColumnsTest, KeepsProportionsAsLongAsTheyCanBeRead)
{
    const std::tuple<const char *, std::vector<ColumnNeed>, double, const char *> cases[] = {
        {"none", {}, 0.6, "100% |"},
        {"too narrow: stretched", {{100, 50}, {300, 50}}, 0.6, "100% | 0:0+200 1:200+600"},
        {"exact", {{800, 800}}, 0.6, "100% | 0:0+800"},
        {"spare room given up in proportion", {{600, 200}, {600, 400}}, 0.6, "100% | 0:0+333 1:333+467"},
        {"smaller together", {{500, 500}, {500, 500}}, 0.6, "80% | 0:0+400 1:400+400"},
        {"side by side",
         {{500, 500}, {300, 300}, {400, 400}, {700, 700}},
         0.6,
         "100% | 0:0+500 1:500+300 | 2:0+400 | 3:0+700"},
        {"never smaller", {{500, 500}, {500, 500}}, 1, "100% | 0:0+500 | 1:0+500"},
        {"wider than the page", {{5000, 5000}, {10, 10}}, 0.6, "100% | 0:0+800 | 1:0+10"},
        {"without a width", {{0, 0}}, 0.6, "100% | 0:0+0"},
    };
    for (const auto &[name, needs, smallestScale, fitted] : cases)
        EXPECT_EQ(textOf(fitColumns(needs, 800, smallestScale)), fitted) << name;
}

TEST(BreakPagesTest, RowsStandWhereTheyFit)
{
    const std::vector<double> heights{40, 40, 40, 200, 10, 10};
    const auto height = [&](int row) { return heights[static_cast<size_t>(row)]; };
    const auto goOn = [](int) { return true; };
    EXPECT_EQ(breakPages(6, 100, height, goOn), (std::vector{0, 2, 3, 4}));
    EXPECT_EQ(breakPages(3, 120, height, goOn), (std::vector{0})) << "exactly full";
    EXPECT_EQ(breakPages(3, -5, height, goOn), (std::vector{0, 1, 2})) << "no room at all";
    EXPECT_EQ(breakPages(0, 100, height, goOn), (std::vector{0}));
    EXPECT_TRUE(breakPages(3, 100, height, [](int) { return false; }).empty());
}

class PrintSettingsTest : public testing::Test
{
protected:
    PrintSettings readFrom(const QByteArray &text)
    {
        QFile stored(file);
        EXPECT_TRUE(stored.open(QFile::WriteOnly));
        stored.write(text);
        stored.close();
        return readPrintSettings(file);
    }
    QTemporaryDir folder;
    QString file = folder.filePath(u"Rpt101.prn"_qs);
};

TEST_F(PrintSettingsTest, ComeBackAsTheyWereWritten)
{
    PrintSettings settings;
    for (const Paper &paper : papers()) {
        settings = {paper.id, !settings.isLandscape, {0, 12.5, 60, 1}, !settings.fitsWidth, 20.5, 99};
        writePrintSettings(file, settings);
        EXPECT_EQ(readPrintSettings(file), settings);
    }
    EXPECT_THROW(writePrintSettings(folder.filePath(u"none/x.prn"_qs), settings), Failure);
}

TEST_F(PrintSettingsTest, DamagedFilesKeepWhatCanBeRead)
{
    const PrintSettings usual;
    EXPECT_EQ(readPrintSettings(file), usual) << "missing";
    EXPECT_EQ(readFrom(QByteArray(1 << 20, '\xFF')), usual);
    EXPECT_EQ(readFrom("Paper=Wall\nLandscape=2\nMarginLeft=-1\nMarginTop=61\nMarginRight=nan\nFitWidth=\n"
                       "TitleSize=1e9\nCopies=0\n=\nPaper\n[x]\n"),
              usual);
    PrintSettings some = usual;
    some.copies = 3;
    some.paper = QPageSize::A5;
    EXPECT_EQ(readFrom("Copies = 3 \r\nUnknown=1\nMarginLeft=x\nPaper=A5"), some);
}

} // namespace
} // namespace ebtq::shell
