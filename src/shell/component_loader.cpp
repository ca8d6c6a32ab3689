#include "shell/component_loader.h"

#include "contracts/host_contracts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr char libraryName[] = "EBTQ_S";

ComponentLibrary &openLibrary(const QString &file)
{
    QLibrary library(file);
    if (!library.load())
        throw Failure(QStringLiteral("组件库无法载入：%1\n%2").arg(file, library.errorString()));
    const auto getClassObject =
        reinterpret_cast<DllGetClassObjectFunction>(library.resolve("DllGetClassObject"));
    ComponentLibrary *result = nullptr;
    if (!getClassObject || getClassObject(libraryName, &result) != 0 || !result)
        throw Failure(QStringLiteral("文件不是组件库 EBTQ_S：%1").arg(file));
    return *result;
}

} // namespace

QStringList componentLibraryPlaces()
{
    const QString beside = QCoreApplication::applicationDirPath();
    return {beside + QStringLiteral("/libEBTQ_S.so"), beside + QStringLiteral("/../lib/ebtq/libEBTQ_S.so"),
            beside + QStringLiteral("/../lib/libEBTQ_S.so")};
}

ComponentLibrary &loadComponentLibrary(const QStringList &places)
{
    const auto found =
        std::ranges::find_if(places, [](const QString &file) { return QFileInfo::exists(file); });
    if (found == places.end())
        throw Failure(QStringLiteral("找不到组件库，已查找：\n%1").arg(places.join(u'\n')));
    return openLibrary(QFileInfo(*found).canonicalFilePath());
}

} // namespace ebtq::shell
