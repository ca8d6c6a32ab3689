#include "library/frame/self_print.h"

#include "contracts/host_contracts.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ebtq {

QString printFile(const QString &folder, int moduleId)
{
    const QString place = QDir::cleanPath(folder + u"/selfPrn"_s);
    if (!QDir().mkpath(place))
        throw Failure(u"无法创建文件夹“%1”，请检查磁盘空间和权限！"_s.arg(place));
    return u"%1/Rpt%2.prn"_s.arg(place).arg(moduleId);
}

void printSelf(HostApp &app, const PrintObject::Job &job, bool bPrint, bool bSetup)
{
    auto *printer = qobject_cast<PrintObject *>(app.PrintEnv().PrintContext());
    if (!printer)
        throw Failure(u"本程序没有打印功能！"_s);
    const QString failure = bSetup ? printer->SetUp(job) : printer->PrintOut(job, bPrint);
    if (!failure.isEmpty())
        throw Failure(failure);
}

} // namespace ebtq
