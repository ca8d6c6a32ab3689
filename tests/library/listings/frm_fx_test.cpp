#include "contracts/conversions.h"
#include "library/listings/frm_fx_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

using enum EditorNumber::Number;
constexpr auto Ok = Desktop::Answer::Ok;
constexpr auto No = Desktop::Answer::No;

class FrmFxSaveTest : public FrmFxTest
{
protected:
    using FrmFxTest::FrmFxTest;

    /// A text of its own for each field: dates, numbers as people type them, blanks around texts.
    static QString sample(const RecordColumn &column)
    {
        const QString pattern = column.saved == Saved::Date     ? u"2026-3-%1"_qs
                                : column.saved == Saved::Number ? u" %1．5"_qs
                                                                : u" 文%1 "_qs;
        return pattern.arg(column.saved == Saved::Date ? column.number / 2 + 1 : column.number);
    }
    void fillEverything()
    {
        for (const RecordColumn &value : listingRecord().load) {
            if (value.holder == Holder::FieldText)
                form.qzFcTxt(value.number).setText(sample(value));
            else if (value.holder == Holder::Memo)
                form.Txt(value.number).setText(u" 第一行\n注%1 "_qs.arg(value.number));
        }
        for (const int key : {District, Block, Building, Agent})
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
    const auto inTheTable = [&] { return stored(columns.join(u" & ',' & "_qs)); };
    const QString asRead = QString(values).remove(u'\'').remove(u'#');
    open({}, [&] {
        fillEverything();
        save({No});
    });
    const QString id = u"00000000-0000-0000-0000-000000000001"_qs;
    EXPECT_EQ(app.statements.last(), u"insert into fyxx(房源ID,%1)values('%2','FY2026110001',%3)"_qs.arg(
                                         columns.join(u','), id, values));
    EXPECT_EQ(saved, id);
    EXPECT_EQ(inTheTable(), u"FY2026110001,"_qs + asRead);

    QStringList assignments;
    const QStringList literals = (u"'号',"_qs + values).split(u',');
    for (qsizetype at = 0; at < columns.size(); ++at)
        assignments += columns[at] + u'=' + literals[at];
    open(id, [&] {
        EXPECT_EQ(app.statements.size(), 1) << "a listing is opened with one statement";
        for (const RecordColumn &value : listingRecord().load) {
            if (value.holder != Holder::FieldText || value.saved == Saved::Not || value.number == BillNumber)
                continue;
            const QString typed = sample(value).trimmed();
            EXPECT_EQ(text(value.number), value.saved == Saved::Number ? *TypedNumber(typed) : typed);
        }
        EXPECT_EQ(text(BillNumber) + form.qzFcTxt(Building).Tag() + form.Txt(1).Text(),
                  u"FY2026110001106第一行\n注1");
        EXPECT_EQ(ticks() + text(SaleUnitPrice), u"0103.40");
        form.qzFcTxt(BillNumber).setText(u" 号 "_qs);
        for (const char16_t *each : {u"业主", u"租房价格", u"委托日期"})
            connection->execute(u"update fyxx set %1=null"_qs.arg(QString::fromUtf16(each)));
        desktop.willChoose(1); // over what a colleague has written
        save();
    });
    EXPECT_EQ(app.statements.last(),
              u"update fyxx set %1 where 房源ID='%2'"_qs.arg(assignments.join(u','), id));
    EXPECT_EQ(events, u"new closed changed closed"_qs.split(u' '));
    EXPECT_EQ(inTheTable(), u"号,"_qs + asRead);
}

TEST_F(FrmFxSaveTest, ANewListingBeginsWithItsDefaultsAndNothingOfTheLastOne)
{
    const QString today = u"2026-11-22"_qs; // of the login
    const QMap<int, QString> expected{{BillNumber, u"FY2026110001"_qs},
                                      {RegisteredOn, today},
                                      {AuthoredOn, today},
                                      {EntrustedOn, today},
                                      {HandedOverOn, today},
                                      {Nationality, u"中国"_qs},
                                      {Author, u"张敏"_qs},
                                      {Department, u"营业一部"_qs}};
    open({}, [&] { fillEverything(); });
    open({}, [&] {
        for (int number = 0; number < 55; ++number) {
            EXPECT_EQ(text(number), expected.value(number)) << number;
            EXPECT_EQ(form.qzFcTxt(number).Enabled(),
                      number != AuthoredOn && number != Department && number != Author)
                << number;
        }
        EXPECT_EQ(form.qzFcTxt(Author).Tag(), u"U1");
        EXPECT_EQ(form.qzFcTxt(Agent).Tag(), u"0") << "the last listing's agent";
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
    const std::pair<int, QString> names[] = {{District, u"城区"_qs},
                                             {Building, u"楼盘字典"_qs},
                                             {Block, u"栋座"_qs},
                                             {Deal, u"交易"_qs},
                                             {State, u"状态"_qs}};
    open({}, [&] {
        for (const auto &[number, name] : names) {
            qzTxt_S &field = form.qzFcTxt(number);
            field.setText(u"   "_qs);
            QObject::connect(&field, &Control::focusRequested, [this, at = number] { events += text(at); });
            save({Ok});
            EXPECT_EQ(asked(), QStringList(u"提示:|%1不能为空，请输入"_qs.arg(name)));
            EXPECT_EQ(std::exchange(events, {}).size(), 1) << "the field gets the keyboard";
            field.setText(u"x"_qs);
        }
        save({No});
    });
    open(saved, [&] {
        form.qzFcTxt(BillNumber).setText(u"  "_qs);
        save({Ok});
    });
    EXPECT_EQ(asked().last(), u"提示：x|房源编号不能为空，请输入后重试!  ");
}

TEST_F(FrmFxSaveTest, YesGoesOnWithAFreshListing)
{
    open({}, [&] {
        fill(form, required);
        form.qzFcTxt(Agent).setValue(5);
        save({Desktop::Answer::Yes});
        EXPECT_EQ(text(BillNumber) + text(District), u"FY2026110002");
        EXPECT_FALSE(form.qzFcTxt(KeyNumber).Enabled());
        connection->execute(u"update host_numbers set lastNumber=7"_qs); // somebody else saves meanwhile
        fill(form, required);
        desktop.willMakeNoKeys();
        save({Ok, No});
    });
    EXPECT_EQ(asked(), QStringList({u"提示:|是否继续新建?"_qs, u"EBTQ_S!|Error While creating GUID!"_qs,
                                    u"提示:|是否继续新建?"_qs}));
    EXPECT_EQ(events, u"new new closed"_qs.split(u' '));
    EXPECT_EQ(found(u"select 房源编号 & 房源ID & 业务员ID from fyxx where 房源ID=''"_qs), u"FY20261100080")
        << "without a key, and without the agent of the listing before";
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
            save({Ok});
            EXPECT_TRUE(value.holder != Holder::FieldText || text(value.number) == attack);
            EXPECT_EQ(text(Owner), value.number == Owner ? attack : u"陈先生"_qs);
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
    const struct
    {
        std::function<void()> spoil;
        std::function<void()> mend;
        QString told; ///< for an old listing and, behind "DoSave:" perhaps, a new one
    } cases[] = {
        {[&] { connection->execute(u"update host_modules set prefix=''"_qs); },
         [&] { connection->execute(u"update host_modules set prefix='FY'"_qs); }, u"DoSave:模块"_qs},
        {date(EntrustedOn, {}), date(EntrustedOn, u"2026-1-2"_qs), u"委托日期：日期有误：“”"_qs},
        {date(HandedOverOn, u"2026-13-45"_qs), date(HandedOverOn, u"2026-1-2"_qs),
         u"交房日期：日期有误：“2026-13-45”"_qs},
        {[&] { other->begin(); }, [&] { other->rollback(); }, u"数据库正被其他程序占用"_qs},
        {[&] {
             connection->executeNative("pragma max_page_count=1");
             form.Txt(1).setText(QString(100'000, u'满'));
         },
         [&] { connection->executeNative("pragma max_page_count=100000"); }, u"磁盘空间不足"_qs},
    };
    for (const auto &c : cases) {
        for (const QString &listing : {id, QString()}) {
            if (!listing.isEmpty() && c.told.startsWith(u"DoSave"))
                continue; // it has its number
            open(listing, [&] {
                fill(form, required + u",50 王女士"_qs);
                c.spoil();
                save({Ok});
                const QString told = QString::fromStdString(onlyMessage());
                EXPECT_TRUE(told.startsWith(u"提示:x|") && told.contains(c.told)) << told.toStdString();
                EXPECT_EQ(text(Owner), u"王女士");
                EXPECT_EQ(events, QStringList());
                c.mend();
                if (listing.isEmpty())
                    return;
                form.Txt(1).setText({});
                save();
                EXPECT_EQ(std::exchange(events, {}), u"changed closed"_qs.split(u' '));
            });
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
            const bool leaves = name == u"Cmd1" || name == u"Cmd4" || name == u"Cmd5";
            EXPECT_EQ(control->Enabled(), isLabel || leaves) << name.toStdString();
        }
        save();
        press(1);
    };
    open(id, act, true);
    EXPECT_EQ(events, QStringList(u"closed"_qs));
    open(id, [&] { EXPECT_TRUE(form.qzFcTxt(Owner).Visible() && form.qzFcTxt(Owner).Enabled()); });
}

} // namespace
