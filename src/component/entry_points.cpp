#include "component/library_of_classes.h"
#include "component/registration.h"

using namespace ebtq;

namespace {

bool isOurs(const QString &name)
{
    return name.compare(QLatin1String("EBTQ_S"), Qt::CaseInsensitive) == 0 ||
           libraryOfClasses().classNames().contains(name, Qt::CaseInsensitive);
}

int result(bool success)
{
    return success ? 0 : 1;
}

} // namespace

extern "C" {

Q_DECL_EXPORT int DllGetClassObject(const char *name, ComponentLibrary **library)
{
    if (!library)
        return result(false);
    const bool ours = name && isOurs(QString::fromUtf8(name));
    *library = ours ? &libraryOfClasses() : nullptr;
    return result(ours);
}

Q_DECL_EXPORT int DllCanUnloadNow()
{
    return result(!libraryOfClasses().hasLiveObjects());
}

Q_DECL_EXPORT int DllRegisterServer()
{
    return result(registration::write());
}

Q_DECL_EXPORT int DllUnregisterServer()
{
    return result(registration::remove());
}
}
