// The list of listings on a real database: what the rows say, not what the statement says.

#include "database/schema/installer.h"
#include "host/application.h"
#include "host/users.h"
#include "library/listings/fcxx.h"
#include "support/scripted_desktop.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace ebtq;

namespace {

constexpr int moduleId = 101;

class NoPanels : public host::PanelPresenter
{
public:
    std::optional<qsizetype> choose(const host::Panel &panel) override
    {
        ADD_FAILURE() << "nobody asked for " << panel.title.toStdString();
        return std::nullopt;
    }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }
};

struct Listing
{
    const char16_t *number;
    const char16_t *user; ///< GUID of who entered it; in no, one or two departments
    int agent;
    const char16_t *district;
    const char16_t *building;
    const char16_t *rooms; ///< columns 房, 厅, 卫, 阳台
    const char16_t *trade;
    const char16_t *state;
    const char16_t *changed; ///< operation date
};

/// Today is 2026-11-22.
constexpr Listing listings[] = {
    {u"FY1", u"U1", 5, u"天河区", u"翠堤雅居", u"3,2,2,1", u"出售", u"有效", u"2026-11-22 08:00:00"},
    {u"FY2", u"U1", 6, u"海珠区", u"东湖名苑", u"1,1,1,0", u"出租", u"有效", u"2026-11-19"},
    {u"FY3", u"U2", 5, u"天河区", u"香樟里", u"3,2,2,1", u"售租", u"已成交", u"2026-11-19 00:00:01"},
    {u"FY4", u"U3", 7, u"天河区", u"翠堤雅居", u"2,1,1,1", u"转让", u"有效", u"2025-1-1"},
    {u"FY5", u"", 0, u"天河 区", u"Palm Court", u"0,0,0,0", u"", u"", u"2026-11-15"},
};

class FcxxDatabaseTest : public ::testing::Test
{
protected:
    FcxxDatabaseTest()
    {
        db::install(*connection);
        for (const char16_t *row : {u"su_usertype (mtID,mtcode,mtname) values (1,'01','营业一部')",
                                    u"su_usertype (mtID,mtcode,mtname) values (2,'02','营业二部')",
                                    u"su_membership (userID,UserTypeID,username) values ('U1',1,'张敏')",
                                    u"su_membership (userID,UserTypeID,username) values ('U3',1,'王芳')",
                                    u"su_membership (userID,UserTypeID,username) values ('U3',2,'王芳')",
                                    u"pdmgy (雇员ID,姓名) values (5,'李强')"})
            insert(QString::fromUtf16(row));
        for (const Listing &listing : listings)
            add(listing);
        addAttachment(u"ID-FY1"_qs, moduleId, 1, 0);
        addAttachment(u"ID-FY1"_qs, moduleId, 0, 0); // deleted
        addAttachment(u"ID-FY1"_qs, moduleId, 1, 1); // a picture
        addAttachment(u"ID-FY2"_qs, 102, 1, 0);      // of another module
        QObject::connect(&list, &Fcxx::Message, [this](const QString &text) { message = text; });
        QObject::connect(&list, &Fcxx::ErrMessage,
                         [this](const QString &text, int, const QString &) { errors.append(text); });
        EXPECT_TRUE(list.IReportUI_Init(app, moduleId));
    }

    void insert(const QString &row) { connection->execute(u"insert into "_qs + row); }
    void add(const Listing &l)
    {
        insert(u"fyxx "
               u"(房源ID,房源编号,用户ID,业务员ID,地区,楼盘字典,房型_房,房型_厅,房型_卫,房型_阳台,交易方式,"
               u"交易状态,"
               u"操作日期,楼层,总楼层,总面积,售房价格,租房价格) values "
               u"('ID-%1','%1','%2',%3,'%4','%5',%6,'%7','%8',#%9#,"
               u"'21','33',91,586.5,0)"_qs.arg(l.number, l.user)
                   .arg(l.agent)
                   .arg(l.district, l.building, l.rooms, l.trade, l.state, l.changed));
    }
    void addAttachment(const QString &listing, int module, int active, int picture)
    {
        insert(u"pubAttach (progID,IDs,filename,isActive,isPicture) values (%1,'%2','f',%3,%4)"_qs.arg(module)
                   .arg(listing)
                   .arg(active)
                   .arg(picture));
    }
    void type(int number, const QString &text, const QVariant &value = {})
    {
        list.qzTxt(number).setText(text);
        list.qzTxt(number).setValue(value);
    }
    void emptyFilter()
    {
        for (const int number : {0, 1, 3, 4, 5, 7})
            type(number, {});
        list.Chk(0).setValue(0);
        list.Chk(1).setValue(0);
        list.XPCmb().setText({});
    }
    [[nodiscard]] QString numbers()
    {
        QString result;
        for (int row = 1; row < list.VS().Rows(); ++row)
            result += list.VS().TextMatrix(row, 1).mid(2);
        return result;
    }

    QTemporaryDir folder;
    std::unique_ptr<db::Connection> connection =
        db::Connection::open(u":memory:"_qs, db::Connection::Missing::IsCreated);
    NoPanels panels;
    host::Application app{
        *connection, {u"U1"_qs, u"张敏"_qs, u"营业一部"_qs}, {folder.path(), QDate(2026, 11, 22)}, panels};
    test::ScriptedDesktop desktop;
    Fcxx list{desktop};
    QString message;
    QStringList errors;
};

