#include "library/frame/self_print.h"

#include "contracts/host_contracts.h"

#include <QDir>

namespace ebtq {

QString printFile(const QString &folder, int moduleId)
{
    const QString place = QDir::cleanPath(folder + QStringLiteral("/selfPrn"));
    if (!QDir().mkpath(place))
        throw Failure(QStringLiteral("无法创建文件夹“%1”，请检查磁盘空间和权限！").arg(place));
    return QStringLiteral("%1/Rpt%2.prn").arg(place).arg(moduleId);
}

void printSelf(HostApp &app, const PrintObject::Job &job, bool bPrint, bool bSetup)
{
    auto *printer = qobject_cast<PrintObject *>(app.PrintEnv().PrintContext());
    if (!printer)
        throw Failure(QStringLiteral("本程序没有打印功能！"));
    const QString failure = bSetup ? printer->SetUp(job) : printer->PrintOut(job, bPrint);
    if (!failure.isEmpty())
        throw Failure(failure);
}

} // namespace ebtq
