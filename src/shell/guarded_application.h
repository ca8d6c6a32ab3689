#pragma once

#include <QApplication>

#include <functional>

namespace ebtq::shell {

/// An application in which an exception that escapes an event handler ends that event, not the program.
class GuardedApplication : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// Where the texts of escaped exceptions go; until it is set, to the error log.
    void setFailureReport(std::function<void(const QString &)> report) { m_report = std::move(report); }
    bool notify(QObject *receiver, QEvent *event) override;

private:
    std::function<void(const QString &)> m_report;
};

} // namespace ebtq::shell
