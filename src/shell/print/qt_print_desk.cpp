#include "shell/print/qt_print_desk.h"

#include "screens/look/file_choice.h"
#include "screens/look/window_below.h"
#include "shell/print/preview_dialog.h"
#include "shell/print/setup_dialog.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrinterInfo>

namespace ebtq::shell {

namespace {

constexpr int patience = 200; // milliseconds without a sign

} // namespace

bool QtPrintDesk::hasPrinter() const
{
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool QtPrintDesk::choosePrinter(QPrinter &printer)
{
    QPrintDialog dialog(&printer, look::windowBelow());
    dialog.setWindowTitle(QStringLiteral("打印"));
    return look::runModal(dialog) == QDialog::Accepted;
}

QString QtPrintDesk::choosePdfFile(const QString &proposedPath)
{
    return look::chooseFileToSave(QStringLiteral("存为 PDF"), proposedPath,
                                  QStringLiteral("PDF 文件 (*.pdf)"));
}

bool QtPrintDesk::editSettings(PrintSettings &settings)
{
    SetupDialog dialog(settings, look::windowBelow());
    if (look::runModal(dialog) != QDialog::Accepted)
        return false;
    settings = dialog.settings();
    return true;
}

void QtPrintDesk::preview(PrintRun &run)
{
    PreviewDialog(run, look::windowBelow()).run();
}

bool QtPrintDesk::goOn(const QString &what, int done, int total)
{
    if (done == total) {
        m_progress.reset();
        return true;
    }
    if (!m_progress) {
        m_progress = std::make_unique<QProgressDialog>(what, QStringLiteral("取消(&C)"), 0, total,
                                                       look::windowBelow());
        m_progress->setWindowModality(Qt::ApplicationModal);
        m_progress->setWindowTitle(QStringLiteral("打印"));
        m_progress->setMinimumDuration(patience);
    }
    m_progress->setValue(done);
    if (!m_progress->wasCanceled())
        return true;
    m_progress.reset();
    return false;
}

} // namespace ebtq::shell
