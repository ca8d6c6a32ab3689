#include "database/schema/identity.h"

#include "database/connection.h"
#include "database/schema/ddl.h"

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

enum class Mark : quint8 { None, Own, Others };

Mark markOf(Connection &connection)
{
    const QByteArray statement = connection.ddlWords().readMark;
    const int mark = statement.isEmpty() ? 0 : connection.queryNative(statement).value(0, 0).toInt();
    return mark == 0 ? Mark::None : mark == fileMark ? Mark::Own : Mark::Others;
}

int recordedVersion(Connection &connection)
{
    const RowBlock rows = connection.query(u"select version from host_schema"_s);
    return rows.rowCount() == 1 ? rows.value(0, 0).toInt() : 0;
}

QStringList namesOfTrees(Connection &connection)
{
    QStringList names;
    const QByteArray statement = connection.ddlWords().listTrees;
    const RowBlock rows = statement.isEmpty() ? RowBlock() : connection.queryNative(statement);
    for (qsizetype row = 0; row < rows.rowCount(); ++row)
        names << rows.value(row, 0).toString();
    return names;
}

/// What is missing only makes statements slow or fail by themselves.
void lookAtTrees(Connection &connection)
{
    const DdlWords &words = connection.ddlWords();
    const QStringList present = namesOfTrees(connection);
    for (const TableDefinition &table : schemaTables()) {
        const QByteArray name = QString::fromUtf16(table.name).toUtf8();
        if (present.contains(QString::fromUtf16(table.name)))
            (void)connection.queryNative(QByteArray(words.lookAtTable).replace("%1", name));
        for (const IndexDefinition &definition : table.indexes) {
            const QString index = QString::fromUtf16(definition.name);
            if (present.contains(index))
                (void)connection.queryNative(
                    QByteArray(words.lookAtIndex).replace("%1", name).replace("%2", index.toUtf8()));
        }
    }
}

} // namespace

Identity Identity::of(Connection &connection)
{
    const Mark mark = markOf(connection);
    const Catalog::Table *record = connection.catalog().table(u"host_schema");
    const bool hasRecord = record && record->column(u"version");
    if (mark == Mark::Others || (mark == Mark::None && !hasRecord && !connection.catalog().isEmpty()))
        return {Foreign, 0};
    if (!hasRecord)
        return {mark == Mark::Own ? Older : Empty, 0};
    const int version = recordedVersion(connection);
    return {version == schemaVersion ? Current : version < schemaVersion ? Older : Newer, version};
}

QString Identity::obstacle() const
{
    switch (standing) {
    case Empty:
        return u"数据库尚未初始化，请先运行 ebtq-admin init！"_s;
    case Foreign:
        return u"这不是本系统的数据库，其中有其他程序的表！"_s;
    case Older:
        if (version <= 0)
            return u"数据库尚未初始化或升级完毕，没有记录版本，请先运行 ebtq-admin init！"_s;
        return u"数据库的版本是 %1，应为 %2，请先备份，再运行 ebtq-admin init 升级！"_s.arg(version).arg(
            schemaVersion);
    case Current:
        return {};
    case Newer:
        return u"数据库的版本（%1）比本程序（%2）新，请升级程序！"_s.arg(version).arg(schemaVersion);
    }
    return {};
}

void requireInstallable(Connection &connection, Foreign foreign)
{
    const Identity identity = Identity::of(connection);
    if (identity.standing == Identity::Newer)
        throw DatabaseError(identity.obstacle());
    if (identity.standing == Identity::Foreign && foreign == Foreign::IsRefused)
        throw DatabaseError(identity.obstacle() +
                            u"未写入；确要写入其中，请用 ebtq-admin init --take-over"_s);
}

void requireCurrent(Connection &connection)
{
    const QString obstacle = Identity::of(connection).obstacle();
    if (!obstacle.isEmpty())
        throw DatabaseError(obstacle);
    lookAtTrees(connection);
}

Identity requireOwn(Connection &connection)
{
    const Identity identity = Identity::of(connection);
    const bool isUpgradable = identity.standing == Identity::Older && identity.version > 0;
    if (identity.standing != Identity::Current && !isUpgradable)
        throw DatabaseError(identity.obstacle());
    return identity;
}

} // namespace ebtq::db
