// The list of listings on a real database: what the rows say, not what the statement says.

#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using ebtq::test::FcxxTest;

namespace {

/// Now is 2026-11-25. U3 is in two departments, U2 in none.
class FcxxDatabaseTest : public FcxxTest
{
protected:
    FcxxDatabaseTest()
    {
        insert({u"su_usertype (mtID,mtcode,mtname) values (2,'02','营业二部')",
                u"su_membership (userID,UserTypeID,username) values ('U3',1,'王芳')",
                u"su_membership (userID,UserTypeID,username) values ('U3',2,'王芳')",
                u"pubAttach (progID,IDs,filename,isActive,isPicture) values (101,'FY1','f',1,0)",
                u"pubAttach (progID,IDs,filename,isActive,isPicture) values (101,'FY1','deleted',0,0)",
                u"pubAttach (progID,IDs,filename,isActive,isPicture) values (101,'FY1','picture',1,1)",
                u"pubAttach (progID,IDs,filename,isActive,isPicture) values (102,'FY2','f',1,0)"});
        for (const char16_t *values :
             {u"'FY1','U1',5,'天河区','翠堤雅居',3,2,2,1,'出售','有效',#2026-11-25 08:00:00#",
              u"'FY2','U1',6,'海珠区','东湖名苑',1,1,1,0,'出租','有效',#2026-11-22#",
              u"'FY3','U2',5,'天河区','香樟里',3,2,2,1,'售租','已成交',#2026-11-22 00:00:01#",
              u"'FY4','U3',7,'天河区','翠堤雅居',2,1,1,1,'转让','有效',#2025-1-1#",
              u"'FY5','',0,'天河 区','Palm Court',0,0,0,0,'','',#2026-11-18#"})
            connection->execute(
                u"insert into fyxx (房源ID,房源编号,用户ID,业务员ID,地区,楼盘字典,房型_房,房型_厅,房型_卫,"
                u"房型_阳台,交易方式,交易状态,操作日期,楼层,总楼层,总面积,售房价格,租房价格) values "
                u"(%1,%2,'21','33',91,586.5,0)"_qs.arg(QString::fromUtf16(values).left(5),
                                                       QString::fromUtf16(values)));
        init();
    }
    void type(int number, const QString &text, const QVariant &value = {})
    {
        list.qzTxt(number).setText(text);
        list.qzTxt(number).setValue(value);
    }
    [[nodiscard]] QString numbers() { return inSight().join(QString()).remove(u"FY"_qs); }
};

TEST_F(FcxxDatabaseTest, RowsShowAsTheyAreToBeRead)
{
    ASSERT_TRUE(refresh());
    EXPECT_EQ(numbers(), u"544321"_qs) << "a user in two departments gives two rows, one in none still one";
    EXPECT_EQ(rowText(6), u"|FY1|出售|有效|天河区|翠堤雅居|||21/33||3房2厅2卫1阳台|91|||586.5万元|0元/月||"
                          u"营业一部|李强|FY1|1"_qs);
    EXPECT_EQ(list.VS().CellPicture(6, 0), u"mail-attachment"_qs);
    EXPECT_EQ(list.VS().CellPicture(5, 0), QString()) << "attachments of another module";
    EXPECT_EQ(list.VS().TextMatrix(1, 17), QString());
}

TEST_F(FcxxDatabaseTest, FiltersByTable)
{
    const std::tuple<const char *, std::function<void()>, QString> cases[] = {
        {"district", [&] { type(0, u" 天河区"_qs); }, u"4431"_qs},
        {"district with a blank inside", [&] { type(0, u"天河 区"_qs); }, u"5"_qs},
        {"a wildcard is a letter like any other", [&] { type(0, u"天河%"_qs); }, QString()},
        {"text compares without regard to case", [&] { type(7, u"PALM court"_qs); }, u"5"_qs},
        {"rooms", [&] { type(1, u"3-2-2-1"_qs); }, u"31"_qs},
        {"state", [&] { type(3, u"有效"_qs); }, u"4421"_qs},
        {"department of a user in two shows both rows", [&] { type(4, u"营业二部"_qs, u"2"_qs); }, u"44"_qs},
        {"department typed but not looked up", [&] { type(4, u"营业一部"_qs); }, QString()},
        {"agent", [&] { type(5, u"李强"_qs, 5); }, u"31"_qs},
        {"agent typed but not looked up is number 0", [&] { type(5, u"李强"_qs); }, u"5"_qs},
        {"for sale", [&] { list.Chk(0).setValue(1); }, u"31"_qs},
        {"for rent", [&] { list.Chk(1).setValue(1); }, u"32"_qs},
        {"a window begins behind midnight of its day", [&] { list.XPCmb().setText(u"三天内"_qs); }, u"31"_qs},
        {"the caption of ten days is no window", [&] { list.XPCmb().setText(u"十天内"_qs); }, u"544321"_qs},
    };
    for (const auto &[why, set, rows] : cases) {
        for (const int number : {0, 1, 3, 4, 5, 7})
            type(number, {});
        list.Chk(0).setValue(0);
        list.Chk(1).setValue(0);
        list.XPCmb().setText({});
        set();
        EXPECT_TRUE(refresh()) << why;
        EXPECT_EQ(numbers(), rows) << why;
        EXPECT_EQ(events.last(), u"message 共加载%1条记录"_qs.arg(rows.size())) << why;
    }
}

TEST_F(FcxxDatabaseTest, NoTextChangesWhatTheStatementDoes)
{
    for (const int field : {0, 1, 3, 7}) {
        for (const QString &attack : {u"O'Hara"_qs, u"x' or '1'='1"_qs, u"x';delete from fyxx"_qs}) {
            type(field, attack);
            EXPECT_FALSE(refresh()) << attack.toStdString();
            EXPECT_EQ(list.VS().Rows(), 1) << attack.toStdString();
            EXPECT_EQ(list.qzTxt(field).Text(), attack);
        }
        type(field, {});
        EXPECT_TRUE(refresh());
        EXPECT_EQ(numbers(), u"544321"_qs);
    }
}

} // namespace
