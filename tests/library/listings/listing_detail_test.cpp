// The tabs below the list of listings, on a real database: what they show, and what they ask for when.

#include "database/sqlite/sqlite_connection.h"
#include "library/listings/fcxx_fixture.h"
#include "library/listings/listing_detail_fields.h"

#include <sqlite3.h>

using namespace ebtq;
using namespace ebtq::test;

namespace {

/// Each statement that the engine runs as one letter, by what it reads.
int noteStatement(unsigned, void *notes, void *, void *sql)
{
    const QString text = QString::fromUtf8(static_cast<const char *>(sql));
    const std::pair<const char16_t *, QChar> kinds[] = {{u"pubAttach", u'L'}, {u"fygj", u'G'},
                                                        {u"fykh", u'C'},      {u"【", u'M'},
                                                        {u"部门名称", u'D'},  {u"fyxx", u'D'}};
    for (const auto &[word, letter] : kinds) {
        if (!text.contains(QString::fromUtf16(word)))
            continue;
        *static_cast<QString *>(notes) += letter;
        break;
    }
    return 0;
}

class ListingDetailTest : public FcxxTest
{
protected:
    ListingDetailTest()
    {
        auto *handle = static_cast<db::SqliteConnection &>(*connection).handle();
        sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, noteStatement, &statements);
    }
    void run(const QString &statement) { connection->execute(statement); }
    void addListing(const QString &number, const QString &columns, const QString &values)
    {
        run(u"insert into fyxx(房源ID,房源编号,操作日期,制单日期,用户ID%2) "
            u"values('ID-%1','%1',#2026-11-20#,#2026-10-18#,'U1'%3)"_qs.arg(number, columns, values));
    }
    void addListings(const QString &numbers)
    {
        for (const QChar number : numbers)
            addListing(number, {}, {});
    }
    void start(int tab)
    {
        detail.qzVSTabCtl1().setActiveTab(tab);
        open(host::ListingModule);
        statements.clear();
        events.clear();
    }
    [[nodiscard]] QString field(int number) { return detail.qzFcTxt(number).Text(); }
    /// What has failed since the last call.
    [[nodiscard]] QStringList errors() { return std::exchange(events, {}).filter(u"|8|"_qs); }

    QString statements;
    ListingDetail &detail = list.detail();
};

TEST_F(ListingDetailTest, FieldsShowTheListing)
{
    addListing(
        u"B"_qs,
        u",地区ID,地区,楼盘ID,楼盘字典,栋座位置,房号,楼层,总楼层,房型_房,房型_厅,房型_卫,房型_阳台,用途,"
        u"总面积,实用面积,朝向,类型,建房年代,交易方式,交易状态,售房价格,售房底价,售房包税费,租房价格,"
        u"租房底价,租房原购价,委托日期,委托方式,管理费,交房日期,委托编号,来源,现状,装修,配套,家具,家电,"
        u"产权,证件,付款,付佣,看房,钥匙号,业主,联系人,国籍,手机,联系说明,备注,制单人,附属房"_qs,
        u",3,'石桥头',31,' 碧棠花园 ',' 5 ',' 1203 ','12','21',3,2,2,1,'住宅',91.5,76.25,'南','高层','2015',"
        u"'租售','有效',586.5,580,'卖方包税',4500,4300,300,#2026-9-8#,'独家',2.5,#2026-12-1 14:05:00#,'WT1',"
        u"'上门','空置','精装','水电','全套家具','全套家电','商品房','房产证','按揭','成交后','借匙',"
        u"'A-17','王先生','李小姐','中国','138****0001',' 下班后 ','两行',' 陈晓雯 ','车位'"_qs);
    addListing(u"A"_qs, u",总面积,售房价格,租房价格,看房,房型_房"_qs, u",0,100,200,'预约',2"_qs);
    detail.qzFcTxt(43).setText(u"as it was"_qs);
    start(ListingTab);
    QString shown;
    for (int number = 0; number < 60; ++number) {
        if (list.IDesignUI_Controls().find(u"qzFcTxt"_qs, number))
            shown += u"%1=%2|"_qs.arg(number).arg(field(number));
    }
    EXPECT_EQ(
        shown,
        u"0=B|1=石桥头|2=碧棠花园5栋1203室(12/21)|3=3房2厅2卫1阳台|4=住宅|5=76.25|6=2026-11-20|7=91.5|8=车位|"
        u"9=2026-10-18|11=2026-9-8|12= 陈晓雯 |13=2026-12-1 14:05:00|14=WT1|15=上门|17=南|21=高层|22=2015|"
        u"23=租售|24=有效|25=586.5|26=6.41|27=580|28=卖方包税|29=4500|30=49.18|31=4300|32=300|34=独家|37=2.5|"
        u"39=空置|40=精装|41=水电|42=全套家电|43=as it was|44=商品房|45=房产证|46=按揭|47=成交后|"
        u"48=借匙 钥匙号:A-17|50=王先生|51=李小姐|52=中国|53=138****0001|"_qs);
    EXPECT_TRUE(detail.qzFcTxt(1).Value() == 3 && detail.qzFcTxt(2).Value() == 31);
    EXPECT_EQ(detail.Txt(0).Text() + detail.Txt(1).Text(), u" 下班后 两行"_qs);

    list.VS().setRow(2);
    EXPECT_EQ(field(26) + u' ' + field(30), u"6.41 49.18"_qs) << "without an area the figures before stay";
    EXPECT_EQ(field(0) + field(2) + field(3) + field(25) + field(48) + detail.Txt(1).Text(),
              u"A栋室(/)2房厅卫阳台100预约"_qs);
    EXPECT_THROW((void)detail.qzFcTxt(10), Failure);
    EXPECT_EQ(errors(), QStringList());
}

