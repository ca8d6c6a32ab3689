#include "host/demo/dictionaries.h"

#include "host/start/standard_lists.h"

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

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
    (void)writeStandardLists(connection, readStandardLists(builtInStandardLists()));
}

} // namespace ebtq::host
