#include "host/demo/dictionaries.h"

#include "host/demo/table_writer.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

struct Kind
{
    QStringView name;
    std::span<const QStringView> entries;
};

constexpr Kind kinds[] = {
    {u"物业用途", words::uses},
    {u"物业类型", words::buildingTypes},
    {u"房屋朝向", words::orientations},
    {u"交易类型", words::deals},
    {u"交易状态", words::states},
    {u"包税费类型", words::taxes},
    {u"委托方式", words::commissions},
    {u"房屋来源", words::sources},
    {u"房屋现状", words::conditions},
    {u"装修程度", words::decorations},
    {u"配套设施", words::facilities},
    {u"家具配置", words::furniture},
    {u"家电配置", words::appliances},
    {u"证件名称", words::certificates},
    {u"付款方式", words::payments},
    {u"付佣金方式", words::fees},
    {u"看房方式", words::viewings},
    {u"国籍", words::nationalities},
    {u"委托等级", words::grades},
    {u"房源备注", words::listingRemarks},
    {u"业主联系备注", words::ownerRemarks},
};

constexpr HouseType types[] = {
    {2, 2, 1, 1, 75, 95},   {3, 2, 2, 1, 105, 135}, {2, 1, 1, 1, 58, 80},   {3, 2, 1, 1, 88, 110},
    {1, 1, 1, 1, 42, 60},   {1, 1, 1, 0, 32, 48},   {3, 1, 1, 1, 82, 100},  {3, 2, 2, 2, 115, 145},
    {4, 2, 2, 2, 135, 175}, {1, 0, 1, 0, 25, 36},   {4, 2, 3, 2, 160, 220}, {5, 2, 3, 2, 190, 300},
    {6, 3, 4, 3, 260, 420},
};

constexpr PropertyRight rights[] = {
    {u"商品房", u"不动产权证", u"按揭", u"双方各付"}, {u"房改房", u"房产证", u"一次性", u"买方付"},
    {u"集资房", u"房产证", u"一次性", u"买方付"},     {u"经济适用房", u"房产证", u"公积金", u"双方各付"},
    {u"安置房", u"安置协议", u"一次性", u"买方付"},   {u"期房", u"购房合同", u"分期", u"双方各付"},
};

QString code(size_t index)
{
    return u"%1"_s.arg(index + 1, 2, 10, QLatin1Char('0'));
}

void writeKinds(db::Connection &connection)
{
    TableWriter writer(connection, u"pdmsjzd"_s, u"类型,代码,名称");
    for (const Kind &kind : kinds) {
        for (size_t at = 0; at < kind.entries.size(); ++at)
            writer.row({kind.name, code(at), kind.entries[at]});
    }
    writer.flush();
}

void writeHouseTypes(db::Connection &connection)
{
    TableWriter writer(connection, u"pdmfx"_s, u"房型ID,房型编号,房型名称,房间数,客厅数,卫生间数,阳台数");
    int id = 0;
    for (const HouseType &type : types) {
        writer.row({id + 1, code(static_cast<size_t>(id)), houseTypeName(type), type.rooms, type.halls,
                    type.baths, type.balconies});
        ++id;
    }
    writer.flush();
}

void writePropertyRights(db::Connection &connection)
{
    TableWriter writer(connection, u"pdmcq"_s, u"产权ID,产权编号,产权名称,证件名称,付款方式,付佣金方式");
    int id = 0;
    for (const PropertyRight &right : rights) {
        writer.row(
            {id + 1, code(static_cast<size_t>(id)), right.name, right.certificate, right.payment, right.fee});
        ++id;
    }
    writer.flush();
}

} // namespace

std::span<const HouseType> houseTypes()
{
    return types;
}

QString houseTypeName(const HouseType &type)
{
    static constexpr QStringView numerals[] = {u"无", u"一", u"二", u"三", u"四", u"五", u"六"};
    return u"%1房%2厅%3卫%4阳台"_s.arg(numerals[type.rooms], numerals[type.halls], numerals[type.baths],
                                       numerals[type.balconies]);
}

std::span<const PropertyRight> propertyRights()
{
    return rights;
}

void writeDictionaries(db::Connection &connection)
{
    writeKinds(connection);
    writeHouseTypes(connection);
    writePropertyRights(connection);
}

} // namespace ebtq::host