TEST_F(ListingDetailTest, OnlyTheActiveTabAsks)
{
    addListings(u"ABC"_qs);
    statements.clear();
    detail.qzVSTabCtl1().setActiveTab(FollowUpsTab);
    detail.qzVSTabCtl1().setActiveTab(9);
    EXPECT_EQ(statements, QString()) << "before its start";
    const std::pair<int, QString> tabs[] = {{ListingTab, u"D"_qs},
                                            {OwnerTab, u"D"_qs},
                                            {FollowUpsTab, u"G"_qs},
                                            {CustomersTab, u"MC"_qs},
                                            {PicturesTab, u"L"_qs}};
    for (const auto &[tab, asked] : tabs) {
        start(tab);
        const std::function<void()> steps[] = {
            [&] { list.VS().setRow(3); },
            [&] { list.VS().setCol(5); },
            [&] { list.VS().setRow(3); },
            [&] { list.IReportUI_Refresh(); }, // returns to the row
            [&] {
                list.VS().setRow(1);
                list.SearchBox1().setText(u"B"_qs);
                list.IReportUI_Refresh(); // the search moves to another row
            },
            [&] { list.SearchBox1().setText({}); },
            [&] { detail.qzVSTabCtl1().setActiveTab(tab); },
            [&] { detail.qzVSTabCtl1().setActiveTab(tab == PicturesTab ? ListingTab : PicturesTab); },
            [&] { detail.qzVSTabCtl1().setActiveTab(tab); }};
        QString seen;
        for (const auto &step : steps) {
            statements = u',';
            step();
            seen += statements;
        }
        // A list reads its attachments' counts and its rows apart.
        EXPECT_EQ(seen, u",%1,,,LD%1,%1LD%1,,,%2,%1"_qs.arg(asked, tab == PicturesTab ? u"D"_qs : u"L"_qs))
            << tab;
        for (int other = ListingTab; other <= PicturesTab; ++other)
            EXPECT_EQ(detail.pnlTab(other - ListingTab).Visible(), other == tab)
                << other << " while at " << tab;
        EXPECT_TRUE(list.IReportUI_Clear());
    }
    EXPECT_EQ(errors(), QStringList());
}

