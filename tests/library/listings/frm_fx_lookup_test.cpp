#include "library/listings/frm_fx_fixture.h"
#include "library/pickers/picked_rows.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

using enum EditorNumber::Number;

class FrmFxLookupTest : public FrmFxTest
{
protected:
    /// Types into a field as a person does and leaves it; false when it is refused.
    bool enter(int number, const QString &typedText)
    {
        form.qzFcTxt(number).type(typedText);
        return form.qzFcTxt(number).check();
    }
    [[nodiscard]] QString texts(std::initializer_list<int> numbers) const
    {
        QStringList result;
        for (const int number : numbers)
            result.append(text(number));
        return result.join(u'|');
    }
};

TEST_F(FrmFxLookupTest, EachFieldIsCalledHelpedJudgedAndAlignedAsItsKind)
{
    // In the order of their numbers: caption and title, the caption only where it differs. Behind them "p"
    // for a picker, "d" for a calendar, "l" for a list, "#" for a number, ">" and "^" for right and centred.
    const QString fields =
        u"房源编号,地址=城区/p,登记日期/d,=栋座/位置/p,房型/l^,㎡ 实用面积=实用面积/#>,=楼盘字典/p,面积/#>,"
        u"=房号/^,制单日期/d,=总层/^,部门,  制单人=制单人,经纪人/p,=楼层/^,阳台,卫=房型（阳台）/#^,"
        u"㎡ 朝向=朝向/l,厅=房型（卫）/#^,房=房型（厅）/#^,用途/l,类型/l,建房年代,交易/l,状态/l,售价/#>,"
        u"万元  =单价/>,/㎡ =底价/#>,包税费/l,租价/#>,元/月 =单价/>,/㎡ =底价/#>,原购价/#>,委托日期/d,"
        u"委托方式/l,交房日期/d,委托编号,管理费/#>,  来源=来源/l,现状/l,装修/l,配套/l,家具/l,家电/l,产权/l,"
        u"证件/l,付款/l,付佣/l,看房/l,=钥匙号/^,  业主=业主,联系人,  国籍=国籍/l,手机,附属房"_qs;
    open({}, [&] {
        QStringList found;
        for (int number = 0; number < 55; ++number) {
            const qzTxt_S &field = form.qzFcTxt(number);
            const QString title = form.fieldOf(number).title.toString();
            const bool isDate = field.judge_type() == qzTxt_S::JudgeDate;
            QString marks = field.help_type() == qzTxt_S::Custom ? u"p"_qs
                            : isDate                             ? u"d"_qs
                            : field.help_flag()                  ? u"l"_qs
                                                                 : QString();
            EXPECT_EQ(field.help_menuflag(), !marks.isEmpty());
            found.append(field.Caption() == title ? title : field.Caption() + u'=' + title);
            if (field.judge_type() == qzTxt_S::JudgeNumber)
                marks += u'#';
            marks += field.Alignment() == qzTxt_S::AlignRight    ? u">"_qs
                     : field.Alignment() == qzTxt_S::AlignCentre ? u"^"_qs
                                                                 : QString();
            EXPECT_EQ(field.judge_time() == qzTxt_S::JudgeOnLeaving,
                      marks.contains(u'#') || marks.contains(u'l') || marks.contains(u'p') || isDate)
                << number;
            if (!marks.isEmpty())
                found.last() += u'/' + marks;
        }
        EXPECT_EQ(found.join(u','), fields);
    });
}

TEST_F(FrmFxLookupTest, DictionaryFieldsFindTheirOwnKind)
{
    // The title, the code of the list and the kind.
    const QString fields =
        u"朝向 cx 房屋朝向,用途 yt 物业用途,类型 lx 物业类型,交易 jy 交易类型,状态 zt 交易状态,"
        u"包税费 bsf 包税费类型,委托方式 wt 委托方式,来源 ly 房屋来源,现状 xz 房屋现状,装修 zx 装修程度,"
        u"配套 pt 配套设施,家具 jj 家具配置,家电 jd 家电配置,证件 zj 证件名称,付款 fk 付款方式,"
        u"付佣 fy 付佣金方式,看房 kf 看房方式,国籍 gj 国籍"_qs;
    open({}, [&] {
        for (const QString &entry : fields.split(u',')) {
            const QStringList expected = entry.split(u' ');
            int number = 0;
            while (form.fieldOf(number).title != expected[0])
                ++number;
            const qzTxt_S &field = form.qzFcTxt(number);
            connection->execute(u"insert into pdmsjzd(类型,代码,名称) values('%1','K','名%2')"_qs.arg(
                expected[2], expected[0]));
            for (const QString &typed : {u"k"_qs, u"名"_qs + expected[0]}) {
                EXPECT_TRUE(enter(number, typed));
                EXPECT_EQ(field.Tag() + field.Text(), u"K名"_qs + expected[0]);
            }
            EXPECT_EQ(field.help_code(), u"gy_sjzd_"_qs + expected[1]);
            EXPECT_TRUE(field.error_message().endsWith(expected[0] + u"输入有误，请重新输入！"_qs));
        }
    });
}

