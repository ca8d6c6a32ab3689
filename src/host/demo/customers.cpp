#include "host/demo/customers.h"

#include "host/demo/calendar.h"
#include "host/demo/dictionaries.h"
#include "host/table_writer.h"
#include "host/module_ids.h"

#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr QStringView columns = u"客源ID,客源编号,地区ID,地区,委托日期,委托方式,委托等级,委托协议,客户名称,"
                                u"电话,手机,邮件,其他联系方式,地段要求,"
                                u"需求户型,物业要求,用途,朝向,装修要求,面积1,面积2,楼层1,楼层2,求购价格1,"
                                u"求购价格2,求租价格1,求租价格2,付款方式,"
                                u"付佣方式,信息来源,备注,业务员ID,用户ID,制单日期,制单人,操作日期,状态,方式";

enum Wish : int { Buy = 1, Rent = 2, BuyOrRent = 3 };

/// What a customer looks for: from and to of each.
struct Request
{
    int wish;
    const HouseType *layout;
    int area[2];
    int floor[2];
    double price[2] = {0, 0};
    double rent[2] = {0, 0};
};

void setRange(double (&range)[2], double middle, double step, Random &random)
{
    range[0] = std::floor(middle * random.between(0.75, 0.95) / step) * step;
    range[1] = std::ceil(middle * random.between(1.05, 1.3) / step) * step;
}

Request makeRequest(const Building &building, Random &random)
{
    Request request;
    const int part = random.between(0, 99);
    request.wish = part < 58 ? Buy : part < 90 ? Rent : BuyOrRent;
    request.layout = &random.pickEarly(houseTypes());
    request.area[0] = request.layout->smallest / 5 * 5;
    request.area[1] = request.layout->largest / 5 * 5 + 5;
    request.floor[0] = random.between(1, 6);
    request.floor[1] = request.floor[0] + random.between(3, 20);
    const double area = (request.area[0] + request.area[1]) / 2.0;
    if (request.wish != Rent)
        setRange(request.price, area * building.quarter.price, 5, random);
    if (request.wish != Buy)
        setRange(request.rent, area * building.quarter.price * 18, 100, random);
    return request;
}

void writePerson(TableWriter &writer, const RecordKey &key, const Document &document, const Quarter &quarter,
                 Random &random)
{
    static constexpr QStringView locations[] = {u"近地铁", u"近学校", u"近医院", u"安静", u"靠近公园", u""};
    writer.part({key.id, document.number, quarter.id, quarter.name, document.made,
                 random.pickEarly(words::commissions), random.pick(words::grades), u"", politeName(random),
                 maskedPhone(random), u"", u"", u"", random.pick(locations)});
}

void writeRequest(TableWriter &writer, const Request &wanted, Random &random)
{
    const QStringView use = random.chance(92) ? words::uses[0] : random.pick(words::uses);
    writer.part({use == u"住宅" ? houseTypeName(*wanted.layout) : QString(), u"", use,
                 random.pickEarly(words::orientations), random.pickEarly(words::decorations), wanted.area[0],
                 wanted.area[1], wanted.floor[0], wanted.floor[1], wanted.price[0], wanted.price[1],
                 wanted.rent[0], wanted.rent[1]});
}

void writeAgreement(TableWriter &writer, const Request &wanted, const Document &document, const Agent &agent,
                    Random &random)
{
    static constexpr QStringView remarks[] = {u"首次置业",   u"换房，需先卖后买", u"",
                                              u"希望带车位", u"可随时看房",       u""};
    // The first ones are a buyer's, the last ones may be a tenant's.
    const std::span payments(words::payments);
    const bool buys = wanted.wish != Rent;
    writer.part({random.pick(buys ? payments.first(4) : payments.last(2)), random.pick(words::fees),
                 random.pick(words::sources), random.pick(std::span(remarks).subspan(buys ? 0 : 2)),
                 agent.employeeId, agent.userId, document.made, agent.name, document.changed,
                 random.chance(80) ? 0 : 1, wanted.wish});
    writer.endRow();
}