TEST_F(ListingDetailTest, AnEmptyListKeepsWhatWasShown)
{
    addListings(u"A"_qs);
    start(ListingTab);
    run(u"delete from fyxx"_qs);
    statements.clear();
    EXPECT_TRUE(list.IReportUI_Refresh());
    EXPECT_EQ(statements, u"LD"_qs);
    detail.qzVSTabCtl1().setActiveTab(OwnerTab);
    EXPECT_EQ(statements, u"LDD"_qs) << "asks for the listing that the header names, and finds none";
    EXPECT_EQ(field(0), u"A"_qs);
    EXPECT_EQ(errors(), QStringList());
}

TEST_F(ListingDetailTest, PicturesAreCountedWithoutTheDeletedOnes)
{
    addListings(u"BA"_qs);
    for (const QString &kind : u"1,1 1,1 0,1 1,0"_qs.split(u' '))
        run(u"insert into pubAttach (progID,ids,isActive,isPicture) values (101,'ID-B',%1)"_qs.arg(kind));
    start(PicturesTab);
    EXPECT_EQ(detail.picturesText(), u"共有2张照片"_qs);
    list.VS().setRow(2);
    EXPECT_EQ(detail.picturesText(), u"暂无照片"_qs);
}

TEST_F(ListingDetailTest, FollowUpsShowNewestFirst)
{
    addListings(u"BA"_qs);
    insert(u"fygj(跟进ID,操作日期,跟进内容,房源ID,下次提醒,提醒日期,提醒范围,提醒内容,处理结果,处理日期,"
           u"用户ID)"_qs,
           {u"'1',#2026-11-1#,'最早','ID-B',1,#2026-11-5#,1,'回访','已联系',#2026-11-6#,'U1'",
            u"'2',#2026-11-9 8:30:00#,'最新','ID-B',0,null,null,'','',null,'U1'",
            u"'3',#2026-11-3#,'之间','ID-B',2,null,0,null,null,null,'U1'",
            u"'4',#2026-11-2#,'之前','ID-B',1,null,7,'','',null,'U1'",
            u"'5',#2026-11-2#,'别的','ID-C',1,null,2,'','',null,'U1'"});
    start(FollowUpsTab);
    const VSFlexGrid &grid = detail.VsGj();
    EXPECT_EQ(columnText(grid, 2), u"最新 之间 之前 最早"_qs);
    EXPECT_EQ(rowText(grid, 4), u"2026-11-1|最早|营业一部|张敏|是|2026-11-5|本部|回访|已联系|2026-11-6|1"_qs);
    EXPECT_EQ(columnText(grid, 5), u"否 否 是 是"_qs);
    EXPECT_EQ(columnText(grid, 7), u"本人 本人 全部 本部"_qs);
    EXPECT_EQ(grid.TextMatrix(1, 1), u"2026-11-9 8:30:00"_qs);
    EXPECT_TRUE(grid.ColHidden(0) && grid.ColHidden(11) && !grid.ColHidden(1));
    EXPECT_EQ(grid.ToolTipText(), u"提示：双击进入原始单据查询"_qs);
    EXPECT_EQ(
        rowText(grid, 0),
        u"跟进时间|跟进内容|部门|经纪人|下次提醒|提醒时间|提醒范围|提醒内容|处理内容|处理时间|跟进ID"_qs);
    list.VS().setRow(2);
    EXPECT_EQ(grid.Rows(), 1);

    list.IReportUI_DoGetFormStatus(layoutFile);
    for (const int width : {77, 177}) {
        put(u"VsColWidth_VsGj"_qs, u"VsCol2"_qs, QString::number(width));
        list.VS().setRow(1);
        EXPECT_EQ(grid.ColWidth(2), width) << "a load restores the layout";
        list.VS().setRow(2);
    }
}

