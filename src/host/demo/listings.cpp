#include "host/demo/listings.h"

#include "host/demo/calendar.h"
#include "host/demo/dictionaries.h"
#include "host/table_writer.h"
#include "host/module_ids.h"

#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr QStringView columns =
    u"房源ID,房源编号,地区ID,地区,楼盘ID,楼盘字典,栋座ID,栋座位置,房号,楼层,总楼层,房型_房,房型_厅,"
    u"房型_卫,房型_阳台,用途,总面积,实用面积,朝向,类型,建房年代,房源属性,交易方式,交易状态,售房价格,"
    u"售房底价,售房包税费,租房价格,租房底价,租房原购价,委托日期,委托方式,管理费,交房日期,委托编号,来源,"
    u"现状,装修,配套,家具,家电,产权,证件,付款,付佣,看房,钥匙号,业主,联系人,国籍,手机,联系说明,备注,"
    u"业务员ID,用户ID,制单日期,制单人,操作日期,附属房";

double rounded(double number, double step)
{
    return std::round(number / step) * step;
}

double roundedToHundredths(double number)
{
    return std::round(number * 100) / 100;
}

/// The premises themselves.
struct Premises
{
    HouseType layout;
    double area;
    double usableArea;
    int floor;
    int room;
    QStringView decoration;
    QStringView annex;
};

/// What they cost; 0 for a deal that is not offered.
struct Offer
{
    QStringView deal;
    QStringView state;
    double price = 0;
    double lowestPrice = 0;
    double rent = 0;
    double lowestRent = 0;
    double bought = 0;
};

bool isHome(const Building &building)
{
    return building.use == u"住宅";
}

const HouseType &pickLayout(const Building &building, Random &random)
{
    static constexpr HouseType openPlan{0, 0, 1, 0, 45, 420};
    if (!isHome(building))
        return openPlan;
    const auto layouts = houseTypes();
    if (building.type == u"别墅")
        return layouts[layouts.size() - 1 - random.below(2)];
    return random.pickEarly(layouts);
}

/// Attic and roof terrace belong to the highest floor, and none of these to an office.
QStringView makeAnnex(const Building &building, bool isTopFloor, Random &random)
{
    static constexpr QStringView annexes[] = {u"车库", u"杂物房", u"地下室", u"阁楼", u"露台"};
    if (!isHome(building) || !random.chance(18))
        return u"";
    return random.pick(std::span(annexes).first(isTopFloor ? 5 : 3));
}

Premises makePremises(const Building &building, const Block &block, Random &random)
{
    Premises premises;
    premises.layout = pickLayout(building, random);
    premises.area = roundedToHundredths(random.between(static_cast<double>(premises.layout.smallest),
                                                       static_cast<double>(premises.layout.largest)));
    premises.usableArea = roundedToHundredths(premises.area * random.between(0.74, 0.86));
    premises.floor = building.type == u"别墅" ? 1 : random.between(1, block.floors);
    premises.room = premises.floor * 100 + random.between(1, 6);
    premises.decoration = random.pickEarly(words::decorations);
    premises.annex = makeAnnex(building, premises.floor == block.floors, random);
    return premises;
}

/// Old offers are mostly settled, fresh ones open.
QStringView makeState(QStringView deal, int ageInDays, Random &random)
{
    const int settled = qMin(75, ageInDays / 5);
    if (!random.chance(settled))
        return random.chance(94) ? u"有效" : u"暂缓";
    if (random.chance(15))
        return u"无效";
    return deal == u"出租" || (deal == u"租售" && random.chance(50)) ? u"已租" : u"已售";
}

