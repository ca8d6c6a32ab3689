#include "contracts/host_contracts.h"
#include "library/controls/flex_grid.h"
#include "library/controls/shown_grid.h"
#include "screens/export/table_text.h"
#include "screens/export/workbook.h"
#include "support/full_disk.h"
#include "support/messages.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace ebtq;

namespace {

/// Columns of each kind in another order than loaded, one hidden with the key, one for icons, one without a
/// width.
class ExportTest : public testing::Test
{
protected:
    ExportTest()
    {
        grid.setFormatString(u" |编号|面积|委托日|备注|键|空"_qs);
        grid.setColHidden(5, true);
        grid.setColWidth(6, 0);
    }
    void load(std::initializer_list<std::array<std::string, 4>> rows)
    {
        std::vector<Column> columns(7);
        columns[2].type = ColumnType::Number;
        columns[3].type = ColumnType::Date;
        RowBlock block(columns);
        for (const auto &row : rows) {
            block.append("");
            for (const std::string &cell : row)
                block.append(cell);
            block.append("KEY");
            block.append("无");
        }
        block.finish();
        grid.LoadArray(std::move(block));
    }
    [[nodiscard]] ShownGrid shown() const
    {
        ShownGrid table(grid);
        table.keepCaptioned();
        return table;
    }
    [[nodiscard]] QByteArray csv() const
    {
        EXPECT_TRUE(writeCsv(shown(), path(u"list.csv"_qs)));
        QFile file(path(u"list.csv"_qs));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return file.readAll();
    }
    /// The sheet's cells, row by row, each as "type:value".
    [[nodiscard]] QString sheet() const;
    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }
    [[nodiscard]] QString failureOf(bool (*write)(const ShownGrid &, const QString &, const ExportProgress &),
                                    const QString &file) const
    {
        return QString::fromStdString(test::messageOf([&] { write(shown(), file, {}); }));
    }

    VSFlexGrid grid{u"VS"_qs};
    QTemporaryDir folder;
};

QString ExportTest::sheet() const
{
    EXPECT_TRUE(writeWorkbook(shown(), path(u"list.xlsx"_qs)));
    QProcess unpack;
    unpack.setWorkingDirectory(folder.path());
    unpack.start(QStringLiteral(CMAKE_PROGRAM), {u"-E"_qs, u"tar"_qs, u"xf"_qs, path(u"list.xlsx"_qs)});
    EXPECT_TRUE(unpack.waitForFinished());
    QFile file(path(u"xl/worksheets/sheet1.xml"_qs));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    QXmlStreamReader xml(&file);
    QStringList cells;
    QString type;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"c")
            type = xml.attributes().value(u"t"_qs).toString();
        else if (xml.isStartElement() && (xml.name() == u"t" || xml.name() == u"v"))
            cells.append((type == u"inlineStr" ? u"text:"_qs : u"number:"_qs) + xml.readElementText());
        else if (xml.isStartElement() && (xml.name() == u"pane" || xml.name() == u"autoFilter"))
            cells.append(xml.name().toString());
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return cells.join(u'|');
}

TEST(CsvCellTest, IsQuotedAndNeverAFormula)
{
    const std::string plain[] = {"", "翠堤雅居", " =1", "-12.5", "+3", "-1E+15", "-5%", "-.5"};
    const std::string formulas[] = {"=1+1", "+86 139", "-外环", "@SUM(1)", "\t=1", "＝1",
                                    "＠x",  "-",       "-1-1",  "-1E",     "+",    "-1%%"};
    const std::pair<std::string, std::string> quoted[] = {
        {"a,b", "\"a,b\""},       {"说\"好\"", "\"说\"\"好\"\"\""}, {"一\n二", "\"一\n二\""},
        {"一\r二", "\"一\r二\""}, {"=A1,B1", "\"'=A1,B1\""},        {"\r=1", "\"'\r=1\""},
        {"\n=1", "\"'\n=1\""},    {"-1,234.50", "\"-1,234.50\""},   {"-,", "\"'-,\""},
    };
    const auto cellOf = [](const std::string &text) {
        std::string cell;
        appendCsvCell(text, cell);
        return cell;
    };
    for (const std::string &text : plain)
        EXPECT_EQ(cellOf(text), text);
    for (const std::string &text : formulas)
        EXPECT_EQ(cellOf(text), "'" + text);
    for (const auto &[text, cell] : quoted)
        EXPECT_EQ(cellOf(text), cell);
}

TEST_F(ExportTest, FilesHoldWhatIsSeenAndNothingElse)
{
    load({{"A1", "88.5", "2026-9-8", "好"},
          {"A2", "1", "", "隐"},
          {"00123", "-3", "2026-9-8 12:00:00", "=1+1"}});
    grid.setRowHidden(2, true);
    EXPECT_EQ(csv(), QByteArray("\xEF\xBB\xBF编号,面积,委托日,备注\r\n"
                                "A1,88.5,2026-9-8,好\r\n00123,-3,2026-9-8 12:00:00,'=1+1\r\n"));
    EXPECT_EQ(sheet(),
              u"pane|text:编号|text:面积|text:委托日|text:备注|text:A1|number:88.5|number:46273|text:好|"
              "text:00123|number:-3|number:46273.5|text:=1+1|autoFilter"_qs);
    EXPECT_EQ(tabbedText(shown(), Formulas::AsShown),
              u"编号\t面积\t委托日\t备注\r\nA1\t88.5\t2026-9-8\t好\r\n"
              u"00123\t-3\t2026-9-8 12:00:00\t=1+1\r\n"_qs);
    EXPECT_TRUE(
        tabbedText(shown(), Formulas::Guarded).endsWith(u"00123\t-3\t2026-9-8 12:00:00\t'=1+1\r\n"_qs));
    const QString html = htmlTable(shown());
    EXPECT_TRUE(html.contains(u"<td>88.5</td>"_qs));
    EXPECT_TRUE(html.contains(u"<td style=\"mso-number-format:'\\@'\">00123</td>"_qs));
    EXPECT_FALSE(html.contains(u"KEY"_qs) || html.contains(u"隐"_qs));
}

