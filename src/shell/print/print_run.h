#pragma once

#include "contracts/print_contract.h"
#include "shell/print/print_settings.h"
#include "shell/print/printout.h"

#include <memory>

class QPagedPaintDevice;
class QPrinter;

namespace ebtq::shell {

class PrintDesk;

/// The printing of one list, with the settings of its print file. Operations throw Failure with a text for
/// the user; cancelling is no failure.
class PrintRun
{
public:
    /// The job's grid and the desk outlive the run.
    PrintRun(PrintObject::Job job, PrintDesk &desk);

    /// False when the person stopped it.
    bool layOut();
    /// nullptr before the layout.
    [[nodiscard]] std::shared_ptr<const Printout> printout() const { return m_printout; }
    [[nodiscard]] QString title() const;
    /// On a printer of the person's choice, or as a PDF file, which is all there is without a printer.
    void print();
    void savePdf();
    /// Asks for other settings, keeps them in the print file and lays out by them when it was laid out
    /// before. False when nothing changed.
    bool setUp();

private:
    struct Pages;
    /// nullptr when it was stopped.
    [[nodiscard]] std::shared_ptr<const Printout> laidOutOn(const QPageLayout &paper);
    /// Of `count` pages those that the person wants.
    [[nodiscard]] static Pages pagesOf(const QPrinter &printer, int count);
    /// The file is complete or unchanged.
    void writePdf(const Printout &printout, const QString &path, const Pages &pages);
    /// False when it was stopped.
    bool paintPages(const Printout &printout, QPagedPaintDevice &device, const Pages &pages,
                    const QString &name);

    PrintObject::Job m_job;
    PrintDesk &m_desk;
    PrintSettings m_settings;
    std::shared_ptr<const Printout> m_printout;
};

} // namespace ebtq::shell