void setPrices(Offer &offer, const Building &building, const Premises &premises, Random &random)
{
    const double quality = (premises.decoration == u"豪装"   ? 1.15
                            : premises.decoration == u"毛坯" ? 0.93
                                                             : 1.0) *
                           random.between(0.92, 1.08);
    if (offer.deal.contains(u'售')) {
        offer.price = qMax(1.0, rounded(premises.area * building.price * quality, 1));
        offer.lowestPrice = rounded(offer.price * random.between(0.94, 0.99), 0.5);
        offer.bought = rounded(offer.price * random.between(0.35, 0.8), 1);
    }
    if (offer.deal.contains(u'租')) {
        offer.rent = qMax(300.0, rounded(premises.area * building.price * 18 * quality, 50));
        offer.lowestRent = rounded(offer.rent * random.between(0.92, 0.98), 50);
    }
}

Offer makeOffer(const Building &building, const Premises &premises, int ageInDays, Random &random)
{
    Offer offer;
    const int part = random.between(0, 99);
    offer.deal = words::deals[part < 60 ? 0 : part < 88 ? 1 : 2];
    offer.state = makeState(offer.deal, ageInDays, random);
    setPrices(offer, building, premises, random);
    return offer;
}

/// Subsidised and firms' flats are homes, and firms sold theirs until the turn of the century; all buildings
/// of the sample are finished.
bool suits(const PropertyRight &right, const Building &building)
{
    const bool isCommon = right.name == u"商品房";
    if (!isHome(building) || building.type == u"别墅")
        return isCommon;
    if (right.name == u"房改房" || right.name == u"集资房")
        return building.year.toInt() <= 2000;
    return right.name != u"期房";
}

const PropertyRight &pickRight(const Building &building, Random &random)
{
    const PropertyRight *right = &random.pickEarly(propertyRights());
    while (!suits(*right, building))
        right = &random.pickEarly(propertyRights());
    return *right;
}

/// One listing, all that its row tells.
struct Listing
{
    const RecordKey &key;
    const Document &document;
    const Building &building;
    const Block &block;
    Premises premises;
    Offer offer;
    const Agent &agent;
    const PropertyRight &right;
    QStringView viewing;
    QString owner;
};

void writePremises(TableWriter &writer, const Listing &listing, Random &random)
{
    const Building &building = listing.building;
    const Premises &premises = listing.premises;
    const HouseType &layout = premises.layout;
    writer.part({listing.key.id,
                 listing.document.number,
                 building.quarter.id,
                 building.quarter.name,
                 building.id,
                 building.name,
                 listing.block.id,
                 listing.block.name,
                 QString::number(premises.room),
                 QString::number(premises.floor),
                 QString::number(listing.block.floors),
                 layout.rooms,
                 layout.halls,
                 layout.baths,
                 layout.balconies,
                 building.use,
                 premises.area,
                 premises.usableArea,
                 random.pickEarly(words::orientations),
                 building.type,
                 building.year,
                 random.between(1, 3)});
}

void writeOffer(TableWriter &writer, const Listing &listing, Random &random)
{
    const Offer &offer = listing.offer;
    const QDate &made = listing.document.made;
    writer.part({offer.deal, offer.state, offer.price, offer.lowestPrice,
                 offer.price > 0 ? random.pick(words::taxes) : QStringView(u""), offer.rent, offer.lowestRent,
                 offer.bought, made, random.pickEarly(words::commissions), listing.building.fee,
                 made.addDays(random.between(0, 120)),
                 random.chance(30) ? u"WT%1"_s.arg(random.between(1000, 9999)) : QString(),
                 random.pick(words::sources)});
}

QStringView makeCondition(const Listing &listing, Random &random)
{
    if (listing.offer.state == u"已租")
        return u"出租中";
    const QStringView condition = random.pickEarly(words::conditions);
    const bool canBeLivedIn = isHome(listing.building) && listing.premises.decoration != u"毛坯";
    return canBeLivedIn || condition == u"装修中" ? condition : QStringView(u"空置");
}

/// The first two are about selling, the fourth about homes; what may be given away with a house depends on
/// more than is known here.
QStringView makeRemark(const Listing &listing, Random &random)
{
    if (!random.chance(35))
        return u"";
    const size_t from = listing.offer.price > 0 ? 0 : 2;
    const size_t to = isHome(listing.building) ? 4 : 3;
    return random.pick(std::span(words::listingRemarks).subspan(from, to - from));
}

