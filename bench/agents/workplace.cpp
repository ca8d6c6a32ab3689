#include "agents/workplace.h"

#include "host/module_ids.h"

#include <QUuid>

namespace ebtq::bench {

namespace {

/// The row of a statement that a number gives when they are counted round.
qsizetype turn(const RowBlock &rows, int number)
{
    if (rows.rowCount() == 0)
        throw Failure(QStringLiteral("the database holds no agency"));
    return number % rows.rowCount();
}

} // namespace

Workplace::Workplace(const QString &database, int number)
    : m_connection(db::Connection::open(database))
{
    readAgent(number);
    readBuilding(number);
    const host::Settings settings{m_folder.filePath(QStringLiteral("work")), QDate::currentDate()};
    m_app = std::make_unique<host::Application>(*m_connection, m_user, settings, *this);
}

Workplace::~Workplace() = default;

int Workplace::moduleId()
{
    return host::ListingModule;
}

void Workplace::readAgent(int number)
{
    const RowBlock rows = m_connection->query(
        QStringLiteral(
            "select A.userID,A.username,C.mtname,D.雇员ID from (su_membership A left join su_usertype "
            "C on A.UserTypeID=C.mtID) left join pdmgy D on A.username=D.姓名 where A.userID in(select "
            "userID from host_rights where moduleID=%1 and rightID=%2 and allowed=1) order by D.雇员ID")
            .arg(moduleId())
            .arg(RightEdit));
    const qsizetype row = turn(rows, number);
    m_user = {rows.value(row, 0).toString(), rows.value(row, 1).toString(), rows.value(row, 2).toString()};
    m_agentId = rows.value(row, 3).toInt();
}

void Workplace::readBuilding(int number)
{
    const RowBlock rows = m_connection->query(
        QStringLiteral("select A.楼盘ID,A.楼盘名称,B.地区ID,B.地区 from pdmlpzd A left join pdmdq B on "
                       "A.地区ID=B.地区ID order by A.楼盘ID"));
    const qsizetype row = turn(rows, number);
    m_building = {rows.value(row, 0).toInt(), rows.value(row, 1).toString(), rows.value(row, 2).toInt(),
                  rows.value(row, 3).toString()};
}

Desktop::Answer Workplace::messageBox(const QString &text, const QString &, Icon, Buttons buttons)
{
    if (buttons == Buttons::YesNo)
        return Answer::No;
    m_told += text;
    return Answer::Ok;
}

void Workplace::showModal(QObject &)
{
    if (const auto act = std::exchange(m_act, {}))
        act();
}

QByteArray Workplace::newGuidBytes()
{
    return QUuid::createUuid().toRfc4122();
}

} // namespace ebtq::bench
