#include "library/listings/listing_matching.h"

#include "library/frame/statements.h"
#include "library/matching/match_bounds.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr MatchBound bounds[] = {
    {u"楼层", u" and 楼层1<="},         {u"楼层", u" and 楼层2>="},
    {u"总面积", u" and 面积1<="},       {u"总面积", u" and 面积2>="},
    {u"售房价格", u" and 求购价格1<="}, {u"售房价格", u" and 求购价格2>="},
    {u"租房价格", u" and 求租价格1<="}, {u"租房价格", u" and 求租价格2>="},
};

} // namespace

SqlText measuresStatement(const QString &listing)
{
    return SqlText(
               u"select '【' & 楼盘字典 & 栋座位置 & 房号 & '】' & 房型_房 & '房' as A0,"
               u" iif(instr(1,交易方式,'售')>0,' 售' & 售房价格 & '万元','') &"
               u" iif(instr(1,交易方式,'租')>0,' 租' & 租房价格 & '元/月','') as A1,"
               u"业主 & ' ' & A.手机 as A2,A.备注 as A3,C.mtname & ' ' & B.username & '[' & 委托日期 "
               u"&'委托]' "
               u"as A4,"
               u"楼层,总面积,售房价格,租房价格 from (fyxx A left join su_membership B on A.用户ID=B.userID)"
               u" left join su_usertype C on B.UserTypeID=C.mtID where 房源ID="_s) +
           quoted(listing);
}

SqlText matchingCustomersStatement(const DetailRecord &listing)
{
    SqlText sql(
        u"select iif(方式=1,'求购',iif(方式=2,'求租',iif(方式=3,'购租',''))),iif(状态=0,'有效','失效'),"
        u"客源编号 as 委托编号,客户名称,地区 as 需求片区,楼层1 & '-' & 楼层2 as 需求楼层,"
        u"面积1 & '-' & 面积2 as 需求面积,求购价格1 & '-' & 求购价格2 as 需求购价格,"
        u"求租价格1 & '-' & 求租价格2 as 需求租价格,需求户型 as  需求房型,委托日期,C.mtname as 部门,"
        u"B.username as 业务员 from (fykh A left join su_membership B on A.用户ID=B.userID)"
        u" left join su_usertype C on B.UserTypeID=C.mtID where 1=1"_s);
    addBounds(sql, listing, bounds);
    sql += QStringView(u" order by 客源编号");
    return sql;
}

SqlText listingCountStatement(const QString &listing)
{
    return SqlText(u"select "_s) + matchCount(u"fykh", bounds) +
           QStringView(u",(select count(*) from fygj where 房源ID=A.房源ID) from fyxx A where 房源ID=") +
           quoted(listing);
}

} // namespace ebtq