void writeConditionAndPapers(TableWriter &writer, const Listing &listing, Random &random)
{
    const bool isSale = listing.offer.price > 0;
    const bool isBare = listing.premises.decoration == u"毛坯";
    const PropertyRight &right = listing.right;
    const bool hasKey = listing.viewing.contains(u'匙');
    writer.part({makeCondition(listing, random), listing.premises.decoration, random.pick(words::facilities),
                 isBare ? QStringView(u"无") : random.pick(words::furniture),
                 isBare ? QStringView(u"无") : random.pick(words::appliances), right.name, right.certificate,
                 isSale ? right.payment : QStringView(u"押一付三"),
                 isSale ? right.fee : QStringView(u"双方各付"), listing.viewing,
                 hasKey ? u"K%1"_s.arg(random.between(100, 999)) : QString()});
}

void writePeople(TableWriter &writer, const Listing &listing, Random &random)
{
    const Agent &agent = listing.agent;
    writer.part({listing.owner, random.chance(80) ? listing.owner : politeName(random),
                 random.chance(97) ? u"中国" : random.pick(words::nationalities), maskedPhone(random),
                 random.chance(30) ? random.pick(words::ownerRemarks) : QStringView(u""),
                 makeRemark(listing, random), agent.employeeId, agent.userId, listing.document.made,
                 agent.name, listing.document.changed, listing.premises.annex});
}

void writeListing(TableWriter &writer, const Listing &listing, Random &random)
{
    writePremises(writer, listing, random);
    writeOffer(writer, listing, random);
    writeConditionAndPapers(writer, listing, random);
    writePeople(writer, listing, random);
    writer.endRow();
}

} // namespace

std::vector<RecordKey> writeListings(db::Connection &connection, const DemoOptions &options,
                                     const std::vector<Building> &buildings, const std::vector<Agent> &agents,
                                     Random &random, const DemoProgress &progress)
{
    TableWriter writer(connection, u"fyxx"_s, columns);
    std::vector<RecordKey> keys;
    keys.reserve(static_cast<size_t>(options.listings));
    for (const Document &document :
         makeDocuments(connection, ListingModule, options.listings, options.today, random)) {
        const Building &building = random.pick(buildings);
        const Block &block = random.pick(building.blocks);
        const Premises premises = makePremises(building, block, random);
        const int age = static_cast<int>(document.made.daysTo(options.today));
        const Offer offer = makeOffer(building, premises, age, random);
        keys.push_back({random.guid(), document.made});
        writeListing(writer,
                     {keys.back(), document, building, block, premises, offer, random.pick(agents),
                      pickRight(building, random), random.pick(words::viewings), politeName(random)},
                     random);
        progress(u"房源"_s, static_cast<int>(keys.size()), options.listings);
    }
    writer.flush();
    return keys;
}

void writeAttachments(db::Connection &connection, const std::vector<RecordKey> &listings, Random &random)
{
    static constexpr QStringView papers[] = {u"委托书", u"看房须知", u"房屋交接单", u"收费说明"};
    TableWriter writer(
        connection, u"pubAttach"_s,
        u"progID,IDs,filename,filesize,modifydate,createdate,contenttype,description,iscompress,"
        u"isencrypt,password,isActive,isPicture,contents");
    for (const RecordKey &listing : listings) {
        const int count = random.chance(8) ? random.between(1, 3) : 0;
        for (int number = 0; number < count; ++number) {
            const QString paper = papers[number + static_cast<int>(random.below(2))].toString();
            const QByteArray contents = u"%1（示例）\n"_s.arg(paper).toUtf8();
            writer.row({ListingModule, listing.id, paper + u".txt"_s, static_cast<int>(contents.size()),
                        listing.made, listing.made, u"txt", paper, 0, 0, u"", 1, 0, contents});
        }
    }
    writer.flush();
}

} // namespace ebtq::host
