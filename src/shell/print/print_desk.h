#pragma once

#include <QDate>
#include <QString>

class QPrinter;

namespace ebtq::shell {

class PrintRun;
struct PrintSettings;

/// What the print engine shows and asks. QtPrintDesk does it with dialogs; tests script it.
class PrintDesk
{
public:
    virtual ~PrintDesk() = default;
    [[nodiscard]] virtual bool hasPrinter() const = 0;
    /// Printer, pages, copies, or a PDF file instead of a printer; false when cancelled.
    virtual bool choosePrinter(QPrinter &printer) = 0;
    /// The file's path; empty when none was chosen.
    virtual QString choosePdfFile(const QString &proposedPath) = 0;
    /// False when cancelled; the settings are then unchanged.
    virtual bool editSettings(PrintSettings &settings) = 0;
    /// Shows the pages until the person is done. Failures of what is done from there are thrown.
    virtual void preview(PrintRun &run) = 0;
    /// Called with progress up to `total`, and with both equal at the end, also after a failure. False stops
    /// the work.
    virtual bool goOn(const QString &what, int done, int total) = 0;
    [[nodiscard]] virtual QDate today() const = 0;
};

} // namespace ebtq::shell
