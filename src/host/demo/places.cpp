#include "host/demo/places.h"

#include "host/demo/dictionaries.h"
#include "host/table_writer.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

constexpr QStringView cityName = u"云泽市";

struct Ward
{
    QStringView name;
    double price; ///< of a square metre, in 10,000 yuan
    QStringView quarters[4];
};

constexpr Ward wards[] = {
    {u"望澜区", 2.4, {u"柳岸", u"听涛里", u"锦堤", u"望澜门"}},
    {u"锦溪区", 1.9, {u"石桥头", u"槐树巷", u"清水湾", u"锦溪口"}},
    {u"南屏区", 1.5, {u"荷花塘", u"梅园里", u"竹林坡", u"南屏新村"}},
    {u"松台区", 1.2, {u"松风里", u"鹤鸣街", u"白鹭洲", u"松台路"}},
    {u"北渡区", 0.9, {u"北渡口", u"杨柳埠", u"新桥头", u"沙洲里"}},
};

struct NamePart
{
    QStringView text;
    QStringView initials;
};

constexpr NamePart buildingNames[] = {
    {u"碧棠", u"BT"}, {u"云锦", u"YJ"}, {u"听松", u"TS"}, {u"和煦", u"HX"}, {u"锦棠", u"JT"},
    {u"南枝", u"NZ"}, {u"澄湖", u"CH"}, {u"晴川", u"QC"}, {u"青禾", u"QH"}, {u"枫林", u"FL"},
    {u"兰庭", u"LT"}, {u"翠屏", u"CP"}, {u"银杏", u"YX"}, {u"朗月", u"LY"}, {u"星湾", u"XW"},
    {u"丽水", u"LS"}, {u"金穗", u"JS"}, {u"芳草", u"FC"}, {u"天悦", u"TY"}, {u"凌波", u"LB"},
    {u"怡景", u"YJ"}, {u"紫荆", u"ZJ"}, {u"东篱", u"DL"}, {u"鹿鸣", u"LM"},
};

constexpr NamePart homeSuffixes[] = {{u"花园", u"HY"}, {u"苑", u"Y"},    {u"雅居", u"YJ"},
                                     {u"名邸", u"MD"}, {u"公寓", u"GY"}, {u"新村", u"XC"}};
constexpr NamePart officeSuffixes[] = {{u"大厦", u"DS"}, {u"广场", u"GC"}, {u"中心", u"ZX"}};

/// How a kind of building is built.
struct Kind
{
    QStringView use;
    QStringView type;
    int share; ///< of a hundred buildings
    int fewestFloors;
    int mostFloors;
    int mostBlocks;
    double priceFactor;
};

constexpr Kind kinds[] = {
    {u"住宅", u"高层", 36, 18, 33, 8, 1.05}, {u"住宅", u"小高层", 24, 9, 14, 8, 1.0},
    {u"住宅", u"多层", 22, 6, 7, 10, 0.85},  {u"住宅", u"别墅", 6, 3, 3, 12, 1.9},
    {u"写字楼", u"高层", 7, 20, 32, 2, 1.1}, {u"商铺", u"商住楼", 5, 4, 8, 3, 1.6},
};

const Kind &pickKind(Random &random)
{
    int left = random.between(0, 99);
    for (const Kind &kind : kinds) {
        left -= kind.share;
        if (left < 0)
            return kind;
    }
    return kinds[0];
}

double rounded(double number, double digits)
{
    return static_cast<double>(qRound64(number * digits)) / digits;
}

std::vector<Quarter> writeDistricts(db::Connection &connection)
{
    TableWriter writer(connection, u"pdmdq"_s, u"地区ID,编码,地区,级次,是否明细");
    std::vector<Quarter> quarters;
    int id = 1;
    writer.row({id, u"01", cityName, 1, 0});
    int wardNumber = 0;
    for (const Ward &ward : wards) {
        const QString code = u"01%1"_s.arg(++wardNumber, 2, 10, QLatin1Char('0'));
        writer.row({++id, code, ward.name, 2, 0});
        int number = 0;
        for (const QStringView name : ward.quarters) {
            writer.row({++id, code + u"%1"_s.arg(++number, 2, 10, QLatin1Char('0')), name, 3, 1});
            quarters.push_back({id, name.toString(), ward.price * (1.15 - 0.1 * number)});
        }
    }
    writer.flush();
    return quarters;
}

/// A block is named without the word for it, which every screen and paper puts behind the name.
std::vector<Block> makeBlocks(const Kind &kind, int &lastId, Random &random)
{
    std::vector<Block> blocks;
    const int count = random.between(1, kind.mostBlocks);
    for (int number = 1; number <= count; ++number)
        blocks.push_back(
            {++lastId, QString::number(number), random.between(kind.fewestFloors, kind.mostFloors)});
    return blocks;
}

void writeBlocks(TableWriter &writer, const Building &building)
{
    for (size_t at = 0; at < building.blocks.size(); ++at) {
        const Block &block = building.blocks[at];
        writer.row({block.id, u"%1-%2"_s.arg(building.id, 3, 10, QLatin1Char('0')).arg(at + 1), block.name,
                    block.floors, building.id});
    }
}

/// Two buildings a name, told apart by what stands behind it.
QString nameOf(size_t index, const Kind &kind, QString &initials)
{
    const NamePart &front = buildingNames[(index / 2) % std::size(buildingNames)];
    const NamePart &back = kind.use == u"住宅" ? homeSuffixes[(index % 2) * 3 + (index / 2) % 3]
                                               : officeSuffixes[index % std::size(officeSuffixes)];
    initials = u"%1%2"_s.arg(front.initials, back.initials);
    return u"%1%2"_s.arg(front.text, back.text);
}

Building makeBuilding(size_t index, const Quarter &quarter, const Kind &kind, int &lastBlockId,
                      Random &random)
{
    Building building;
    building.id = static_cast<int>(index) + 1;
    building.quarter = quarter;
    building.use = kind.use;
    building.type = kind.type;
    building.year = QString::number(random.between(1996, 2023));
    building.price = rounded(quarter.price * kind.priceFactor * random.between(0.85, 1.15), 100);
    building.fee = rounded(random.between(0.6, 4.5), 10);
    building.blocks = makeBlocks(kind, lastBlockId, random);
    return building;
}

} // namespace

std::vector<Building> writePlaces(db::Connection &connection, Random &random)
{
    const std::vector<Quarter> quarters = writeDistricts(connection);
    TableWriter writer(
        connection, u"pdmlpzd"_s,
        u"楼盘ID,楼盘编号,楼盘名称,拼音缩写,地区ID,物业用途,物业类型,建房年代,售均价,管理费,详细地址");
    TableWriter blockWriter(connection, u"pdmdz"_s, u"栋座ID,栋座编号,栋座名称,总楼层,楼盘ID");
    std::vector<Building> buildings;
    int lastBlockId = 0;
    for (size_t index = 0; index < 2 * std::size(buildingNames); ++index) {
        const Kind &kind = pickKind(random);
        Building building = makeBuilding(index, random.pick(quarters), kind, lastBlockId, random);
        QString initials;
        building.name = nameOf(index, kind, initials);
        writer.row({building.id, u"LP%1"_s.arg(building.id, 3, 10, QLatin1Char('0')), building.name, initials,
                    building.quarter.id, building.use, building.type, building.year, building.price,
                    building.fee, u"%1路%2号"_s.arg(building.quarter.name).arg(random.between(1, 399))});
        writeBlocks(blockWriter, building);
        buildings.push_back(std::move(building));
    }
    writer.flush();
    blockWriter.flush();
    return buildings;
}

} // namespace ebtq::host
