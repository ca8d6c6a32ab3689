#include "component/registration.h"

#include "component/class_table.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include <dlfcn.h>

namespace ebtq::registration {

namespace {

/// The file from which this code was loaded.
QString libraryPath()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void *>(&libraryPath), &info) == 0 || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absoluteFilePath();
}

QByteArray content()
{
    QJsonArray names;
    for (const ComponentClass &entry : componentClasses())
        names.append(QString(entry.name));
    return QJsonDocument(
               QJsonObject{{QStringLiteral("library"), libraryPath()}, {QStringLiteral("classes"), names}})
        .toJson();
}

} // namespace

QString file()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/ebtq/components/EBTQ_S.json");
}

bool write()
{
    if (!QDir().mkpath(QFileInfo(file()).path()))
        return false;
    QSaveFile target(file());
    return target.open(QIODevice::WriteOnly) && target.write(content()) >= 0 && target.commit();
}

bool remove()
{
    return !QFile::exists(file()) || QFile::remove(file());
}

} // namespace ebtq::registration
