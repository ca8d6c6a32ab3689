#include "contracts/conversions.h"
#include "library/listings/frm_fx_fixture.h"

using namespace ebtq;
using ebtq::test::FrmFxTest;

namespace {

constexpr auto Ok = Desktop::Answer::Ok;
constexpr auto No = Desktop::Answer::No;

/// A text of its own for each field: dates, numbers as people type them, blanks around texts.
QString sample(const RecordColumn &column)
{
    const QString pattern = column.saved == Saved::Date     ? u"2026-3-%1"_qs
                            : column.saved == Saved::Number ? u" %1．5"_qs
                                                            : u" 文%1 "_qs;
    return pattern.arg(column.saved == Saved::Date ? column.number / 2 + 1 : column.number);
}

class FrmFxSaveTest : public FrmFxTest
{
protected:
    using FrmFxTest::FrmFxTest;
    void fillEverything()
    {
        for (const RecordColumn &value : listingRecord().load) {
            if (value.holder == Holder::FieldText)
                form.qzFcTxt(value.number).setText(sample(value));
            else if (value.holder == Holder::Memo)
                form.Txt(value.number).setText(u" 第一行\n注%1 "_qs.arg(value.number));
        }
        for (const int key : {1, 3, 6, 13})
            form.qzFcTxt(key).setValue(key + 100);
        form.Chk(0).setValue(0);
        form.Chk(1).setValue(1);
    }
};

/// The values of both statements, in the order of their columns.
const QStringList columns =
    u"房源编号,地区ID,地区,楼盘ID,楼盘字典,栋座ID,栋座位置,房号,楼层,总楼层,房型_房,房型_厅,房型_卫,"
    u"房型_阳台,用途,总面积,实用面积,朝向,类型,建房年代,房源属性,交易方式,交易状态,售房价格,售房底价,"
    u"售房包税费,租房价格,租房底价,租房原购价,委托日期,委托方式,管理费,交房日期,委托编号,来源,现状,装修,"
    u"配套,家具,家电,产权,证件,付款,付佣,看房,钥匙号,业主,联系人,国籍,手机,联系说明,备注,业务员ID,用户ID,"
    u"制单日期,制单人,操作日期,附属房"_qs.split(u',');
const QString values =
    u"101,'文1',106,'文6',103,'文3','文8','文14','文10',4.5,19.5,18.5,16.5,'文20',7.5,5.5,'文17','文21',"
    u"'文22',2,'文23','文24',25.5,27.5,'文28',29.5,31.5,32.5,#2026-3-17#,'文34',37.5,#2026-3-18#,'文36',"
    u"'文38','文39','文40','文41','文42','文43','文44','文45','文46','文47','文48','文49','文50','文51','"
    u"文52',"
    u"'文53','第一行\n注0','第一行\n注1',113,'U1',#2026-3-5#,'文12',#2026-3-2#,'文54'"_qs;

TEST_F(FrmFxSaveTest, InsertThenUpdateWriteEveryColumnAndLoadReadsItBack)
{
    open({}, [&] {
        fillEverything();
        save(No);
    });
    const QString id = u"00000000-0000-0000-0000-000000000001"_qs;
    EXPECT_EQ(app.statements.last(), u"insert into fyxx(房源ID,%1)values('%2','FY2026110001',%3)"_qs.arg(
                                         columns.join(u','), id, values));
    EXPECT_EQ(saved, id);
    EXPECT_EQ(stored(u"房源属性"_qs), u"2");

    QStringList assignments;
    const QStringList literals = (u"'号',"_qs + values).split(u',');
    for (qsizetype at = 0; at < columns.size(); ++at)
        assignments += columns[at] + u'=' + literals[at];
    open(id, [&] {
        EXPECT_EQ(app.statements.size(), 1) << "a listing is opened with one statement";
        for (const RecordColumn &value : listingRecord().load) {
            if (value.holder != Holder::FieldText || value.saved == Saved::Not || value.number == 0)
                continue;
            const QString stored = sample(value).trimmed();
            EXPECT_EQ(text(value.number), value.saved == Saved::Number ? *TypedNumber(stored) : stored);
        }
        EXPECT_EQ(text(0) + form.qzFcTxt(6).Tag() + form.Txt(1).Text(), u"FY2026110001106第一行\n注1");
        EXPECT_EQ(ticks(), u"010");
        EXPECT_EQ(text(26), u"3.40");
        form.qzFcTxt(0).setText(u" 号 "_qs);
        save();
    });
    EXPECT_EQ(app.statements.last(),
              u"update fyxx set %1 where 房源ID='%2'"_qs.arg(assignments.join(u','), id));
    EXPECT_EQ(events, u"new closed changed closed"_qs.split(u' '));
    EXPECT_EQ(stored(u"房源编号 & 钥匙号 & 备注"_qs), u"号文49第一行\n注1");
}

TEST_F(FrmFxSaveTest, ANewListingBeginsWithItsDefaultsAndNothingOfTheLastOne)
{
    const QString today = u"2026-11-22"_qs;
    const QMap<int, QString> expected{
        {0, u"FY2026110001"_qs}, {2, today},       {9, today},          {33, today}, {35, today},
        {52, u"中国"_qs},        {12, u"张敏"_qs}, {11, u"营业一部"_qs}};
    open({}, [&] { fillEverything(); });
    open({}, [&] {
        for (int number = 0; number < 55; ++number) {
            EXPECT_EQ(text(number), expected.value(number)) << number;
            EXPECT_EQ(form.qzFcTxt(number).Enabled(), number != 9 && number != 11 && number != 12) << number;
        }
        EXPECT_EQ(form.qzFcTxt(12).Tag(), u"U1");
        EXPECT_EQ(form.qzFcTxt(13).Tag(), u"0") << "the last listing's agent";
        EXPECT_EQ(ticks(), u"100");
    });
}

TEST_F(FrmFxSaveTest, TicksAreOneNumberAndComeBackOneSided)
{
    const QString id = makeListing();
    for (const QString &c : u"111 1 100,011 2 010,001 3 001,000 3 001"_qs.split(u',')) {
        const QStringList expected = c.split(u' ');
        open(id, [&] {
            for (int tick = 0; tick < 3; ++tick)
                form.Chk(tick).setValue(expected[0][tick].digitValue());
            save();
        });
        EXPECT_EQ(stored(u"房源属性"_qs), expected[1]);
        open(id, [&] { EXPECT_EQ(ticks(), expected[2]); });
    }
    connection->execute(u"update fyxx set 房源属性=null"_qs);
    open(id, [&] { EXPECT_EQ(ticks(), u"001"); });
}

TEST_F(FrmFxSaveTest, RequiredFieldsAreAskedForInOrder)
{
    const std::pair<int, QString> names[] = {
        {1, u"城区"_qs}, {6, u"楼盘字典"_qs}, {3, u"栋座"_qs}, {23, u"交易"_qs}, {24, u"状态"_qs}};
    open({}, [&] {
        for (const auto &[number, name] : names) {
            qzTxt_S &field = form.qzFcTxt(number);
            field.setText(u"   "_qs);
            QObject::connect(&field, &Control::focusRequested, [this, at = number] { events += text(at); });
            save(Ok);
            EXPECT_EQ(asked(), QStringList(u"提示:|%1不能为空，请输入"_qs.arg(name)));
            EXPECT_EQ(events.size(), 1) << "the field gets the keyboard";
            events.clear();
            field.setText(u"x"_qs);
        }
        save(No);
    });
    open(saved, [&] {
        form.qzFcTxt(0).setText(u"  "_qs);
        save(Ok);
    });
    EXPECT_EQ(asked().last(), u"提示：x|房源编号不能为空，请输入后重试!  ");
}

TEST_F(FrmFxSaveTest, YesGoesOnWithAFreshListing)
{
    open({}, [&] {
        fill(form, required);
        form.qzFcTxt(13).setValue(5);
        save(Desktop::Answer::Yes);
        EXPECT_EQ(text(0) + text(1), u"FY2026110002");
        EXPECT_FALSE(form.qzFcTxt(49).Enabled());
        connection->execute(u"update host_numbers set lastNumber=7"_qs); // somebody else saves meanwhile
        fill(form, required);
        save(No);
    });
    EXPECT_EQ(asked(), QStringList({u"提示:|是否继续新建?"_qs, u"提示:|是否继续新建?"_qs}));
    EXPECT_EQ(events, u"new new closed"_qs.split(u' '));
    const RowBlock rows = connection->query(u"select 房源编号,业务员ID from fyxx order by 房源编号"_qs);
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.cell(1, 0), "FY2026110008");
    EXPECT_EQ(rows.cell(1, 1), "0") << "the agent of the listing before";
}

