#include "library/listings/fcxx_list.h"

namespace ebtq {

const ListGrid &listingGrid()
{
    static constexpr int hidden[] = {ListingKey, ListingAttachments, ListingBlock, ListingRoom};
    static constexpr ListGrid grid{.format = u" |房源编号  |交易  |状态  |城区                |楼盘字典      "
                                             u"  |栋座    |房号  |楼层|附属房        "
                                             u"  |房型    |面积      |朝向|装修  |售总价    |租总价    "
                                             u"|委托日      |部门  |经纪人|房源ID|附件",
                                   .fixedColumns = 0,
                                   .hiddenColumns = hidden,
                                   .toolTip = u"提示：双击进入原始单据查询"};
    return grid;
}

namespace {

/// The statement up to its where clause; `floors` names the column of the floors, which has no name in the
/// list.
SqlText listingSelect(int moduleId, QStringView floors)
{
    QString sql = QStringLiteral(
        "select '',房源编号,交易方式  as 交易,交易状态 as 状态,地区 as 城区,楼盘字典,栋座位置 as 栋座,房号,"
        "楼层 & '/' & 总楼层");
    sql += floors;
    sql += QStringView(
        u", 附属房,"
        u"房型_房 & '房' & 房型_厅 & '厅' & 房型_卫 & '卫' & 房型_阳台 &'阳台' as 房型,"
        u"总面积 as 面积,朝向,装修,售房价格 & '万元' as 售总价,租房价格 & '元/月' as 租总价,委托日期 as "
        u"委托日,"
        u"C.mtname as 部门,D.姓名 as 业务员,房源ID"
        u",(select count(rowindex) from pubAttach where isActive=1 and isPicture<>1 and progID=");
    sql += QString::number(moduleId);
    sql += QStringView(u" and ids=A.房源ID) as 附件"
                       u" from ((fyxx A left join su_membership B on A.用户ID=B.userID)"
                       u" left join su_usertype C on B.UserTypeID=C.mtID)"
                       u" left join pdmgy D on A.业务员ID=D.雇员ID");
    return sql;
}

} // namespace

SqlText listingStatement(int moduleId, const SqlText &where)
{
    return listingSelect(moduleId, {}) + where + QStringLiteral(" order by 房源编号 desc");
}

SqlText listingRowStatement(int moduleId, const QString &listing)
{
    return listingSelect(moduleId, u" as 楼层1") + QStringLiteral(" where 房源ID='") + typed(listing) +
           QStringLiteral("'");
}

} // namespace ebtq
