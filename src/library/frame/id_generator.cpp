#include "library/frame/id_generator.h"

#include <limits>

namespace ebtq {

namespace {

QString whereCounter(const QString &table, const QString &keyColumn)
{
    return QStringLiteral(" where tableName='%1' and keyColumn='%2'").arg(table, keyColumn);
}

} // namespace

bool IdGenerator::Init(HostDb &db)
{
    m_db = &db;
    return true;
}

QString IdGenerator::NextID(const QString &table, const QString &keyColumn, int &id)
{
    if (!m_db)
        return QStringLiteral("编号生成器尚未初始化！");
    try {
        m_db->BeginTrans();
        // A transaction that was joined belongs to the caller, who abandons the save and rolls it back; one
        // of its own is rolled back when the caller releases the database.
        const int next = takeNext(table, keyColumn);
        m_db->CommitTrans();
        id = next;
        return {};
    } catch (const std::exception &failure) {
        return QString::fromUtf8(failure.what());
    }
}

/// The counter is changed before anything is read: on a server whoever asks at the same time waits there, and
/// then reads what this one has left.
int IdGenerator::takeNext(const QString &table, const QString &keyColumn)
{
    const QString where = whereCounter(table, keyColumn);
    if (!holdCounter(where)) {
        // Somebody else may make the counter at the same moment; then it is there all the same.
        m_db->CreateQuery(
                QStringLiteral("insert into host_counters(tableName,keyColumn,lastID) values('%1','%2',0)")
                    .arg(table, keyColumn))
            ->Execute();
        const QString failure = m_db->LastError().Description;
        if (!holdCounter(where))
            throw Failure(failure);
    }
    const QVariant last = scalar(QStringLiteral("select lastID from host_counters") + where);
    const QVariant highest = scalar(QStringLiteral("select max(%1) from %2").arg(keyColumn, table));
    const qlonglong next = qMax(last.toLongLong(), highest.toLongLong()) + 1;
    if (next > std::numeric_limits<int>::max())
        throw Failure(QStringLiteral("%1 的编号已用完！").arg(table));
    execute(QStringLiteral("update host_counters set lastID=%1").arg(next) + where);
    return static_cast<int>(next);
}

bool IdGenerator::holdCounter(const QString &where)
{
    execute(QStringLiteral("update host_counters set lastID=lastID") + where);
    return scalar(QStringLiteral("select lastID from host_counters") + where).isValid();
}

QVariant IdGenerator::scalar(const SqlText &sql)
{
    QVariant value = m_db->CreateQuery(sql)->Scalar();
    requireSuccess();
    return value;
}

void IdGenerator::execute(const SqlText &sql)
{
    m_db->CreateQuery(sql)->Execute();
    requireSuccess();
}

void IdGenerator::requireSuccess() const
{
    const QString failure = m_db->LastError().Description;
    if (!failure.isEmpty())
        throw Failure(failure);
}

} // namespace ebtq
