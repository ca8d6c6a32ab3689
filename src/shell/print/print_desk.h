#pragma once

#include <QDate>
#include <QString>

class QPrinter;

namespace ebtq::shell {

class PrintRun;
struct PrintSettings;

/// The person and the machine around the print engine, handed in: what it shows and asks. QtPrintDesk does it
/// with dialogs; tests script it.
class PrintDesk
{
public:
    virtual ~PrintDesk() = default;
    [[nodiscard]] virtual bool hasPrinter() const = 0;
    /// Printer, pages, copies, or a PDF file in a printer's place; false when it was left.
    virtual bool choosePrinter(QPrinter &printer) = 0;
    /// The file's path; empty when none was chosen.
    virtual QString choosePdfFile(const QString &proposedPath) = 0;
    /// False when it was left; the settings are as they were then.
    virtual bool editSettings(PrintSettings &settings) = 0;
    /// Shows the pages until the person is done. Failures of what is done from there are thrown.
    virtual void preview(PrintRun &run) = 0;
    /// Called while something is counted up to `total`, and with both equal when it has ended, however it
    /// did. False stops it.
    virtual bool goOn(const QString &what, int done, int total) = 0;
    [[nodiscard]] virtual QDate today() const = 0;
};

} // namespace ebtq::shell