TEST_F(FrmFxSaveTest, AListingIsSavedAlsoWhenNoKeyCanBeMade)
{
    desktop.willMakeNoKeys();
    open({}, [&] {
        fill(form, required);
        desktop.willAnswer(Ok);
        save(No);
    });
    EXPECT_EQ(asked().first(), u"EBTQ_S!|Error While creating GUID!");
    EXPECT_EQ(stored(u"房源ID & 地区"_qs), u"天河区");
}

TEST_F(FrmFxSaveTest, NoTextChangesTheStatementAndNothingTypedIsLost)
{
    const QString id = makeListing();
    connection->execute(u"update fyxx set 备注='旧'"_qs);
    for (const RecordColumn &value : listingRecord().load) {
        const QString attack = value.saved == Saved::Date ? u"#,备注=#2026-1-1"_qs : u"x',备注='新"_qs;
        if (value.saved != Saved::Text && value.saved != Saved::Date)
            continue;
        open(id, [&] {
            if (value.holder == Holder::Memo)
                form.Txt(value.number).setText(attack);
            else if (value.holder == Holder::FieldKey)
                form.qzFcTxt(value.number).setValue(attack);
            else
                form.qzFcTxt(value.number).setText(attack);
            save(Ok);
            EXPECT_TRUE(value.holder != Holder::FieldText || text(value.number) == attack);
            EXPECT_EQ(text(50), value.number == 50 ? attack : u"陈先生"_qs);
        });
        EXPECT_EQ(asked().size(), 1) << value.number;
    }
    EXPECT_EQ(stored(u"备注"_qs), u"旧");
    EXPECT_EQ(events, QStringList());
}

