#include "library/customers/customer_matching.h"

#include "library/frame/statements.h"
#include "library/matching/match_bounds.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr MatchBound bounds[] = {
    {u"楼层1", u" and val(楼层)>="},    {u"楼层2", u" and val(楼层)<="},
    {u"面积1", u" and 总面积>="},       {u"面积2", u" and 总面积<="},
    {u"求购价格1", u" and 售房价格>="}, {u"求购价格2", u" and 售房价格<="},
    {u"求租价格1", u" and 租房价格>="}, {u"求租价格2", u" and 租房价格<="},
};

} // namespace

SqlText requestStatement(const QString &customer)
{
    return SqlText(u"select A.*,C.mtname as 部门,D.姓名 as 业务员 from ((fykh A left join su_membership B"
                   u" on A.用户ID=B.userID) left join su_usertype C on B.UserTypeID=C.mtID)"
                   u" left join pdmgy D on A.业务员ID=D.雇员ID where 客源ID="_s) +
           quoted(customer);
}

SqlText matchingListingsStatement(const DetailRecord &customer)
{
    SqlText sql(
        u"select 房源编号,交易方式  as 交易,地区 as 城区,楼盘字典,栋座位置 as 栋座,房号,楼层,"
        u"房型_房 & '-' & 房型_厅 & '-' & 房型_卫 & '-' & 房型_阳台 as 房型,总面积 as 面积,朝向,"
        u"售房价格 & '万元' as 售总价,租房价格 & '元/月' as 租总价,委托日期 as 委托日,C.mtname as 部门,"
        u"D.姓名 as 业务员 from ((fyxx A left join su_membership B on A.用户ID=B.userID)"
        u" left join su_usertype C on B.UserTypeID=C.mtID) left join pdmgy D on A.业务员ID=D.雇员ID where "
        u"1=1"_s);
    addBounds(sql, customer, bounds);
    sql += QStringView(u" order by 房源编号");
    return sql;
}

SqlText customerCountStatement(const QString &customer)
{
    return SqlText(u"select "_s) + matchCount(u"fyxx", bounds) +
           QStringView(u",(select count(*) from fygj where 房源ID=A.客源ID) from fykh A where 客源ID=") +
           quoted(customer);
}

} // namespace ebtq
