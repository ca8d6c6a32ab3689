#include "contracts/host_contracts.h"
#include "screens/look/look.h"
#include "screens/support/screen.h"
#include "shell/print/page_view.h"
#include "shell/print/preview_dialog.h"
#include "shell/print/print_desk.h"
#include "shell/print/print_engine.h"
#include "shell/print/print_run.h"
#include "shell/print/setup_dialog.h"

#include <QComboBox>
#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>

namespace ebtq::shell {
namespace {

/// Without blanks, and with one letter for each shape: a reader of PDF files gets shapes, and some of them
/// stand for a radical that looks like the letter.
QString plain(QString text)
{
    return text.replace(u'⻚', u'页').remove(u' ').normalized(QString::NormalizationForm_KC);
}

class TextGrid : public PrintedGrid
{
public:
    [[nodiscard]] const std::vector<Column> &columns() const override { return shown; }
    [[nodiscard]] int rowCount() const override { return static_cast<int>(rows.size()); }
    [[nodiscard]] QString text(int row, int column) const override { return rows[row].value(column); }
    [[nodiscard]] QString picture(int row, int column) const override
    {
        return row == 0 && column == 0 ? u"mail-attachment"_qs : QString();
    }
    [[nodiscard]] CellLook look(int row, int) const override
    {
        return row == subtotal ? CellLook{0x80FFFF, 0x0000FF, true} : CellLook{};
    }

    [[nodiscard]] bool isSumLabel(int row, int column) const override
    {
        return row == subtotal && !text(row, column).isEmpty() &&
               columns()[static_cast<size_t>(column)].alignment != Alignment::Right;
    }
    void addColumn(const QString &caption, int width, Alignment alignment = Alignment::Left)
    {
        shown.push_back({caption, width, true, alignment, Alignment::Centre});
    }
    std::vector<Column> shown;
    std::vector<QStringList> rows;
    int subtotal = -1;
};

/// Answers what was scripted and writes down what it was asked.
class ScriptedDesk : public PrintDesk
{
public:
    [[nodiscard]] bool hasPrinter() const override { return withPrinter; }
    bool choosePrinter(QPrinter &printer) override
    {
        asked.append(u"printer ×%1"_qs.arg(printer.copyCount()));
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdf);
        if (page > 0) {
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(page, page);
        }
        return !pdf.isEmpty();
    }
    QString choosePdfFile(const QString &proposedPath) override
    {
        asked.append(u"pdf "_qs + proposedPath.section(u'/', -1));
        return pdf;
    }
    bool editSettings(PrintSettings &settings) override
    {
        asked.append(u"setup"_qs);
        if (edit)
            edit(settings);
        return static_cast<bool>(edit);
    }
    void preview(PrintRun &run) override { asked.append(u"preview %1"_qs.arg(run.printout()->pageCount())); }
    bool goOn(const QString &, int done, int total) override
    {
        isCounting = done != total;
        return !isCounting || done < stopAt;
    }
    [[nodiscard]] QDate today() const override { return {2026, 11, 22}; }