class FrmFxFileTest : public FrmFxSaveTest
{
protected:
    FrmFxFileTest()
        : FrmFxSaveTest(s_folder.filePath(u"agency.db"_qs))
    {}
    static inline QTemporaryDir s_folder;
};

TEST_F(FrmFxFileTest, FailuresOfASaveAreToldAndTheNextSaveWorks)
{
    const QString id = makeListing();
    connection->setLockTimeout(10);
    const auto other = db::Connection::open(connection->location());
    const auto date = [&](int number, const QString &typed) {
        return [=, this] { form.qzFcTxt(number).setText(typed); };
    };
    struct Case
    {
        std::function<void()> spoil;
        std::function<void()> mend;
        QString told; ///< for an old listing and, behind "DoSave:" perhaps, a new one
    };
    const Case cases[] = {
        {date(33, {}), date(33, u"2026-1-2"_qs), u"委托日期：日期有误：“”"_qs},
        {date(2, u"2026-13-45"_qs), date(2, u"2026-1-2"_qs), u"操作日期：日期有误：“2026-13-45”"_qs},
        {date(35, u"明天"_qs), date(35, u"2026-1-2"_qs), u"交房日期：日期有误：“明天”"_qs},
        {[&] { other->begin(); }, [&] { other->rollback(); }, u"数据库正被其他程序占用"_qs},
        {[&] {
             connection->executeNative("pragma max_page_count=1");
             form.Txt(1).setText(QString(100'000, u'满'));
         },
         [&] { connection->executeNative("pragma max_page_count=100000"); }, u"磁盘空间不足"_qs},
    };
    connection->execute(u"update host_modules set prefix=''"_qs);
    open({}, [&] {
        fill(form, required);
        save(Ok);
    });
    EXPECT_TRUE(asked().last().startsWith(u"提示:x|DoSave:模块"));
    connection->execute(u"update host_modules set prefix='FY'"_qs);
    for (const Case &c : cases) {
        for (const QString &listing : {id, QString()}) {
            open(listing, [&] {
                fill(form, required);
                form.qzFcTxt(50).setText(u"王女士"_qs);
                c.spoil();
                save(Ok);
                const QStringList told = asked();
                ASSERT_EQ(told.size(), 1);
                EXPECT_TRUE(told[0].startsWith(u"提示:x|") && told[0].contains(c.told))
                    << told[0].toStdString();
                EXPECT_EQ(text(50), u"王女士");
                EXPECT_EQ(events, QStringList());
                c.mend();
                if (listing.isEmpty())
                    return;
                form.Txt(1).setText({});
                save();
                EXPECT_EQ(events, u"changed closed"_qs.split(u' '));
            });
            events.clear();
        }
    }
    EXPECT_EQ(stored(u"业主"_qs), u"王女士") << "no new listing";
}

TEST_F(FrmFxSaveTest, WithoutTheOwnerTheFormIsForReadingOnly)
{
    const QString id = makeListing();
    const QStringList owners = u"qzFcTxt50 qzFcTxt51 qzFcTxt52 qzFcTxt53 Txt0 Cmd3 联系"_qs.split(u' ');
    const auto act = [&] {
        for (const auto &control : form.IDesignUI_Controls()) {
            const bool isLabel = control->TypeName() == u"Label";
            const QString name =
                isLabel ? control->Caption() : control->Name() + QString::number(control->Index());
            EXPECT_EQ(control->Visible(), !owners.contains(name)) << name.toStdString();
            EXPECT_EQ(control->Enabled(), isLabel || name == u"Cmd1") << name.toStdString();
        }
        save();
        form.Cmd(1).press();
    };
    open(id, act, true);
    EXPECT_EQ(events, QStringList(u"closed"_qs));
    open(id, [&] { EXPECT_TRUE(form.qzFcTxt(50).Visible() && form.qzFcTxt(50).Enabled()); });
}

} // namespace
