#include "library/listings/frm_fx_fixture.h"
#include "library/pickers/picked_rows.h"

using namespace ebtq;
using ebtq::test::FrmFxTest;

namespace {

class FrmFxLookupTest : public FrmFxTest
{
protected:
    /// Types into a field as a person does and leaves it; false when it is refused.
    bool enter(int number, const QString &typedText)
    {
        form.qzFcTxt(number).type(typedText);
        return form.qzFcTxt(number).check();
    }
    [[nodiscard]] QStringList texts(std::initializer_list<int> numbers) const
    {
        QStringList result;
        for (const int number : numbers)
            result.append(text(number));
        return result;
    }
};

TEST_F(FrmFxLookupTest, DictionaryFieldsFindTheirOwnKind)
{
    // The field, the code of its list, its kind and its caption; a "_" stands for a blank.
    const QString fields =
        u"17 cx 房屋朝向 ㎡_朝向,20 yt 物业用途 用途,21 lx 物业类型 类型,23 jy 交易类型 交易,"
        u"24 zt 交易状态 状态,28 bsf 包税费类型 包税费,34 wt 委托方式 委托方式,38 ly 房屋来源 "
        u"来源,39 xz 房屋现状 现状,40 zx 装修程度 装修,41 pt 配套设施 配套,42 jj 家具配置 家具,"
        u"43 jd 家电配置 家电,45 zj 证件名称 证件,46 fk 付款方式 付款,47 fy 付佣金方式 付佣,"
        u"48 kf 看房方式 看房,52 gj 国籍 国籍"_qs;
    open({}, [&] {
        for (const QString &entry : fields.split(u',')) {
            const QStringList expected = entry.split(u' ');
            const int number = expected[0].toInt();
            connection->execute(u"insert into pdmsjzd(类型,代码,名称) values('%1','K','名%2')"_qs.arg(
                expected[2], expected[0]));
            for (const QString &typed : {u"k"_qs, u"名"_qs + expected[0]}) {
                EXPECT_TRUE(enter(number, typed));
                EXPECT_EQ(form.qzFcTxt(number).Tag() + text(number), u"K名"_qs + expected[0]);
            }
            EXPECT_EQ(form.qzFcTxt(number).help_code(), u"gy_sjzd_"_qs + expected[1]);
            EXPECT_EQ(form.qzFcTxt(number).error_message(),
                      QString(expected[3]).replace(u'_', u' ') + u"输入有误，请重新输入！"_qs);
        }
    });
}

TEST_F(FrmFxLookupTest, EachFieldIsHelpedJudgedAndAlignedAsItsKind)
{
    const QList<int> custom{1, 3, 6, 13};
    const QList<int> dates{2, 9, 33, 35};
    const QList<int> lists{4, 17, 20, 21, 23, 24, 28, 34, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 52};
    const QList<int> right{5, 7, 25, 26, 27, 29, 30, 31, 32, 37};
    const QList<int> centred{4, 8, 10, 14, 16, 18, 19, 49};
    open({}, [&] {
        for (int number = 0; number < 55; ++number) {
            const qzTxt_S &field = form.qzFcTxt(number);
            const bool isLookUp = custom.contains(number) || lists.contains(number);
            EXPECT_EQ(field.help_flag() && field.help_menuflag(), isLookUp || dates.contains(number));
            EXPECT_EQ(field.judge_time() == qzTxt_S::JudgeOnLeaving,
                      isLookUp || field.judge_type() == qzTxt_S::JudgeNumber)
                << number;
            EXPECT_EQ(field.help_type() == qzTxt_S::Custom, custom.contains(number)) << number;
            EXPECT_EQ(field.judge_type() == qzTxt_S::JudgeDate, dates.contains(number)) << number;
            EXPECT_EQ(field.Alignment(), right.contains(number) + 2 * centred.contains(number)) << number;
        }
    });
}

TEST_F(FrmFxLookupTest, PickersAreAskedWithTheirParameters)
{
    const std::tuple<int, QString, QString> cases[] = {{1, u"pdmdq"_qs, u" pdmsfmx=1"_qs},
                                                       {13, u"pdmgy"_qs, u" lock=1 组织类型=1"_qs},
                                                       {6, u"selpdmlpzd"_qs, u" lock=1 地区=天河区"_qs},
                                                       {3, u"selpdmdz"_qs, u" lock=1 楼盘=翠堤雅居"_qs}};
    open({}, [&] {
        for (const auto &[number, picker, parameters] : cases) {
            fill(form, required);
            script = {};
            qzTxt_S &field = form.qzFcTxt(number);
            const QString before = field.Text();
            field.requestHelp(7, 8);
            EXPECT_EQ(script.asked, QStringList(u"show %1 7 8"_qs.arg(picker) + parameters));
            EXPECT_EQ(field.Text(), before) << "a list left without a choice";
            script = {{}, u"新"_qs, 17, nullptr};
            field.requestHelp(7, 8);
            EXPECT_EQ(field.Text() + field.Tag(), u"新17");
            script = {};
            EXPECT_TRUE(enter(number, u"没有"_qs)) << "what no list knows is taken as it stands";
            EXPECT_EQ(script.asked, QStringList(u"validate %1 没有"_qs.arg(picker) +
                                                QString(parameters).replace(u"天河区"_qs, text(1))));
            EXPECT_EQ(field.Text() + field.Tag(), u"没有没有");
            form.qzFcTxt(number).type({});
            EXPECT_TRUE(form.qzFcTxt(number).check());
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
    auto block = std::make_shared<clsDz>();
    block->l总楼层 = 33;
    open({}, [&] {
        form.qzFcTxt(3).setText(u"A3"_qs);
        script = {{}, u"翠堤雅居"_qs, 31, building};
        EXPECT_TRUE(enter(6, u"CDYJ"_qs));
        EXPECT_EQ(texts({6, 20, 21, 22, 37, 3}),
                  QStringList({u"翠堤雅居"_qs, u"住宅"_qs, u"高层"_qs, u"2012"_qs, u"3.25"_qs, u"A3"_qs}));
        EXPECT_EQ(form.qzFcTxt(6).Tag(), u"31");
        auto namesake = std::make_shared<clsLpzd>(*building);
        namesake->s物业用途 = u"商铺"_qs;
        script = {{}, u"翠堤雅居"_qs, 32, namesake};
        form.qzFcTxt(6).requestHelp(0, 0);
        script = {{}, u"翠堤雅居"_qs, 31, building};
        EXPECT_TRUE(form.qzFcTxt(6).check());
        EXPECT_EQ(form.qzFcTxt(6).Tag() + text(20), u"32商铺") << "what goes with the chosen one";
        EXPECT_TRUE(enter(6, u"CDYJ"_qs));
        EXPECT_EQ(form.qzFcTxt(6).Tag() + text(20), u"31住宅");
        script = {{}, u"A栋"_qs, 4, block};
        EXPECT_TRUE(enter(3, u"A"_qs));
        EXPECT_EQ(texts({3, 10}), QStringList({u"A栋"_qs, u"33"_qs}));
        script = {{}, {}, {}, std::make_shared<clsLpzd>()};
        app.Db().CreateQuery(SqlText(u"select"_qs), 1)->Open(); // the database fails
        EXPECT_TRUE(enter(6, u"云山"_qs));
        EXPECT_EQ(texts({6, 20, 37}), QStringList({u"云山"_qs, u"住宅"_qs, u"3.25"_qs})) << "is not known";
        app.Db().CreateQuery(SqlText(u"select 房源ID from fyxx"_qs), 1)->Open();
        EXPECT_TRUE(enter(6, u"云峰"_qs));
        EXPECT_EQ(texts({6, 20, 37}), QStringList({u"云峰"_qs, QString(), u"0"_qs}))
            << "a building not listed";
    });
}

TEST_F(FrmFxLookupTest, HouseTypeAndPropertyRightFillTheirFields)
{
    open({}, [&] {
        for (const QString &codeOrName : {u"F1"_qs, u"三房"_qs}) {
            EXPECT_TRUE(enter(4, codeOrName));
            EXPECT_EQ(texts({4, 19, 18, 16}), QStringList({u"3"_qs, u"2"_qs, u"2"_qs, u"1"_qs}));
        }
        EXPECT_TRUE(enter(4, u"5室"_qs));
        EXPECT_EQ(texts({4, 19, 18, 16}), QStringList({u"5室"_qs, u"2"_qs, u"2"_qs, u"1"_qs}));
        form.qzFcTxt(46).setText(u"公积金"_qs);
        EXPECT_TRUE(enter(44, u"商品房"_qs));
        EXPECT_EQ(texts({44, 45, 46, 47}),
                  QStringList({u"商品房"_qs, u"房产证"_qs, u"按揭"_qs, u"成交后"_qs}));
        EXPECT_TRUE(enter(44, u"C1"_qs));
        EXPECT_EQ(text(44), u"商品房");
        EXPECT_TRUE(enter(17, u"01"_qs));
        EXPECT_EQ(text(17), u"南");
        EXPECT_TRUE(enter(17, u"O'Hara"_qs)) << "the save refuses it";
        EXPECT_TRUE(enter(23, u"01"_qs));
        EXPECT_FALSE(enter(23, u"送"_qs)) << "the one field that must be known";
        EXPECT_EQ(text(23), u"送");
    });
    EXPECT_EQ(events, QStringList());
}

TEST_F(FrmFxLookupTest, UnitPricesFollowAreaAndPrices)
{
    // What is typed where, then both unit prices: they stay when a price or the area goes.
    const QString cases = u"25 586||,7 128.5㎡|4.56|,29 4500|4.56|35.02,25 |4.56|35.02,7 100|4.56|45.00,"
                          u"25 -1.005|-0.01|45.00,7 没有|-0.01|45.00"_qs;
    open({}, [&] {
        for (const QString &c : cases.split(u',')) {
            const QString entry = c.section(u'|', 0, 0);
            form.qzFcTxt(entry.section(u' ', 0, 0).toInt()).type(entry.section(u' ', 1));
            EXPECT_EQ(texts({26, 30}).join(u'|'), c.section(u'|', 1)) << c.toStdString();
        }
    });
}

TEST_F(FrmFxLookupTest, TheKeyNumberBelongsToAViewingWithAKey)
{
    const QString id = makeListing();
    open(id, [&] {
        form.qzFcTxt(48).setText(u"有匙"_qs);
        EXPECT_TRUE(form.qzFcTxt(49).Enabled());
        form.qzFcTxt(49).setText(u"A-17"_qs);
        form.qzFcTxt(48).setText(u"预约"_qs);
        EXPECT_FALSE(form.qzFcTxt(49).Enabled());
        save();
    });
    EXPECT_EQ(stored(u"钥匙号"_qs), u"A-17");
}

TEST_F(FrmFxLookupTest, RemarksArePickedAtTheirButton)
{
    const QString asks =
        u"show selpdm 30 40 编号=代码 名称=名称 ID=代码 table=pdmsjzd where=类型='%1' order=代码"_qs;
    open({}, [&] {
        const std::tuple<int, int, QString> buttons[] = {{2, 1, u"房源备注"_qs}, {3, 0, u"业主联系备注"_qs}};
        for (const auto &[button, box, kind] : buttons) {
            form.Txt(box).setText(u"手写"_qs);
            form.Cmd(button).setPlace(30, 40);
            script = {};
            form.Cmd(button).press();
            EXPECT_EQ(script.asked, QStringList(asks.arg(kind)));
            EXPECT_EQ(form.Txt(box).Text(), u"手写") << "left without a choice";
            script = {{}, u"晚上联系"_qs, 0, nullptr};
            form.Cmd(button).press();
            EXPECT_EQ(form.Txt(box).Text(), u"晚上联系");
        }
    });
}

} // namespace