/// Whom a follow-up was for and what was said.
struct Talk
{
    const RecordKey *record;
    QStringView content;
};

Talk makeTalk(const std::vector<RecordKey> &listings, const std::vector<RecordKey> &customers, Random &random)
{
    static constexpr QStringView withOwners[] = {u"电话联系业主，价格可小谈",
                                                 u"业主同意周末看房",
                                                 u"已实地查看，房屋保养良好",
                                                 u"业主出差，下周再联系",
                                                 u"业主要求提价，已劝说",
                                                 u"钥匙已收，登记入柜",
                                                 u"补拍室内照片",
                                                 u"业主暂不放盘，保持联系"};
    static constexpr QStringView withCustomers[] = {u"带看两套，客户对朝向不满意", u"客户预算有所提高",
                                                    u"客户希望再看一次",           u"已推荐三套房源",
                                                    u"客户需与家人商量",           u"客户已在别处成交"};
    const bool ofListing = customers.empty() || (!listings.empty() && random.chance(75));
    if (ofListing)
        return {&random.pick(listings), random.pick(withOwners)};
    return {&random.pick(customers), random.pick(withCustomers)};
}

void writeFollowUp(TableWriter &writer, const Talk &talk, const QDate &today, const Agent &agent,
                   Random &random)
{
    static constexpr QStringView reminders[] = {u"回访业主", u"预约看房", u"催收证件", u"跟进客户意向"};
    static constexpr QStringView results[] = {u"", u"", u"已联系", u"已处理"};
    const int age = static_cast<int>(talk.record->made.daysTo(today));
    const QDate made = today.addDays(-random.between(0, age));
    if (!random.chance(20)) {
        writer.row({random.guid(), made, agent.employeeId, agent.userId, talk.content, talk.record->id, 0,
                    nullptr, nullptr, u"", u"", nullptr});
        return;
    }
    const QDate due = made.addDays(random.between(1, 30));
    const QStringView result = due < today ? random.pick(results) : QStringView(u"");
    const TableWriter::Cell settled = result.isEmpty() ? TableWriter::Cell(nullptr) : TableWriter::Cell(due);
    writer.row({random.guid(), made, agent.employeeId, agent.userId, talk.content, talk.record->id, 1, due,
                random.between(0, 2), random.pick(reminders), result, settled});
}

} // namespace

std::vector<RecordKey> writeCustomers(db::Connection &connection, const DemoOptions &options,
                                      const std::vector<Building> &buildings,
                                      const std::vector<Agent> &agents, Random &random,
                                      const DemoProgress &progress)
{
    TableWriter writer(connection, u"fykh"_s, columns);
    std::vector<RecordKey> keys;
    for (const Document &document :
         makeDocuments(connection, CustomerModule, options.customers, options.today, random)) {
        const Building &building = random.pick(buildings);
        const Request request = makeRequest(building, random);
        keys.push_back({random.guid(), document.made});
        const Agent &agent = random.pick(agents);
        writePerson(writer, keys.back(), document, building.quarter, random);
        writeRequest(writer, request, random);
        writeAgreement(writer, request, document, agent, random);
        progress(u"客源"_s, static_cast<int>(keys.size()), options.customers);
    }
    writer.flush();
    return keys;
}

void writeFollowUps(db::Connection &connection, const DemoOptions &options,
                    const std::vector<RecordKey> &listings, const std::vector<RecordKey> &customers,
                    const std::vector<Agent> &agents, Random &random, const DemoProgress &progress)
{
    if (listings.empty() && customers.empty())
        return;
    TableWriter writer(connection, u"fygj"_s,
                       u"跟进ID,操作日期,业务员ID,用户ID,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,"
                       u"处理结果,处理日期");
    for (int number = 1; number <= options.followUps; ++number) {
        const Talk talk = makeTalk(listings, customers, random);
        writeFollowUp(writer, talk, options.today, random.pick(agents), random);
        progress(u"跟进"_s, number, options.followUps);
    }
    writer.flush();
}

} // namespace ebtq::host