TEST_F(FcxxDatabaseTest, RowsShowAsTheyAreToBeRead)
{
    ASSERT_TRUE(list.IReportUI_Refresh());
    EXPECT_EQ(numbers(), u"544321"_qs) << "a user in two departments gives two rows, one in none still one";
    EXPECT_EQ(message, u"共加载6条记录"_qs);
    QStringList row;
    for (int col = 0; col < list.VS().Cols(); ++col)
        row.append(list.VS().TextMatrix(6, col));
    EXPECT_EQ(row.join(u'|'),
              u"|FY1|出售|有效|天河区|翠堤雅居|||21/33||3房2厅2卫1阳台|91|||586.5万元|0元/月||营业一部|李强|"
              u"ID-FY1|1"_qs);
    EXPECT_EQ(list.VS().CellPicture(6, 0), u"mail-attachment"_qs);
    EXPECT_EQ(list.VS().CellPicture(5, 0), QString()) << "attachments of another module";
    EXPECT_EQ(list.VS().TextMatrix(1, 17), QString());
    EXPECT_EQ(errors, QStringList());
}

TEST_F(FcxxDatabaseTest, FiltersByTable)
{
    struct Case
    {
        const char *why;
        std::function<void()> set;
        QString rows;
    };
    const Case cases[] = {
        {"district", [&] { type(0, u" 天河区"_qs); }, u"4431"_qs},
        {"district with a blank inside", [&] { type(0, u"天河 区"_qs); }, u"5"_qs},
        {"text compares without regard to case", [&] { type(7, u"PALM court"_qs); }, u"5"_qs},
        {"building", [&] { type(7, u"翠堤雅居"_qs); }, u"441"_qs},
        {"rooms", [&] { type(1, u"3-2-2-1"_qs); }, u"31"_qs},
        {"state", [&] { type(3, u"有效"_qs); }, u"4421"_qs},
        {"department joins its members", [&] { type(4, u"营业一部"_qs, 1); }, u"4421"_qs},
        {"department of a user in two shows both rows", [&] { type(4, u"营业二部"_qs, u"2"_qs); }, u"44"_qs},
        {"department typed but not looked up", [&] { type(4, u"营业一部"_qs); }, QString()},
        {"agent", [&] { type(5, u"李强"_qs, 5); }, u"31"_qs},
        {"agent typed but not looked up is number 0", [&] { type(5, u"李强"_qs); }, u"5"_qs},
        {"for sale", [&] { list.Chk(0).setValue(1); }, u"31"_qs},
        {"for rent", [&] { list.Chk(1).setValue(1); }, u"32"_qs},
        {"both kinds are all kinds",
         [&] {
             list.Chk(0).setValue(1);
             list.Chk(1).setValue(1);
         },
         u"544321"_qs},
        {"a window begins behind midnight of its day", [&] { list.XPCmb().setText(u"三天内"_qs); }, u"31"_qs},
        {"a week", [&] { list.XPCmb().setText(u"七天内"_qs); }, u"321"_qs},
        {"the caption of ten days is no window", [&] { list.XPCmb().setText(u"十天内"_qs); }, u"544321"_qs},
        {"ten days typed with the blank", [&] { list.XPCmb().setText(u" 十天内"_qs); }, u"5321"_qs},
        {"a year", [&] { list.XPCmb().setText(u"一年内"_qs); }, u"5321"_qs},
        {"all of it",
         [&] {
             type(0, u"天河区"_qs);
             type(4, u"营业一部"_qs, 1);
             type(5, u"李强"_qs, 5);
             type(3, u"有效"_qs);
             list.Chk(0).setValue(1);
             list.XPCmb().setText(u"三天内"_qs);
         },
         u"1"_qs},
        {"a wildcard is a letter like any other", [&] { type(0, u"天河%"_qs); }, QString()},
        {"no district of that name", [&] { type(0, u"番禺区"_qs); }, QString()},
    };
    for (const Case &c : cases) {
        emptyFilter();
        c.set();
        EXPECT_TRUE(list.IReportUI_Refresh()) << c.why;
        EXPECT_EQ(numbers(), c.rows) << c.why;
        EXPECT_EQ(message, u"共加载%1条记录"_qs.arg(c.rows.size())) << c.why;
    }
    EXPECT_EQ(errors, QStringList());
}

TEST_F(FcxxDatabaseTest, NoTextChangesWhatTheStatementDoes)
{
    const QStringList attacks{u"O'Hara"_qs, u"'"_qs, u"x' or '1'='1"_qs, u"x';delete from fyxx"_qs,
                              u"' & 房源ID & '"_qs};
    for (const int field : {0, 1, 3, 7}) {
        for (const QString &attack : attacks) {
            emptyFilter();
            EXPECT_TRUE(list.IReportUI_Refresh());
            errors.clear();
            type(field, attack);
            EXPECT_FALSE(list.IReportUI_Refresh()) << attack.toStdString();
            EXPECT_EQ(list.VS().Rows(), 1) << attack.toStdString();
            ASSERT_EQ(errors.size(), 1) << attack.toStdString();
            EXPECT_FALSE(errors[0].contains(u"Fcxx")) << "a statement's failure is told by itself";
            EXPECT_EQ(list.qzTxt(field).Text(), attack);
        }
    }
    emptyFilter();
    EXPECT_TRUE(list.IReportUI_Refresh());
    EXPECT_EQ(numbers(), u"544321"_qs);
}

TEST_F(FcxxDatabaseTest, AMissingTableEndsInAMessageAndAnEmptyList)
{
    ASSERT_TRUE(list.IReportUI_Refresh());
    connection->executeNative("drop table pubAttach");
    EXPECT_FALSE(list.IReportUI_Refresh());
    EXPECT_EQ(list.VS().Rows(), 1);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors[0].contains(u"pubAttach")) << errors[0].toStdString();
    EXPECT_TRUE(list.VS().Redraw());
}

} // namespace
