#include "shell/tour/tour_database.h"

#include "contracts/host_contracts.h"

namespace ebtq::shell {

std::unique_ptr<db::Connection> openTourDatabase(db::Connection &database, const QString &folder)
{
    if (database.location().contains(QLatin1String("://")))
        throw Failure(QStringLiteral("自动演示会写入数据，只能用于本地数据库：请用 --db 指定数据库文件。"));
    const QString copy = folder + QStringLiteral("/ebtq.db");
    QString quoted = copy;
    quoted.replace(u'\'', QStringLiteral("''"));
    database.executeNative(QStringLiteral("vacuum into '%1'").arg(quoted).toUtf8());
    return db::Connection::open(copy);
}

} // namespace ebtq::shell
