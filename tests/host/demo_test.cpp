#include "host/demo/demo.h"

#include "host/bill_numbers.h"
#include "host/users.h"

#include <gtest/gtest.h>

namespace ebtq::test {

namespace {

using db::Connection;

const QDate today(2026, 11, 24);

host::DemoOptions options(quint64 seed)
{
    host::DemoOptions options;
    options.listings = 600;
    options.customers = 150;
    options.followUps = 400;
    options.seed = seed;
    options.today = today;
    options.passwordCost = host::PasswordCost::lowest();
    return options;
}

std::unique_ptr<Connection> demo(quint64 seed = 1)
{
    auto connection = Connection::open(u":memory:"_qs);
    host::writeDemo(*connection, options(seed));
    return connection;
}

/// One database for the tests that only read.
Connection &sample()
{
    static const std::unique_ptr<Connection> connection = demo();
    return *connection;
}

int count(Connection &connection, const QString &tablesAndCondition)
{
    return connection.query(u"select count(*) from "_qs + tablesAndCondition).value(0, 0).toInt();
}

} // namespace

TEST(DemoTest, SameSeedAndDateGiveTheSameRows)
{
    const auto again = demo();
    const auto other = demo(2);
    for (const QString &table :
         {u"fyxx"_qs, u"fykh"_qs, u"fygj"_qs, u"pdmlpzd"_qs, u"su_membership"_qs, u"pubAttach"_qs}) {
        const SqlText all(u"select * from %1 order by 1"_qs.arg(table));
        const RowBlock rows = sample().query(all);
        EXPECT_GT(rows.rowCount(), 0) << table.toStdString();
        EXPECT_TRUE(rows.arena() == again->query(all).arena()) << table.toStdString();
        EXPECT_FALSE(rows.arena() == other->query(all).arena()) << table.toStdString();
    }
}

TEST(DemoTest, RowsBelongTogetherAndAreBelievable)
{
    const char16_t *unbelievable[] = {
        u"fyxx where 楼盘ID not in(select 楼盘ID from pdmlpzd)",
        u"fyxx where 栋座ID not in(select 栋座ID from pdmdz)",
        u"fyxx where 地区ID not in(select 地区ID from pdmdq where 是否明细=1)",
        u"fyxx where 业务员ID not in(select 雇员ID from pdmgy)",
        u"fyxx where 用户ID not in(select userID from su_membership)",
        u"fykh where 地区ID not in(select 地区ID from pdmdq where 是否明细=1)",
        u"fygj where 房源ID not in(select 房源ID from fyxx) and 房源ID not in(select 客源ID from fykh)",
        u"pubAttach where IDs not in(select 房源ID from fyxx) or progID<>101",
        u"su_membership where UserTypeID not in(select mtID from su_usertype)",
        u"su_membership where userID not in(select userID from host_users)",
        u"(fyxx A left join pdmlpzd B on A.楼盘ID=B.楼盘ID) where A.楼盘字典<>B.楼盘名称 or "
        u"A.地区ID<>B.地区ID",
        u"(fyxx A left join pdmdz B on A.栋座ID=B.栋座ID) where A.栋座位置<>B.栋座名称 or A.楼盘ID<>B.楼盘ID",
        u"(fyxx A left join pdmgy B on A.业务员ID=B.雇员ID) where A.制单人<>B.姓名",
        u"fyxx where val(楼层)>val(总楼层) or val(楼层)<1",
        u"fyxx where 实用面积>=总面积",
        u"fyxx where 售房底价>售房价格 or 租房底价>租房价格",
        u"fyxx where 交易方式 like '%售%' and 售房价格<=0",
        u"fyxx where 交易方式='出租' and 售房价格<>0",
        u"fyxx where 操作日期>#2026-11-24# or 操作日期<制单日期 or 制单日期<#2025-5-24#",
        u"fyxx where 看房 like '%匙%' and 钥匙号=''",
        u"fyxx where 用途='住宅' and (房型_房=0 or 房型_卫=0)",
        u"fyxx where 用途<>'住宅' and (房型_房>0 or 现状='业主自住' or 产权<>'商品房' or 附属房<>'')",
        u"fyxx where 装修='毛坯' and (家具<>'无' or 家电<>'无' or 现状='业主自住')",
        u"fyxx where 交易方式='出租' and (备注 like '%出售%' or 备注 like '%税%' or 付佣='买方付')",
        u"fyxx where 交易状态='已租' and 现状<>'出租中'",
        u"fyxx where 产权='期房' or (产权 in('房改房','集资房') and val(建房年代)>2000)",
        u"fyxx where 附属房 in('阁楼','露台') and 楼层<>总楼层",
        u"fykh where 用途<>'住宅' and 需求户型<>''",
        u"fykh where 用途='住宅' and 需求户型 not in(select 房型名称 from pdmfx)",
        u"fykh where 方式=2 and 付款方式 not in('押一付三','半年付')",
        u"fykh where 方式=1 and 付款方式 in('押一付三','半年付')",
        u"fykh where 面积1>=面积2 or 求购价格1>求购价格2 or 求租价格1>求租价格2",
        u"fykh where (方式=1 and 求租价格2<>0) or (方式=2 and 求购价格2<>0)",
        u"fygj where 操作日期>#2026-11-24#",
        u"fygj where 下次提醒=1 and 提醒日期 is null",
        u"fyxx where 朝向 not in(select 名称 from pdmsjzd where 类型='房屋朝向')",
        u"fyxx where 交易状态 not in(select 名称 from pdmsjzd where 类型='交易状态')",
    };
    for (const char16_t *rows : unbelievable)
        EXPECT_EQ(count(sample(), QString::fromUtf16(rows)), 0) << QString::fromUtf16(rows).toStdString();
    EXPECT_EQ(count(sample(), u"fyxx"_qs), 600);
    EXPECT_EQ(count(sample(), u"fykh"_qs), 150);
    EXPECT_EQ(count(sample(), u"fygj"_qs), 400);
    EXPECT_GT(count(sample(), u"fygj where 下次提醒=1 and 处理结果=''"_qs), 0);
}

TEST(DemoTest, NumbersAreUniqueAndGoOnFromTheLast)
{
    const RowBlock numbers = sample().query(u"select distinct 房源编号 from fyxx"_qs);
    EXPECT_EQ(numbers.rowCount(), 600);
    const QString next = host::previewBillCode(sample(), 101, today);
    EXPECT_EQ(count(sample(), u"fyxx where 房源编号>='%1' and 房源编号 like 'FY202611%'"_qs.arg(next)), 0);
    EXPECT_GT(next, u"FY2026110001"_qs);
}

} // namespace ebtq::test
