#include "library/frame/id_generator.h"

#include "library/frame/statements.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

QString whereCounter(const QString &table, const QString &keyColumn)
{
    return u" where tableName='%1' and keyColumn='%2'"_s.arg(table, keyColumn);
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
        return u"编号生成器尚未初始化！"_s;
    try {
        m_db->BeginTrans();
        // A transaction that was joined belongs to the caller, who abandons the save and rolls it back; one
        // that was begun here is rolled back when the caller releases the database.
        const int next = takeNext(table, keyColumn);
        m_db->CommitTrans();
        id = next;
        return {};
    } catch (const std::exception &failure) {
        return QString::fromUtf8(failure.what());
    }
}

/// The counter is changed before it is read: on a server a concurrent caller waits for the row lock and then
/// reads the new value.
int IdGenerator::takeNext(const QString &table, const QString &keyColumn)
{
    const QString where = whereCounter(table, keyColumn);
    const QString reading = u"select lastID from host_counters"_s + where;
    if (!singleValue(*m_db, reading).isValid()) {
        // Somebody else may make it at the same moment; then it is there all the same.
        m_db->CreateQuery(u"insert into host_counters(tableName,keyColumn,lastID) values('%1','%2',0)"_s.arg(
                              table, keyColumn))
            ->Execute();
    }
    executeStatement(*m_db, u"update host_counters set lastID=lastID+1"_s + where);
    const QVariant last = singleValue(*m_db, reading);
    if (!last.isValid())
        throw Failure(u"%1 的编号计数器无法建立！"_s.arg(table));
    const QVariant highest = singleValue(*m_db, u"select max(%1) from %2"_s.arg(keyColumn, table));
    const qlonglong next = qMax(last.toLongLong(), highest.toLongLong() + 1);
    if (next > std::numeric_limits<int>::max())
        throw Failure(u"%1 的编号已用完！"_s.arg(table));
    executeStatement(*m_db, u"update host_counters set lastID=%1"_s.arg(next) + where);
    return static_cast<int>(next);
}

} // namespace ebtq
