#pragma once

#include "shell/print/print_desk.h"

#include <QProgressDialog>

#include <memory>

namespace ebtq::shell {

/// Printing through Qt's dialogs and our own, all of them in front of the active window.
class QtPrintDesk : public PrintDesk
{
public:
    [[nodiscard]] bool hasPrinter() const override;
    bool choosePrinter(QPrinter &printer) override;
    QString choosePdfFile(const QString &proposedPath) override;
    bool editSettings(PrintSettings &settings) override;
    void preview(PrintRun &run) override;
    bool goOn(const QString &what, int done, int total) override;
    [[nodiscard]] QDate today() const override { return QDate::currentDate(); }

private:
    std::unique_ptr<QProgressDialog> m_progress; ///< while something is counted
};

} // namespace ebtq::shell
