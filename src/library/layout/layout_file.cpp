#include "library/layout/layout_file.h"

#include "contracts/host_contracts.h"

#include <QDir>

namespace ebtq {

QString LayoutFile(const QString &name, HostApp &app)
{
    const QDir folder(QDir(app.Session().AppPath()).filePath(QStringLiteral("selfbb")));
    folder.mkpath(QStringLiteral("."));
    return folder.filePath(name + QStringLiteral(".txt"));
}

int ControlIndex(const QObject &control)
{
    const QVariant index = control.property("Index");
    return index.isValid() ? index.toInt() : -1;
}

} // namespace ebtq
