#include "library/layout/layout_file.h"

#include "contracts/host_contracts.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ebtq {

QString LayoutFile(const QString &name, HostApp &app)
{
    const QDir folder(QDir(app.Session().AppPath()).filePath(u"selfbb"_s));
    folder.mkpath(u"."_s);
    return folder.filePath(name + u".txt"_s);
}

int ControlIndex(const QObject &control)
{
    const QVariant index = control.property("Index");
    return index.isValid() ? index.toInt() : -1;
}

} // namespace ebtq
