#include "host/demo/staff.h"

#include "host/table_writer.h"
#include "host/module_ids.h"
#include "host/rights.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr QStringView departments[] = {u"营业一部", u"营业二部", u"营业三部", u"营业四部", u"租赁部"};
constexpr int agentCount = 30;

constexpr QStringView surnames[] = {u"王", u"李", u"张", u"刘", u"陈", u"杨", u"黄", u"赵", u"周",
                                    u"吴", u"徐", u"孙", u"朱", u"马", u"胡", u"郭", u"林", u"何",
                                    u"高", u"梁", u"郑", u"罗", u"宋", u"谢", u"唐", u"韩", u"曹",
                                    u"许", u"邓", u"萧", u"冯", u"曾", u"程", u"蔡", u"彭", u"潘"};
constexpr QStringView givenNames[] = {u"晓雯", u"志远", u"雨桐", u"建国", u"思齐", u"嘉怡", u"文博", u"秀兰",
                                      u"海涛", u"梦洁", u"立新", u"婉清", u"国强", u"佳宁", u"俊杰", u"春燕",
                                      u"明轩", u"丽华", u"子涵", u"永福", u"静怡", u"少波", u"慧敏", u"浩然",
                                      u"玉珍", u"一鸣", u"若兰", u"振华", u"小芳", u"博文", u"雪梅", u"天佑",
                                      u"巧云", u"宏伟", u"安琪", u"学军"};
constexpr QStringView phoneFronts[] = {u"133", u"135", u"136", u"137", u"138", u"139", u"150",
                                       u"158", u"159", u"177", u"180", u"186", u"188", u"189"};

std::vector<Agent> makeAgents(Random &random)
{
    std::vector<Agent> agents{{1, random.guid(), u"演示"_s}};
    QStringList taken{agents.front().name};
    while (agents.size() < agentCount) {
        const QString name = personName(random);
        if (taken.contains(name))
            continue;
        taken << name;
        agents.push_back({static_cast<int>(agents.size()) + 1, random.guid(), name});
    }
    return agents;
}

void writeDepartments(db::Connection &connection)
{
    TableWriter writer(connection, u"su_usertype"_s, u"mtID,mtcode,mtname");
    int id = 0;
    for (const QStringView name : departments) {
        ++id;
        writer.row({id, u"%1"_s.arg(id, 2, 10, QLatin1Char('0')), name});
    }
    writer.flush();
}

void writeAgents(db::Connection &connection, const std::vector<Agent> &agents, PasswordCost cost)
{
    // One hash, and so one salt, serves all users, which would show a thief of real data who share a
    // password. Here all share one on purpose and it is printed: thirty hashes would only make the sample
    // slow to write.
    const QString password = QString::fromLatin1(hashPassword(u"demo"_s, cost));
    TableWriter employees(connection, u"pdmgy"_s, u"雇员ID,姓名");
    TableWriter users(connection, u"host_users"_s, u"userID,username,password,isActive");
    TableWriter members(connection, u"su_membership"_s, u"userID,UserTypeID,username");
    for (const Agent &agent : agents) {
        employees.row({agent.employeeId, agent.name});
        users.row({agent.userId, agent.name, password, 1});
        members.row({agent.userId, 1 + (agent.employeeId - 1) % static_cast<int>(std::size(departments)),
                     agent.name});
    }
    employees.flush();
    users.flush();
    members.flush();
}

/// All may do everything but the last two: one may not delete, the other only look.
void writeRights(db::Connection &connection, const std::vector<Agent> &agents)
{
    TableWriter writer(connection, u"host_rights"_s, u"userID,moduleID,rightID,allowed");
    for (size_t at = 0; at < agents.size(); ++at) {
        const bool onlyLooks = at + 1 == agents.size();
        const bool keepsAll = onlyLooks || at + 2 == agents.size();
        for (const ModuleEntry &module : modules) {
            writer.row({agents[at].userId, module.id, RightNew, onlyLooks ? 0 : 1});
            writer.row({agents[at].userId, module.id, RightDelete, keepsAll ? 0 : 1});
            writer.row({agents[at].userId, module.id, RightEdit, onlyLooks ? 0 : 1});
        }
    }
    writer.flush();
}

} // namespace

std::vector<Agent> writeStaff(db::Connection &connection, Random &random, PasswordCost cost)
{
    writeDepartments(connection);
    std::vector<Agent> agents = makeAgents(random);
    writeAgents(connection, agents, cost);
    writeRights(connection, agents);
    return agents;
}

QString personName(Random &random)
{
    const QStringView surname = random.pick(surnames);
    return u"%1%2"_s.arg(surname, random.pick(givenNames));
}

QString politeName(Random &random)
{
    const QStringView surname = random.pick(surnames);
    return u"%1%2"_s.arg(surname, random.chance(55) ? u"先生" : u"女士");
}

QString maskedPhone(Random &random)
{
    const QStringView front = random.pick(phoneFronts);
    return u"%1****%2"_s.arg(front).arg(random.between(0, 9999), 4, 10, QLatin1Char('0'));
}

} // namespace ebtq::host
