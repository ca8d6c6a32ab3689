#include "benched_list.h"

#include "host/module_ids.h"
#include "library/customers/khxx.h"
#include "library/listings/fcxx.h"

#include <iostream>
#include <stdexcept>

namespace ebtq::bench {

namespace {

bool isOfCustomers(const Options &options)
{
    return options.module == QStringLiteral("customers");
}

QByteArray listingsForSqlite(int moduleId)
{
    return "select '', 房源编号, 交易方式, 交易状态, 地区, 楼盘字典, 栋座位置, 房号,"
           " ifnull(楼层,'')||'/'||ifnull(总楼层,''), 附属房,"
           " ifnull(房型_房,'')||'房'||ifnull(房型_厅,'')||'厅'||ifnull(房型_卫,'')||'卫'||ifnull(房型_阳台,'"
           "')||'阳台',"
           " 总面积, 朝向, 装修, ifnull(售房价格,'')||'万元', ifnull(租房价格,'')||'元/月', 委托日期, "
           "C.mtname, D.姓名, 房源ID, coalesce(E.n,0)"
           " from fyxx A left join su_membership B on A.用户ID=B.userID"
           " left join su_usertype C on B.UserTypeID=C.mtID"
           " left join pdmgy D on A.业务员ID=D.雇员ID"
           " left join (select IDs, count(rowIndex) as n from pubAttach"
           " where isActive=1 and isPicture<>1 and progID=" +
           QByteArray::number(moduleId) +
           " group by IDs) E on E.IDs=A.房源ID"
           " order by 房源编号 desc";
}

/// The fastest statement that was found. Attachments are counted once and joined. The order is that of the
/// column, but on a text, of which each row's lower case is made once: with a join by hashing in between the
/// server must sort.
QByteArray listingsForServer(int moduleId)
{
    return "select '', 房源编号, 交易方式, 交易状态, 地区, 楼盘字典, 栋座位置, 房号,"
           " coalesce(楼层,'')||'/'||coalesce(总楼层,''), 附属房,"
           " coalesce(房型_房::text,'')||'房'||coalesce(房型_厅::text,'')||'厅'||coalesce(房型_卫::text,'')||"
           "'卫'"
           "||coalesce(房型_阳台::text,'')||'阳台',"
           " 总面积, 朝向, 装修, coalesce(售房价格::text,'')||'万元', coalesce(租房价格::text,'')||'元/月', "
           "委托日期,"
           " C.mtname, D.姓名, \"房源ID\", coalesce(E.n,0)"
           " from fyxx A left join su_membership B on A.\"用户ID\"=B.\"userID\""
           " left join su_usertype C on B.\"UserTypeID\"=C.\"mtID\""
           " left join pdmgy D on A.\"业务员ID\"=D.\"雇员ID\""
           " left join (select \"IDs\", count(\"rowIndex\") as n from \"pubAttach\""
           " where \"isActive\"=1 and \"isPicture\"<>1 and \"progID\"=" +
           QByteArray::number(moduleId) +
           " group by \"IDs\") E on E.\"IDs\"=A.\"房源ID\""
           " order by lower(房源编号::text collate \"default\") collate \"C\" desc nulls last";
}

QByteArray customersForSqlite()
{
    return "select case 方式 when 1 then '求购' when 2 then '求租' when 3 then '购租' else '' end,"
           " case 状态 when 0 then '有效' else '失效' end, 客源编号, 客户名称, 地区,"
           " ifnull(面积1,'')||'-'||ifnull(面积2,''), ifnull(求购价格1,'')||'-'||ifnull(求购价格2,''),"
           " ifnull(求租价格1,'')||'-'||ifnull(求租价格2,''), 需求户型, 委托日期, C.mtname, D.姓名, 客源ID"
           " from fykh A left join su_membership B on A.用户ID=B.userID"
           " left join su_usertype C on B.UserTypeID=C.mtID"
           " left join pdmgy D on A.业务员ID=D.雇员ID order by 客源编号";
}

/// Ordered as the listings are, and for the same reason.
QByteArray customersForServer()
{
    return "select case 方式 when 1 then '求购' when 2 then '求租' when 3 then '购租' else '' end,"
           " case 状态 when 0 then '有效' else '失效' end, 客源编号, 客户名称, 地区,"
           " coalesce(面积1::text,'')||'-'||coalesce(面积2::text,''),"
           " coalesce(求购价格1::text,'')||'-'||coalesce(求购价格2::text,''),"
           " coalesce(求租价格1::text,'')||'-'||coalesce(求租价格2::text,''), 需求户型, 委托日期, C.mtname, "
           "D.姓名,"
           " \"客源ID\" from fykh A left join su_membership B on A.\"用户ID\"=B.\"userID\""
           " left join su_usertype C on B.\"UserTypeID\"=C.\"mtID\""
           " left join pdmgy D on A.\"业务员ID\"=D.\"雇员ID\""
           " order by lower(客源编号::text collate \"default\") collate \"C\" nulls first";
}

} // namespace

BenchedList::BenchedList(const Options &options, Agency &agency)
{
    isOfCustomers(options) ? makeCustomers(agency.desktop()) : makeListings(agency.desktop());
    QObject::connect(m_module.get(), &RecordList::ErrMessage, m_module.get(),
                     [](const QString &text) { std::cerr << qPrintable(text) << '\n'; });
    m_module->IReportUI_Init(agency.app(),
                             isOfCustomers(options) ? host::CustomerModule : host::ListingModule);
    m_module->IReportUI_DoGetFormStatus(agency.app().Session().AppPath() + QStringLiteral("/list.txt"));
    if (!m_module->IReportUI_Refresh())
        throw std::runtime_error("the list could not be loaded");
}

Options BenchedList::sized(Options options)
{
    if (isOfCustomers(options))
        options.customers = std::exchange(options.rows, options.rows / 4);
    return options;
}

void BenchedList::makeListings(Desktop &desktop)
{
    auto list = std::make_unique<Fcxx>(desktop);
    m_detail = &list->detail();
    m_matches = &list->detail().VsP();
    m_module = std::move(list);
    m_forSqlite = listingsForSqlite(host::ListingModule);
    m_forServer = listingsForServer(host::ListingModule);
}

void BenchedList::makeCustomers(Desktop &desktop)
{
    auto list = std::make_unique<khxx>(desktop);
    m_detail = &list->detail();
    m_matches = &list->detail().VsP();
    m_module = std::move(list);
    m_firstColumn = CustomerDeal;
    m_forSqlite = customersForSqlite();
    m_forServer = customersForServer();
}

} // namespace ebtq::bench
