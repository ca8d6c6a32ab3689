#include "shell/print/print_run.h"

#include "contracts/host_contracts.h"
#include "shell/print/print_desk.h"

#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <QScopeGuard>
#include <QStandardPaths>

namespace ebtq::shell {

namespace {

/// A title without the characters that file names forbid.
QString fileNameOf(QString title)
{
    for (QChar &c : title) {
        if (QStringView(u"/\\:*?\"<>|").contains(c) || !c.isPrint())
            c = u'_';
    }
    return title;
}

} // namespace

/// Pages of a list, from 0.
struct PrintRun::Pages
{
    int first;
    int end;
};

PrintRun::Pages PrintRun::pagesOf(const QPrinter &printer, int count)
{
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() <= 0)
        return {0, count};
    return {std::min(printer.fromPage(), count) - 1, std::clamp(printer.toPage(), 1, count)};
}

PrintRun::PrintRun(PrintObject::Job job, PrintDesk &desk)
    : m_job(std::move(job))
    , m_desk(desk)
    , m_settings(readPrintSettings(m_job.file))
{}

QString PrintRun::title() const
{
    return m_job.title.section(u'\r', 0, 0);
}

bool PrintRun::layOut()
{
    if (auto made = laidOutOn(paperLayout(m_settings)))
        m_printout = std::move(made);
    else
        return false;
    return true;
}

std::shared_ptr<const Printout> PrintRun::laidOutOn(const QPageLayout &paper)
{
    const QString what = QStringLiteral("正在排版…");
    const auto end = qScopeGuard([&] { m_desk.goOn(what, 0, 0); });
    auto made = std::make_shared<Printout>(m_job, paper, m_settings, m_desk.today());
    const auto goOn = [&](int done, int total) { return m_desk.goOn(what, done, total); };
    return made->layOut(goOn) ? made : nullptr;
}

void PrintRun::print()
{
    if (!m_desk.hasPrinter())
        return savePdf();
    QPrinter printer(QPrinter::HighResolution);
    printer.setFullPage(true);
    printer.setPageLayout(paperLayout(m_settings));
    printer.setCopyCount(m_settings.copies);
    printer.setDocName(title());
    if (!m_desk.choosePrinter(printer))
        return;
    // The paper may differ from the settings: the printer's counts.
    const QPageLayout &chosen = printer.pageLayout();
    const auto printout = laidOutOn({chosen.pageSize(), chosen.orientation(), QMarginsF()});
    if (!printout)
        return;
    const Pages pages = pagesOf(printer, printout->pageCount());
    if (printer.outputFormat() == QPrinter::PdfFormat)
        writePdf(*printout, printer.outputFileName(), pages);
    else if (!paintPages(*printout, printer, pages, printer.printerName()))
        printer.abort();
}

void PrintRun::savePdf()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString path =
        m_desk.choosePdfFile(QDir(folder).filePath(fileNameOf(title()) + QStringLiteral(".pdf")));
    if (!path.isEmpty() && (m_printout || layOut()))
        writePdf(*m_printout, path, {0, m_printout->pageCount()});
}

void PrintRun::writePdf(const Printout &printout, const QString &path, const Pages &pages)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw Failure(QStringLiteral("无法写入文件“%1”：%2").arg(path, file.errorString()));
    {
        QPdfWriter writer(&file);
        writer.setResolution(Printout::dotsPerInch);
        writer.setPageLayout(printout.paper());
        writer.setTitle(title());
        if (!paintPages(printout, writer, pages, path))
            return;
    }
    if (!file.commit())
        throw Failure(QStringLiteral("无法写入文件“%1”，请检查磁盘空间：%2").arg(path, file.errorString()));
}

bool PrintRun::paintPages(const Printout &printout, QPagedPaintDevice &device, const Pages &pages,
                          const QString &name)
{
    const QString what = QStringLiteral("正在输出…");
    const auto end = qScopeGuard([&] { m_desk.goOn(what, 0, 0); });
    QPainter painter;
    if (!painter.begin(&device))
        throw Failure(QStringLiteral("无法输出到“%1”，请检查打印机是否可用！").arg(name));
    const double scale = static_cast<double>(device.logicalDpiX()) / Printout::dotsPerInch;
    painter.scale(scale, scale);
    for (int page = pages.first; page < pages.end; ++page) {
        if (!m_desk.goOn(what, page - pages.first, pages.end - pages.first))
            return false;
        if (page > pages.first && !device.newPage())
            throw Failure(QStringLiteral("输出到“%1”时第 %2 页失败！").arg(name).arg(page + 1));
        printout.paint(painter, page);
    }
    return painter.end();
}

bool PrintRun::setUp()
{
    PrintSettings changed = m_settings;
    if (!m_desk.editSettings(changed) || changed == m_settings)
        return false;
    writePrintSettings(m_job.file, changed);
    m_settings = changed;
    return m_printout ? layOut() : true;
}

} // namespace ebtq::shell
