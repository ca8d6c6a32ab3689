#pragma once

#include <QStringList>

#include <memory>

class QObject;
class QWidget;

namespace ebtq {

/// What the component library gives to a host that loaded it by name: DllGetClassObject puts a pointer to
/// this under the name "EBTQ_S". A class is made by its full name, such as "EBTQ_S.Fcxx"; qobject_cast then
/// asks it for a contract.
class ComponentLibrary
{
public:
    virtual ~ComponentLibrary() = default;
    [[nodiscard]] virtual QStringList classNames() const = 0;
    /// A new module with the Qt desktop behind it; nullptr for an unknown name.
    [[nodiscard]] virtual std::unique_ptr<QObject> create(const QString &className) = 0;
    /// The screen of a module made here, a child of `parent`; to be destroyed before its module. nullptr for
    /// an object that has none.
    [[nodiscard]] virtual QWidget *createView(QObject &module, QWidget *parent) = 0;
};

} // namespace ebtq

extern "C" {
/// The four self-registration entry points. Results: 0 on success, else 1.
/// DllGetClassObject: `library` takes the ComponentLibrary for the name "EBTQ_S" or a class name of it.
using DllGetClassObjectFunction = int (*)(const char *name, ebtq::ComponentLibrary **library);
using DllCanUnloadNowFunction = int (*)();
using DllRegisterServerFunction = int (*)();
using DllUnregisterServerFunction = int (*)();
}
