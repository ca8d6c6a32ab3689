#pragma once

#include "contracts/print_contract.h"

#include <QObject>

namespace ebtq::shell {

class PrintDesk;

/// The program's print engine: what the lists get as the host's print context.
class PrintEngine : public QObject, public PrintObject
{
    Q_OBJECT
    Q_INTERFACES(ebtq::PrintObject)

public:
    /// The desk outlives the engine.
    explicit PrintEngine(PrintDesk &desk)
        : m_desk(desk)
    {}
    QString PrintOut(const Job &job, bool bPrint) override;
    QString SetUp(const Job &job) override;

private:
    PrintDesk &m_desk;
};

} // namespace ebtq::shell
