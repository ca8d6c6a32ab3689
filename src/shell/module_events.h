#pragma once

#include <QObject>
#include <QString>

namespace ebtq::shell {

/// The events of a module whose class this program does not know: it comes out of a library loaded by name.
/// Each signal here has the name and the arguments of an event of the modules' contract and is bound by that
/// name to the module's own, so that the rest of the program connects to events as to any other signal. An
/// event that a module does not have never comes; one of another shape than the contract's is reported and
/// left alone.
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