TEST_F(FrmFxLookupTest, PickersAreAskedWithTheirParameters)
{
    const std::tuple<int, QString, QString> cases[] = {
        {District, u"pdmdq"_qs, u" pdmsfmx=1"_qs},
        {Agent, u"pdmgy"_qs, u" lock=1 组织类型=1"_qs},
        {Building, u"selpdmlpzd"_qs, u" lock=1 地区=天河区"_qs},
        {Block, u"selpdmdz"_qs, u" lock=1 楼盘=翠堤雅居"_qs}};
    open({}, [&] {
        for (const auto &[number, picker, parameters] : cases) {
            fill(form, required);
            script = {{}, u"新"_qs, 17, nullptr};
            qzTxt_S &field = form.qzFcTxt(number);
            field.requestHelp(7, 8);
            EXPECT_EQ(script.asked, QStringList(u"show %1 7 8"_qs.arg(picker) + parameters));
            EXPECT_EQ(field.Text() + field.Tag(), u"新17");
            script = {};
            EXPECT_TRUE(enter(number, u"没有"_qs)) << "what no list knows is taken as it stands";
            EXPECT_EQ(script.asked, QStringList(u"validate %1 没有"_qs.arg(picker) +
                                                QString(parameters).replace(u"天河区"_qs, text(District))));
            EXPECT_EQ(field.Text() + field.Tag(), u"没有没有");
            EXPECT_TRUE(enter(number, {}));
            EXPECT_EQ(field.Tag(), QString()) << "an emptied field has no key";
        }
    });
    EXPECT_EQ(events, QStringList());
}

TEST_F(FrmFxLookupTest, ABuildingAndABlockBringTheirDetailsAlong)
{
    auto building = std::make_shared<clsLpzd>();
    building->s物业用途 = u"住宅"_qs;
    building->s物业类型 = u"高层"_qs;
    building->s建房年代 = u"2012"_qs;
    building->d管理费 = 3.25;
    auto namesake = std::make_shared<clsLpzd>();
    namesake->s物业用途 = u"商铺"_qs;
    auto block = std::make_shared<clsDz>();
    block->l总楼层 = 33;
    open({}, [&] {
        form.qzFcTxt(Block).setText(u"A3"_qs);
        script = {{}, u"翠堤雅居"_qs, 32, namesake};
        form.qzFcTxt(Building).requestHelp(0, 0);
        script = {{}, u"翠堤雅居"_qs, 31, building};
        EXPECT_TRUE(form.qzFcTxt(Building).check());
        EXPECT_EQ(form.qzFcTxt(Building).Tag() + text(Usage), u"32商铺") << "what goes with the chosen one";
        EXPECT_TRUE(enter(Building, u"CDYJ"_qs));
        EXPECT_EQ(texts({Building, Usage, PropertyType, BuiltIn, ManagementFee, Block}),
                  u"翠堤雅居|住宅|高层|2012|3.25|A3");
        EXPECT_EQ(form.qzFcTxt(Building).Tag(), u"31");
        script = {{}, u"A栋"_qs, 4, block};
        EXPECT_TRUE(enter(Block, u"A"_qs));
        EXPECT_EQ(texts({Block, Floors}), u"A栋|33");
        script = {{}, {}, {}, std::make_shared<clsLpzd>()};
        app.Db().CreateQuery(SqlText(u"select"_qs), 1)->Open(); // the database fails
        EXPECT_TRUE(enter(Building, u"云山"_qs));
        EXPECT_EQ(texts({Building, Usage, ManagementFee}), u"云山|住宅|3.25") << "is not known";
        app.Db().CreateQuery(SqlText(u"select 房源ID from fyxx"_qs), 1)->Open();
        EXPECT_TRUE(enter(Building, u"云峰"_qs));
        EXPECT_EQ(texts({Building, Usage, ManagementFee}), u"云峰||0") << "a building not listed";
    });
}