TEST_F(ListingDetailTest, CustomersShowWithTheirRanges)
{
    addListing(u"B"_qs, u",楼层,总面积"_qs, u",'12A',15.5"_qs);
    addListing(u"A"_qs, u",楼层"_qs, u",'12A'"_qs);
    insert(u"fykh(客源ID,客源编号,客户名称,楼层1,楼层2,面积1,面积2,求购价格1,求购价格2,求租价格1,求租价格2,"
           u"方式,状态,用户ID,地区,需求户型,委托日期)"_qs,
           {u"'e','e','客e',0,99,10,999,0,999,0,9999,3,1,'U1','海珠区','3房2厅',#2026-9-8#",
            u"'f','f','',12,12,90,90,0,0,0,0,0,0,'','','',null"});
    start(CustomersTab);
    EXPECT_TRUE(detail.VsP().ColHidden(0));
    EXPECT_EQ(detail.VsP().Rows(), 2);
    EXPECT_EQ(rowText(detail.VsP(), 1),
              u"购租|失效|e|客e|海珠区|0-99|10-999|0-999|0-9999|3房2厅|2026-9-8|营业一部|张敏"_qs);
    list.VS().setRow(2);
    EXPECT_EQ(columnText(detail.VsP(), 3), u"e f");
}

TEST_F(ListingDetailTest, ABrokenListingTellsAndKeepsWhatIsFilled)
{
    addListing(u"B"_qs, u",用途,附属房"_qs, u",'住宅','车库'"_qs);
    addListing(u"A"_qs, u",用途,附属房"_qs, u",'商铺','阁楼'"_qs);
    const std::pair<QString, int> dates[] = {{u"操作日期"_qs, 6}, {u"制单日期"_qs, 9}};
    for (const auto &[column, number] : dates) {
        start(ListingTab);
        list.VS().setRow(1);
        run(u"update fyxx set %1=null where 房源编号='A'"_qs.arg(column));
        events.clear();
        list.VS().setRow(2);
        EXPECT_EQ(errors(),
                  QStringList(u"Fcxx-->LoadData::房源的%1是空值，无法显示！|8|EBTQ_S"_qs.arg(column)));
        EXPECT_EQ(field(4), u"商铺"_qs) << "filled before";
        EXPECT_EQ(field(number), number == 6 ? u"2026-11-20"_qs : u"2026-10-18"_qs) << "as it was";
        EXPECT_EQ(field(8), number == 6 ? u"车库"_qs : u"阁楼"_qs);
        run(u"update fyxx set 操作日期=#2026-11-20# where 房源编号='A'"_qs);
    }
}

TEST_F(ListingDetailTest, FailuresEndInAMessage)
{
    addListings(u"BA"_qs);
    run(u"insert into fygj(跟进ID,房源ID,操作日期) values('1','ID-B',#2026-11-1#)"_qs);
    run(u"insert into fykh(客源ID,客源编号) values('1','k')"_qs);
    run(u"update fyxx set 房源ID='ID-''A' where 房源编号='A'"_qs);
    for (const auto &[tab, table] :
         {std::pair(ListingTab, "su_membership"), {FollowUpsTab, "fygj"}, {CustomersTab, "fykh"}}) {
        start(tab);
        const VSFlexGrid &grid = tab == FollowUpsTab ? detail.VsGj() : detail.VsP();
        list.VS().setRow(1);
        EXPECT_EQ(grid.Rows() - 1, tab == ListingTab ? 0 : 1);
        list.VS().setRow(2);
        QStringList told = errors();
        ASSERT_EQ(told.size(), 1);
        EXPECT_TRUE(told[0].contains(u"单引号") && told[0].endsWith(u"|8|EBTQ_S")) << told[0].toStdString();
        EXPECT_EQ(field(0), u"B"_qs);
        connection->executeNative(QByteArray("alter table ") + table + " rename to gone");
        list.VS().setRow(1);
        told = errors();
        ASSERT_EQ(told.size(), 1);
        EXPECT_TRUE(told[0].contains(QLatin1String(table)) && !told[0].contains(u"Fcxx"))
            << told[0].toStdString();
        EXPECT_EQ(grid.Rows(), 1);
        EXPECT_TRUE(grid.Redraw());
        connection->executeNative(QByteArray("alter table gone rename to ") + table);
        EXPECT_TRUE(list.IReportUI_Clear());
    }
    start(CustomersTab);
    list.VS().setRow(1);
    run(u"delete from fyxx where 房源编号='B'"_qs);
    detail.ShowDetail(u"ID-B"_qs);
    EXPECT_EQ(detail.VsP().Rows(), 2) << "a listing that is gone leaves the customers before";
    EXPECT_EQ(errors(), QStringList());
}

} // namespace
