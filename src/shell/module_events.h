#pragma once

#include <QObject>
#include <QString>

namespace ebtq::shell {

/// The events of a module whose class is unknown here, since it comes from a library loaded by name. Each
/// signal has the name and arguments of an event of the module contract and is connected to the module's
/// signal of that name. An event that the module lacks is never raised; one with other arguments than the
/// contract's is reported and not connected.
class ModuleEvents : public QObject
{
    Q_OBJECT

public:
    explicit ModuleEvents(QObject &module);

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    /// Sent from inside the module's refresh, when its grid has been filled.
    void RefreshGetGridStatus();
    /// Sent from inside the module: it must outlive the call, so whoever closes it does that later.
    void UnLoad(bool &pbReturn);
    /// A picker's choice is made, or the picker was left without one. Sent from inside the picker.
    void DoSelect();
    void DoCancel();
};

} // namespace ebtq::shell
