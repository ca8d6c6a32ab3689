#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class QWidget;

namespace ebtq {

/// Which screen belongs to which class of module or form.
class ViewRegistry
{
public:
    /// A View is made from its Module and a parent.
    template<class Module, class View> void add()
    {
        m_makers.insert(&Module::staticMetaObject, [](QObject &module, QWidget *parent) -> QWidget * {
            return new View(*qobject_cast<Module *>(&module), parent);
        });
    }
    /// The screen of an object, a child of `parent`; nullptr for one of a class that has none.
    [[nodiscard]] QWidget *createView(QObject &module, QWidget *parent) const;

private:
    using Maker = std::function<QWidget *(QObject &module, QWidget *parent)>;
    QHash<const QMetaObject *, Maker> m_makers;
};

} // namespace ebtq