TEST_F(ExportTest, SubtotalsAndFormatsGoOutAsTheyAreSeen)
{
    load({{"A1", "1088.5", "", "10万元"}, {"A2", "1", "", "5.5万元"}});
    grid.setColFormat(2, u"#,##0.00"_qs);
    const Subtotal total{.totalColumn = 2, .backColor = 0xFFFF80, .foreColor = 0x80, .caption = u"合计"_qs};
    Subtotal ofTexts = total;
    ofTexts.totalColumn = 4;
    const Subtotal totals[] = {total, ofTexts};
    grid.addSubtotals(totals);
    EXPECT_EQ(csv(),
              QByteArray("\xEF\xBB\xBF编号,面积,委托日,备注\r\n"
                         "A1,\"1,088.50\",,10万元\r\nA2,1.00,,5.5万元\r\n合计,\"1,089.50\",,15.5\r\n"));
    grid.clearSubtotals();
    grid.setFixedCols(0);
    grid.addSubtotals(totals);
    EXPECT_EQ(csv(),
              QByteArray("\xEF\xBB\xBF,编号,面积,委托日,备注\r\n"
                         ",A1,\"1,088.50\",,10万元\r\n,A2,1.00,,5.5万元\r\n合计,,\"1,089.50\",,15.5\r\n"))
        << "the label stands among the icons";
    EXPECT_TRUE(sheet().contains(u"text:5.5万元|text:合计|number:1089.5|number:15.5"_qs));
    QFile styles(path(u"xl/styles.xml"_qs));
    ASSERT_TRUE(styles.open(QFile::ReadOnly));
    const QByteArray text = styles.readAll();
    EXPECT_TRUE(text.contains("FF80FFFF") && text.contains("FF800000")) << "red stands first there";
}

TEST_F(ExportTest, OddCellsSurvive)
{
    load({{"12345678901234567", "1234567890123456", "1899-12-30", "<b>&\"tab\there\""},
          {"\xFF", "约90", "昨天", "\x01\xEF\xBF\xBF"},
          {std::string("a\0b", 3), "inf", "", "一\r\n二\n三"}});
    const QString cells = sheet();
    for (const QString &text :
         {u"1234567890123456"_qs, u"1899-12-30"_qs, u"<b>&\"tab\there\""_qs, u"约90"_qs, u"昨天"_qs})
        EXPECT_TRUE(cells.contains(u"text:"_qs + text))
            << "a spreadsheet would change " << text.toStdString();
    EXPECT_TRUE(cells.contains(u"text:a\uFFFDb|text:inf"_qs)) << "no sheet has such a number";
    EXPECT_TRUE(tabbedText(shown(), Formulas::AsShown).contains(u"\t\"<b>&\"\"tab\there\"\"\"\r\n"_qs));
    const QString html = htmlTable(shown());
    EXPECT_TRUE(html.contains(u"&lt;b&gt;&amp;"_qs));
    EXPECT_EQ(html.count(u"<br style=\"mso-data-placement:same-cell\"/>"_qs), 2);
    EXPECT_TRUE(csv().contains("\"<b>&\"\"tab\there\"\"\""));
    load({});
    EXPECT_EQ(csv(), QByteArray("\xEF\xBB\xBF编号,面积,委托日,备注\r\n"));
    EXPECT_EQ(sheet(), u"pane|text:编号|text:面积|text:委托日|text:备注|autoFilter"_qs);
}

TEST_F(ExportTest, AFailureLeavesTheOldFileAndNothingBesideIt)
{
    load({{"A1", "88.5", "2026-9-8", std::string(30'000, 'x')}});
    for (const auto write : {&writeCsv, &writeWorkbook}) {
        const QString target = path(u"old"_qs);
        QFile old(target);
        ASSERT_TRUE(old.open(QFile::WriteOnly));
        old.write("old");
        old.close();
        for (const QString &place : {target, path(u"missing/new"_qs), folder.path()}) {
            const test::FullDisk full(100);
            EXPECT_TRUE(failureOf(write, place).startsWith(u"无法写入文件“%1”"_qs.arg(place)));
        }
        const ExportProgress stopped = [](int) { return false; };
        EXPECT_FALSE(write(shown(), target, stopped));
        ASSERT_TRUE(old.open(QFile::ReadOnly));
        EXPECT_EQ(old.readAll(), QByteArray("old"));
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"old"_qs});
        const QString link = folder.path() + u".link"_qs;
        ASSERT_TRUE(QFile::link(target, link));
        EXPECT_TRUE(write(shown(), link, {}));
        EXPECT_TRUE(QFileInfo(link).isSymLink() && QFileInfo(target).size() > 3)
            << "written through the link";
        QFile::remove(link);
    }
    load({{"A1", "88.5", "", std::string(40'000, 'x')}});
    EXPECT_TRUE(failureOf(&writeWorkbook, path(u"long"_qs)).contains(u"“备注”"_qs));
}

} // namespace
