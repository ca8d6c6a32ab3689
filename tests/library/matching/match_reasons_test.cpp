#include "library/matching/match_reasons.h"

#include "host/module_ids.h"
#include "library/customers/customer_matching.h"
#include "library/customers/khxx.h"
#include "library/listings/fcxx.h"
#include "library/listings/listing_matching.h"
#include "library/support/agency_test.h"
#include "library/support/grids.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

class MatchReasonsTest : public AgencyTest
{
protected:
    MatchReasonsTest()
    {
        insert(u"fyxx (房源ID,房源编号,楼层,总面积,售房价格,租房价格)"_qs,
               {u"'L1','FY1','8',90,200,0", u"'L2','FY2','8',90,320,0", u"'L3','FY3','底层',120,200,0",
                u"'L4','FY4','9',null,250,null"});
        insert(u"fykh (客源ID,客源编号,客户名称,电话,楼层1,楼层2,面积1,面积2,求购价格1,求购价格2)"_qs,
               {u"'C1','KY1','秘密','138',5,0,80,100,0,300", u"'C2','KY2','秘密','138',5,10,80,100,150,190",
                u"'C3','KY3','秘密','138',null,null,null,null,null,null"});
    }
    template<class List> void open(List &list, int moduleId)
    {
        QObject::connect(&list, &List::ErrMessage, [this](const QString &text) { events += text; });
        ASSERT_TRUE(list.IReportUI_Init(app, moduleId));
        ASSERT_TRUE(list.IReportUI_Refresh());
    }
    /// The cells with "," between them, the rows with "|".
    static QString text(const VSFlexGrid &grid)
    {
        return rowTexts(grid).join(u'\n').replace(u'|', u',').replace(u'\n', u'|');
    }
    /// What the panel holds: title, criteria, near misses, remark.
    template<class List> QStringList shown(List &list)
    {
        QStringList result;
        desktop.willShow([&](QObject &form) {
            auto &reasons = *qobject_cast<MatchReasons *>(&form);
            result = {reasons.title(), text(reasons.criteria()), text(reasons.misses()), reasons.remark()};
        });
        list.detail().showReasons();
        return result;
    }
};

TEST_F(MatchReasonsTest, OfACustomer)
{
    khxx list{desktop};
    open(list, host::CustomerModule);
    EXPECT_EQ(shown(list),
              QStringList({u"KY1：共 4 套房源，全部符合 1"_qs,
                           u"楼层 ≥ 5 层,3,1|楼层上限：未设,,|面积 ≥ 80 ㎡,3,1|面积 ≤ 100 ㎡,2,1|"
                           u"售价下限：未设,,|售价 ≤ 300 万元,3,2|租价下限：未设,,|租价上限：未设,,"_qs,
                           u"FY2,,---,8,90,320,0,售价 320 > 300"_qs, QString()}));
    list.VS().setRow(3);
    const QStringList unset = shown(list);
    EXPECT_EQ(unset[0] + unset[2] + unset[3], u"KY3：共 4 套房源，全部符合 4没有只差一项的记录。");

    desktop.willAnswer(Desktop::Answer::Ok);
    desktop.willAnswer(Desktop::Answer::Ok);
    connection->execute(u"delete from fykh where 客源ID='C3'"_qs);
    list.detail().showReasons();
    list.VS().setRows(1);
    list.detail().showReasons();
    EXPECT_EQ(asked(), QStringList({u"提示:|这条记录已被他人删除，请刷新列表！"_qs,
                                    u"提示:|请先在列表中选择一条记录！"_qs}));
    EXPECT_EQ(events, QStringList());
}

TEST_F(MatchReasonsTest, TheCountsOfTheTabsAreWhatTheTabsList)
{
    insert(u"fykh (客源ID,客源编号,楼层1,楼层2,面积1,面积2,求购价格1,求购价格2)"_qs,
           {u"'C4','KY4',5,10,80,100,150,300", u"'C5','KY5',0,0,0,0,0,0", u"'C6','KY6',0,20,0,200,0,400"});
    insert({u"fygj (跟进ID,房源ID) values ('G1','C4')"});
    const auto rowCount = [&](const SqlText &sql) { return connection->query(sql).rowCount(); };
    const auto counted = [&](const SqlText &sql) { return connection->query(sql).value(0, 0).toLongLong(); };
    QString counts;
    for (const QString &id : u"L1 L2 L3 L4"_qs.split(u' ')) {
        const DetailRecord measures(connection->query(measuresStatement(id)));
        EXPECT_EQ(counted(listingCountStatement(id)), rowCount(matchingCustomersStatement(measures)));
        counts += QString::number(counted(listingCountStatement(id)));
    }
    for (const QString &id : u"C1 C2 C3 C4 C5 C6"_qs.split(u' ')) {
        const DetailRecord request(connection->query(requestStatement(id)));
        EXPECT_EQ(counted(customerCountStatement(id)), rowCount(matchingListingsStatement(request)));
        counts += QString::number(counted(customerCountStatement(id)));
    }
    EXPECT_EQ(counts, u"2112104143");
    EXPECT_EQ(connection->query(customerCountStatement(u"C4"_qs)).value(0, 1).toInt(), 1);
}

TEST_F(MatchReasonsTest, OfAListing)
{
    Fcxx list{desktop};
    open(list, host::ListingModule);
    list.VS().setRow(4);
    const QStringList reasons = shown(list);
    EXPECT_EQ(reasons[0], u"FY1：共 3 位客户，全部符合 0");
    EXPECT_TRUE(reasons[1].startsWith(u"客户的楼层下限 ≤ 8 层,2,0|客户的楼层上限 ≥ 8 层,1,1|"))
        << reasons[1].toStdString();
    EXPECT_EQ(reasons[2], u"KY1,,,5-0,80-100,0-300,-,楼层 8 > 0（未设）|"
                          u"KY2,,,5-10,80-100,150-190,-,售价 200 > 190");
    for (int more = 0; more <= MatchReasons::mostMisses; ++more)
        connection->execute(u"insert into fykh(客源ID,客源编号,楼层1,楼层2,面积1,面积2,求购价格1,求购价格2) "
                            u"values('X%1','X%1',5,10,80,100,0,100)"_qs.arg(more));
    EXPECT_EQ(shown(list)[3], u"只列出前 200 条。");
    connection->executeNative("alter table fykh rename to x");
    list.detail().showReasons();
    EXPECT_EQ(events.size(), 1);
}

} // namespace