    bool withPrinter = false;
    int page = 0; ///< the only one that the person wants printed
    QString pdf;
    std::function<void(PrintSettings &)> edit;
    int stopAt = INT_MAX;
    bool isCounting = false;
    QStringList asked;
};

class PrintEngineTest : public testing::Test
{
protected:
    PrintEngineTest()
    {
        grid.addColumn(u"编号"_qs, 90);
        grid.addColumn(u"楼盘"_qs, 200);
        grid.addColumn(u"面积"_qs, 80, PrintedGrid::Alignment::Right);
        addRows(60);
        desk.pdf = folder.filePath(u"list.pdf"_qs);
    }
    ~PrintEngineTest() override { EXPECT_FALSE(desk.isCounting) << "the progress was left open"; }
    void addRows(int count)
    {
        for (int row = 0; row < count; ++row)
            grid.rows.push_back({u"FY%1"_qs.arg(row), u"翠堤雅居"_qs, QString::number(row)});
    }
    [[nodiscard]] PrintObject::Job job() const
    {
        return {file, u"房源信息列表\r"_qs, u"城区：天河区     楼盘：\t房型：3\r"_qs, grid};
    }
    /// The text of each page, as another program reads it out of the PDF file.
    [[nodiscard]] QStringList pagesOfPdf() const
    {
        QProcess reader;
        reader.start(QStringLiteral(PDFTOTEXT), {u"-layout"_qs, desk.pdf, u"-"_qs});
        EXPECT_TRUE(reader.waitForFinished());
        QStringList pages = plain(QString::fromUtf8(reader.readAllStandardOutput())).split(u'\f');
        pages.removeLast();
        return pages;
    }
    [[nodiscard]] QImage pictureOf(int page)
    {
        PrintRun run(job(), desk);
        EXPECT_TRUE(run.layOut());
        const QSizeF paper = run.printout()->paperSize();
        QImage image(paper.toSize() / 12, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(1 / 12.0, 1 / 12.0);
        run.printout()->paint(painter, page);
        return image;
    }

    QTemporaryDir folder;
    QString file = folder.filePath(u"Rpt101.prn"_qs);
    TextGrid grid;
    ScriptedDesk desk;
    PrintEngine engine{desk};
};

TEST_F(PrintEngineTest, EveryPageTellsWhatItIs)
{
    EXPECT_EQ(engine.PrintOut(job(), true), QString());
    EXPECT_EQ(desk.asked, QStringList{u"pdf 房源信息列表.pdf"_qs}) << "there is no printer";
    const QStringList pages = pagesOfPdf();
    ASSERT_GT(pages.size(), 1);
    for (qsizetype page = 0; page < pages.size(); ++page) {
        for (const QString &part :
             {u"房源信息列表"_qs, u"城区：天河区"_qs, u"房型：3"_qs, u"编号"_qs, u"打印日期：2026-11-22"_qs,
              u"第 %1 页 共 %2 页"_qs.arg(page + 1).arg(pages.size())})
            EXPECT_TRUE(pages[page].contains(plain(part))) << part.toStdString();
    }
    for (int row = 0; row < 60; ++row)
        EXPECT_EQ(pages.join(u' ').count(u"FY%1翠"_qs.arg(row)), 1) << row;
    EXPECT_TRUE(pages.last().contains(u"FY59翠"_qs));
}

TEST_F(PrintEngineTest, WideListsGoOnSideBySideAndLongCellsWrap)
{
    for (int column = 0; column < 20; ++column)
        grid.addColumn(u"栏%1"_qs.arg(column), 300);
    grid.rows.resize(3);
    grid.rows[1][1] = u"宽大的内容"_qs.repeated(1000);
    engine.PrintOut(job(), true);
    const QStringList pages = pagesOfPdf();
    EXPECT_GT(pages.size(), 3);
    EXPECT_TRUE(pages[0].contains(u"FY2"_qs) && !pages[1].contains(u"FY2"_qs));
    EXPECT_TRUE(pages.last().contains(u"栏19"_qs));
    EXPECT_TRUE(pages[0].contains(u"..."_qs)) << "a cell never fills a page";
    EXPECT_GT(pages[0].count(u"宽大"_qs), 5);
}

TEST_F(PrintEngineTest, CaptionsAndSumsAreReadWhole)
{
    grid.addColumn(u"求购价格按万元计算"_qs, 40);
    grid.addColumn(u"总"_qs, 20);
    grid.shown.back().isWidthSet = false;
    addRows(240);
    grid.subtotal = static_cast<int>(grid.rows.size()) - 1;
    grid.rows.back() = {u"天河区翠堤雅居各房源的小计"_qs, {}, u"7"_qs, {}, u"1234567890.12"_qs};
    engine.PrintOut(job(), true);
    for (const QString &page : pagesOfPdf())
        EXPECT_TRUE(page.contains(u'算')) << "the end of the caption";
    for (const QString &part : {u"1234567890.12"_qs, u"天河区翠堤雅居各房源的小计7"_qs})
        EXPECT_TRUE(pagesOfPdf().last().contains(part)) << part.toStdString();
}

TEST_F(PrintEngineTest, SubtotalsKeepTheirColoursOnWhitePaper)
{
    grid.subtotal = 1;
    look::apply(*qApp, look::Scheme::Dark);
    const QImage page = pictureOf(0);
    look::apply(*qApp, look::Scheme::Light);
    int coloured = 0;
    int dark = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            coloured += page.pixelColor(x, y) == QColor(0xFF, 0xFF, 0x80);
            dark += page.pixelColor(x, y).lightness() < 100;
        }
    }
    EXPECT_EQ(page.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_GT(coloured, page.width() * 10) << "one row across the page";
    EXPECT_LT(dark, page.width() * page.height() / 10);
}

TEST_F(PrintEngineTest, SetUpIsKeptInThePrintFileAndUsed)
{
    EXPECT_EQ(engine.SetUp(job()), QString());
    EXPECT_FALSE(QFile::exists(file)) << "the person left the dialog";
    desk.edit = [](PrintSettings &settings) {
        settings.paper = QPageSize::A5;
        settings.isLandscape = false;
        settings.copies = 2;
    };
    EXPECT_EQ(engine.SetUp(job()), QString());
    EXPECT_EQ(readPrintSettings(file).paper, QPageSize::A5);
    desk.withPrinter = true;
    EXPECT_EQ(engine.PrintOut(job(), true), QString());
    EXPECT_EQ(desk.asked.last(), u"printer ×2"_qs);
    const qsizetype pages = pagesOfPdf().size();
    EXPECT_GT(pages, 1);
    for (const int wanted : {2, 99}) {
        desk.page = wanted;
        EXPECT_EQ(engine.PrintOut(job(), true), QString());
        const QString foot = u"第%1页共%2页"_qs.arg(std::min<qsizetype>(wanted, pages)).arg(pages);
        EXPECT_TRUE(pagesOfPdf().size() == 1 && pagesOfPdf().constFirst().contains(foot)) << wanted;
    }
    const PrintObject::Job nowhere{folder.filePath(u"none/Rpt.prn"_qs), {}, {}, grid};
    EXPECT_TRUE(engine.SetUp(nowhere).startsWith(u"无法保存页面设置"_qs));
}

TEST_F(PrintEngineTest, StoppedAndFailedRunsLeaveNoFile)
{
    grid.rows.clear();
    addRows(2000);
    for (const int stopAt : {0, 3, 300}) {
        desk.stopAt = stopAt;
        EXPECT_EQ(engine.PrintOut(job(), true), QString());
        EXPECT_FALSE(QFile::exists(desk.pdf)) << stopAt;
    }
    desk.stopAt = INT_MAX;
    desk.pdf = folder.filePath(u"none/list.pdf"_qs);
    EXPECT_TRUE(engine.PrintOut(job(), true).startsWith(u"无法写入文件"_qs));
    desk.pdf.clear();
    EXPECT_EQ(engine.PrintOut(job(), true), QString()) << "leaving the dialog is no failure";
    grid.rows.clear();
    grid.shown.clear();
    EXPECT_EQ(engine.PrintOut(job(), false), QString());
    EXPECT_EQ(desk.asked.last(), u"preview 1"_qs);
}

TEST_F(PrintEngineTest, PreviewShowsEachPageAndItsSetUp)
{
    PrintRun run(job(), desk);
    ASSERT_TRUE(run.layOut());
    desk.edit = [](PrintSettings &settings) { settings.paper = QPageSize::A5; };
    const int before = run.printout()->pageCount();
    const test::WhenModal answer([&](QWidget &window) {
        auto &pages = *window.findChild<PageView *>();
        auto &page = *window.findChild<QSpinBox *>(u"Page"_qs);
        EXPECT_EQ(page.maximum(), before);
        page.setValue(before);
        EXPECT_EQ(pages.currentPage(), before - 1);
        const double fitting = pages.zoom();
        QTest::mouseClick(window.findChild<QPushButton *>(u"ZoomIn"_qs), Qt::LeftButton);
        EXPECT_GT(pages.zoom(), fitting);
        EXPECT_EQ(pages.currentPage(), before - 1);
        QTest::mouseClick(window.findChild<QPushButton *>(u"PageSetup"_qs), Qt::LeftButton);
        EXPECT_GT(page.maximum(), before) << "smaller paper, more pages";
        window.grab();
        desk.pdf = u"/dev/null/x.pdf"_qs;
        QTest::mouseClick(window.findChild<QPushButton *>(u"SavePdf"_qs), Qt::LeftButton);
    });
    EXPECT_THROW(PreviewDialog(run, nullptr).run(), Failure);
}

TEST(SetupDialogTest, GivesBackWhatItShowsAndWhatIsChosen)
{
    const PrintSettings given{QPageSize::JisB5, false, {1, 2, 3.5, 60}, false, 20, 7};
    SetupDialog dialog(given, nullptr);
    EXPECT_EQ(dialog.settings(), given);
    dialog.findChild<QComboBox *>(u"Orientation"_qs)->setCurrentIndex(1);
    dialog.findChild<QDoubleSpinBox *>(u"MarginRight"_qs)->setValue(999);
    EXPECT_TRUE(dialog.settings().isLandscape);
    EXPECT_EQ(dialog.settings().margins.right(), widestMargin);
}

} // namespace
} // namespace ebtq::shell
