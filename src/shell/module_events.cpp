#include "shell/module_events.h"

#include <QMetaMethod>

namespace ebtq::shell {

namespace {

QMetaMethod signalNamed(const QMetaObject &type, const QByteArray &name)
{
    for (int index = 0; index < type.methodCount(); ++index) {
        const QMetaMethod method = type.method(index);
        if (method.methodType() == QMetaMethod::Signal && method.name() == name)
            return method;
    }
    return {};
}

} // namespace

ModuleEvents::ModuleEvents(QObject &module)
{
    for (int index = staticMetaObject.methodOffset(); index < staticMetaObject.methodCount(); ++index) {
        const QMetaMethod own = staticMetaObject.method(index);
        const QMetaMethod event = signalNamed(*module.metaObject(), own.name());
        if (!event.isValid())
            continue;
        if (QMetaObject::checkConnectArgs(event, own))
            connect(&module, event, this, own);
        else
            qWarning("%s has an event %s where %s was expected", module.metaObject()->className(),
                     event.methodSignature().constData(), own.methodSignature().constData());
    }
}

} // namespace ebtq::shell