TEST_F(FrmFxLookupTest, HouseTypeAndPropertyRightFillTheirFields)
{
    open({}, [&] {
        for (const QString &codeOrName : {u"F1"_qs, u"三房"_qs, u"5室"_qs}) {
            EXPECT_TRUE(enter(Rooms, codeOrName));
            EXPECT_EQ(texts({Rooms, Halls, Bathrooms, Balconies}),
                      (codeOrName == u"5室" ? u"5室"_qs : u"3"_qs) + u"|2|2|1"_qs);
        }
        form.qzFcTxt(Payment).setText(u"公积金"_qs);
        for (const QString &codeOrName : {u"商品房"_qs, u"C1"_qs}) {
            EXPECT_TRUE(enter(PropertyRight, codeOrName));
            EXPECT_EQ(texts({PropertyRight, Certificate, Payment, Commission}), u"商品房|房产证|按揭|成交后");
        }
        EXPECT_TRUE(enter(Orientation, u"O'Hara"_qs)) << "the save refuses it";
        EXPECT_FALSE(enter(Deal, u"送"_qs)) << "the one field that must be known";
        EXPECT_EQ(text(Deal), u"送");
        fill(form, required + u",17 南"_qs);
        save({Desktop::Answer::No});
    });
    EXPECT_EQ(stored(u"房型_房"_qs), u"5") << "the number of a house type that no list knows";
    EXPECT_EQ(events, u"new closed"_qs.split(u' '));
}

TEST_F(FrmFxLookupTest, UnitPricesFollowAreaAndPrices)
{
    // What is typed where, then both unit prices: they stay when a price or the area goes.
    const std::tuple<int, QString, QString> cases[] = {
        {SalePrice, u"586"_qs, u"|"_qs},       {Area, u"128.5㎡"_qs, u"4.56|"_qs},
        {Rent, u"4500"_qs, u"4.56|35.02"_qs},  {SalePrice, {}, u"4.56|35.02"_qs},
        {Area, u"100"_qs, u"4.56|45.00"_qs},   {SalePrice, u"-1.005"_qs, u"-0.01|45.00"_qs},
        {Area, u"没有"_qs, u"-0.01|45.00"_qs},
    };
    open({}, [&] {
        for (const auto &[number, typed, unitPrices] : cases) {
            form.qzFcTxt(number).type(typed);
            EXPECT_EQ(texts({SaleUnitPrice, RentUnitPrice}), unitPrices) << typed.toStdString();
        }
    });
}

TEST_F(FrmFxLookupTest, TheKeyNumberBelongsToAViewingWithAKey)
{
    const QString id = makeListing();
    open(id, [&] {
        form.qzFcTxt(Viewing).setText(u"有匙"_qs);
        EXPECT_TRUE(form.qzFcTxt(KeyNumber).Enabled());
        form.qzFcTxt(KeyNumber).setText(u"A-17"_qs);
        form.qzFcTxt(Viewing).setText(u"预约"_qs);
        EXPECT_FALSE(form.qzFcTxt(KeyNumber).Enabled());
        save();
    });
    EXPECT_EQ(stored(u"钥匙号"_qs), u"A-17");
}

TEST_F(FrmFxLookupTest, RemarksArePickedAtTheirButton)
{
    const std::tuple<int, int, QString> buttons[] = {{2, EditorNumber::Remark, u"房源备注"_qs},
                                                     {3, EditorNumber::ContactRemark, u"业主联系备注"_qs}};
    open({}, [&] {
        for (const auto &[button, box, kind] : buttons) {
            form.Txt(box).setText(u"手写"_qs);
            form.Cmd(button).setPlace(30, 40);
            script = {};
            press(button);
            EXPECT_EQ(script.asked,
                      QStringList(u"show selpdm 30 40 编号=代码 名称=名称 ID=代码 table=pdmsjzd "
                                  u"where=类型='%1' order=代码"_qs.arg(kind)));
            EXPECT_EQ(form.Txt(box).Text(), u"手写") << "left without a choice";
            script = {{}, u"晚上联系"_qs, 0, nullptr};
            press(button);
            EXPECT_EQ(form.Txt(box).Text(), u"晚上联系");
        }
    });
}

} // namespace
