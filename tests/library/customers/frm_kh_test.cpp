#include "library/customers/frm_kh_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

constexpr auto Ok = Desktop::Answer::Ok;
constexpr auto Yes = Desktop::Answer::Yes;
constexpr auto No = Desktop::Answer::No;
const QString firstKey = u"00000000-0000-0000-0000-000000000001"_qs;

const QString insertion =
    u"insert into "
    u"Fykh(客源ID,客源编号,地区ID,地区,委托日期,委托方式,委托等级,委托协议,客户名称,电话,手机,邮件,"
    u"其他联系方式,地段要求,需求户型,物业要求,用途,朝向,装修要求,面积1,面积2,楼层1,楼层2,求购价格1,求购价格2,"
    u"求租价格1,求租价格2,付款方式,付佣方式,信息来源,备注,业务员ID,用户ID,制单日期,制单人,操作日期,状态,方式)"
    u"values('%1','KY2026110001',107,'文7',#2026-3-25#,'','文3','文22','文1','文4','','文5','文6','文8','文9'"
    u","
    u"'文10','文11','文12','文13',14.5,15.5,16.5,17.5,18.5,19.5,26.5,27.5,'文20','文21','文23',' 第一行\n注 "
    u"',5,"
    u"'U1',#2026-3-29#,'文28',#2026-11-22#,1,3)"_qs.arg(firstKey);
const QString change =
    u"update Fykh set "
    u"客源编号='号',地区ID=107,地区='文7',委托日期=#2026-3-25#,委托方式='',客户名称='文1',电话='文4',"
    u"手机='',邮件='文5',其他联系方式='文6',地段要求='文8',需求户型='文9',物业要求='文10',用途='文11',朝向='"
    u"文12',"
    u"装修要求='文13',面积1=14.5,面积2=15.5,楼层1=16.5,楼层2=17.5,求购价格1=18.5,求购价格2=19.5,求租价格1=26."
    u"5,"
    u"求租价格2=27.5,付款方式='文20',付佣方式='文21',信息来源='文23',备注=' 第一行\n注 "
    u"',业务员ID=5,委托等级='文3',"
    u"委托协议='文22',状态=0,方式=2 where 客源ID='%1'"_qs.arg(firstKey);

TEST_F(FrmKhTest, BothStatementsWriteTheirColumnsInTheirOwnOrderAndALoadReadsThemBack)
{
    const auto sample = [](int number) {
        const bool isDate = number == Number::EntrustedOn || number == Number::AuthoredOn;
        const bool isNumber = (number >= Number::AreaFrom && number <= Number::PriceTo) ||
                              number == Number::RentFrom || number == Number::RentTo;
        return (isDate ? u"2026-3-%1"_qs : isNumber ? u" %1．5"_qs : u" 文%1 "_qs).arg(number);
    };
    open({}, [&] {
        for (int number = 0; number < 30; ++number)
            form.qzTxt(number).setText(sample(number));
        form.qzTxt(Number::District).setValue(107);
        form.qzTxt(Number::Agent).setValue(5);
        form.Txt().setText(u" 第一行\n注 "_qs);
        form.Chk(0).setValue(1);
        form.Chk(1).setValue(1);
        form.Opt(1).setValue(1);
        save({No});
        EXPECT_TRUE(app.statements.contains(insertion)) << app.statements.join(u'\n').toStdString();
        EXPECT_EQ(place(), u"KY2026110001 1/1") << "read again";
    });
    connection->execute(u"update fykh set 委托方式='x',手机='y',制单人='z',操作日期=#2026-1-1#"_qs);
    open(firstKey, [&] {
        EXPECT_EQ(app.statements.size(), 3) << "the row and two counts";
        const QMap<int, QString> others{
            {Number::Kind, {}}, {Number::Agent, u"李强"_qs}, {Number::Author, u"z"_qs}};
        for (int number = 1; number < 30; ++number)
            EXPECT_EQ(text(number), others.value(number, sample(number).trimmed().replace(u'．', u'.')));
        EXPECT_EQ(form.Txt().Text(), u" 第一行\n注 ");
        form.qzTxt(0).setText(u" 号 "_qs);
        form.Opt(0).setValue(1);
        form.Chk(0).setValue(0);
        save();
        EXPECT_TRUE(app.statements.contains(change)) << app.statements.join(u'\n').toStdString();
    });
    EXPECT_EQ(stored(u"委托方式 & 手机 & 用户ID & 制单人 & 操作日期"_qs), u"U1z2026-1-1");
    EXPECT_EQ(events, QStringList({u"new"_qs, u"changed"_qs}));
    EXPECT_EQ(saved, firstKey);
}

TEST_F(FrmKhTest, ANewRequestBeginsWithItsDefaultsAndTheTicksOfTheLastOne)
{
    script = {{}, u"天河区"_qs, 9, nullptr};
    insert({u"pdmsjzd (类型,代码,名称) values ('付佣金方式','01','成交后')"});
    open({}, [&] {
        QString all;
        for (int number = 0; number < 30; ++number)
            all += text(number) + u'|';
        EXPECT_EQ(all, u"KY2026110001|||||||||||||||||||||||||2026-11-22|||张敏|2026-11-22|");
        QStringList captions;
        QStringList titles;
        for (int number = 0; number < 30; ++number) {
            captions += form.qzTxt(number).Caption();
            titles += form.fieldOf(number).title.toString();
        }
        EXPECT_EQ(captions.join(u'|'),
                  u"委托编号 *|客户名称 *|客户类别|委托等级|联系电话 *|电子邮件|其他联系|需求片区|地段要求|"
                  u"需求房型|物业要求|购房用途|房屋朝向|装修要求|面积||楼层||||付款方式|付佣方式|委托协议|"
                  u"信息来源|  经纪人|委托日期|||制单人|制单日期");
        EXPECT_EQ(titles.mid(14, 6).join(u'|') + u'|' + titles.mid(26, 2).join(u'|'),
                  u"最小面积|最大面积|最低楼层|最高楼层|最低求购价|最高求购价|最低求租价|最高求租价");
        save();
        EXPECT_EQ(app.statements.size(), 0) << "nothing was changed";
        fill(u"甲"_qs);
        for (const QString &typed : u"2 老客户,7 天,9 F1,21 01,24 李"_qs.split(u',')) {
            qzTxt_S &field = form.qzTxt(typed.section(u' ', 0, 0).toInt());
            field.type(typed.section(u' ', 1));
            EXPECT_TRUE(field.check());
        }
        form.Chk(1).setValue(1);
        form.Opt(1).setValue(1);
        save({Yes});
        EXPECT_EQ(text(0) + text(1) + text(2) + form.qzTxt(Number::Agent).Tag(), u"KY2026110002");
        EXPECT_EQ(form.Opt(0).Value() + form.Chk(1).Value(), 2);
        EXPECT_TRUE(form.mayClose()) << "not changed";
    });
    EXPECT_EQ(stored(u"地区 & 地区ID & 业务员ID & 需求户型 & 付佣方式 & 状态 & 方式"_qs),
              u"天河区99三房成交后12");
    EXPECT_EQ(asked(), QStringList(u"提示:|是否继续新建?"_qs));
    EXPECT_EQ(script.asked,
              QStringList({u"validate pdmdq 天 pdmsfmx=1"_qs, u"validate pdmgy 李 lock=1 组织类型=1"_qs}));
    open({}, [&] { EXPECT_EQ(form.Chk(1).Value(), 0) << "opened afresh"; });
}

/// Each case: the numbers of kind and state, then both options and both ticks.
TEST_F(FrmKhTest, StateAndKindComeBackAsTheirNumbersAreAndNullBoundsAreSavedAsZero)
{
    insertCustomers(u"K1"_qs);
    for (const QString &c : u"0 0 1000|1 1 0110|2 -1 0101|3 5 0111|4 0 1000|null null 1000"_qs.split(u'|')) {
        const QStringList part = c.split(u' ');
        connection->execute(u"update fykh set 方式=%1,状态=%2,面积1=null"_qs.arg(part[0], part[1]));
        open(u"C1"_qs, [&] {
            for (int at = 0; at < 2; ++at) {
                EXPECT_EQ(form.Opt(at).Value(), part[2][at].digitValue()) << c.toStdString();
                EXPECT_EQ(form.Chk(at).Value(), part[2][at + 2].digitValue()) << c.toStdString();
            }
            form.Txt().setText(c);
            save();
        });
        EXPECT_EQ(stored(u"面积1 & 备注"_qs), u'0' + c);
    }
}

TEST_F(FrmKhTest, MovesGoByTheTextOfTheNumbers)
{
    insertCustomers(u"KY2026119999 KY20261110000 KY2026119999 KY2026110005"_qs);
    const std::pair<int, const char16_t *> steps[] = {
        {Number::Top, u"KY2026110005 1/4"},   {Number::Previous, u"KY2026110005 1/4"},
        {Number::Next, u"KY20261110000 2/4"}, {Number::Next, u"KY2026119999 4/4"},
        {Number::Next, u"KY2026119999 4/4"},  {Number::Previous, u"KY20261110000 2/4"},
        {Number::Bottom, u"KY2026119999 4/4"}};
    open({}, [&] {
        for (const auto &[button, expected] : steps) {
            press(button);
            EXPECT_EQ(place(), QString::fromUtf16(expected));
        }
        form.LoadData(0, u"C2"_qs);
        EXPECT_EQ(place(), u"KY20261110000 2/4") << "a key goes before the mode";
    });
    EXPECT_EQ(events + asked(), QStringList());
}

/// Each case: the button, the answer, the name that is typed, what is shown and what is stored afterwards.
TEST_F(FrmKhTest, AChangedRequestAsksBeforeItIsLeft)
{
    insertCustomers(u"K1 K2"_qs);
    for (const QString &c :
         u"4 - 乙 K1乙 甲1|4 1 乙 K2甲2 甲1|4 0 乙 K2甲2 乙|3 0 丙 K1丙 丙|4 0 丁' K1丁' 丙|1 - 丁 K1丁 丙|"
         u"1 1 丁 K1丁closed 丙"_qs.split(u'|')) {
        const QStringList part = c.split(u' ');
        events.clear();
        open(u"C1"_qs, [&] {
            form.qzTxt(Number::Name).setText(part[2]);
            desktop.willChoose(part[1] == u"-" ? std::nullopt : std::optional(part[1].toInt()));
            if (part[2].endsWith(u'\''))
                desktop.willAnswer(Ok);
            press(part[0].toInt());
            EXPECT_EQ(text(0) + text(1) + events.filter(u"closed"_qs).join(u' '), part[3]);
        });
        EXPECT_EQ(asked().first(), u"提示：|数据已变动，是否保存！");
        EXPECT_EQ(stored(u"客户名称"_qs), part[4] + u" 甲2"_qs);
    }
}

TEST_F(FrmKhTest, ANewRequestSavedOnTheWayIsThereOnce)
{
    const auto leave = [&](const QString &name, Desktop::Answer another, const std::function<void()> &way) {
        open({}, [&] {
            fill(name);
            desktop.willChoose(0);
            desktop.willAnswer(another);
            way();
        });
    };
    leave(u"甲"_qs, No, [&] {
        press(Number::Next);
        EXPECT_EQ(place(), u"KY2026110001 1/1") << "there is no next one";
        fill(u"乙"_qs);
        save();
    });
    leave(u"丙"_qs, Yes, [&] {
        press(Number::Top);
        EXPECT_EQ(place(), u"KY2026110001 1/2") << "the move wins";
    });
    leave(u"丁"_qs, Yes, [&] { EXPECT_FALSE(form.mayClose()) << "open for the next one"; });
    EXPECT_EQ(stored(u"客户名称"_qs), u"乙 丙 丁");
}

TEST_F(FrmKhTest, WhatIsMissingOrWrongIsRefusedAndStays)
{
    insertCustomers(u"K1"_qs);
    connection->execute(u"update host_modules set prefix=''"_qs);
    const std::tuple<int, QString, QString> cases[] = {
        {Number::BillNumber, u"  "_qs, u"|委托编号不能为空，请输入"_qs},
        {Number::Name, {}, u"|客户名称不能为空，请输入"_qs},
        {Number::Telephone, u" "_qs, u"|联系电话不能为空，请输入"_qs},
        {Number::Grade, u"甲级"_qs, u"|输入有误，请重新输入！"_qs},
        {Number::Location, u"x',电话='y"_qs,
         u"x|输入的内容中含有单引号（'），无法执行，请去掉后重试！\n单引号在“地段要求”中。"_qs},
    };
    for (const auto &[number, typed, told] : cases) {
        open(u"C1"_qs, [&, field = number, wrong = typed, expected = told] {
            form.qzTxt(field).type(wrong);
            form.Txt().setText(u"注"_qs);
            save({Ok});
            EXPECT_EQ(asked(), QStringList(u"提示:"_qs + expected));
            EXPECT_EQ(text(field), wrong);
        });
    }
    EXPECT_EQ(stored(u"客源编号 & 电话 & 备注"_qs), u"K11");
    open({}, [&] {
        fill(u"甲"_qs);
        form.qzTxt(0).setText(u"自编"_qs);
        save({Ok});
    });
    EXPECT_EQ(onlyMessage(), "提示:x|模块 102 没有单据编号的前缀，无法取得编号！DoSave:");
}

TEST_F(FrmKhTest, DeletionAsksAndGoesToTheNextOne)
{
    insertCustomers(u"K1 K2"_qs);
    QObject::connect(&form, &frmKh::Message, [&](const QString &text) { events += text; });
    open(u"C1"_qs, [&] {
        press(Number::Delete, {No});
        EXPECT_EQ(asked(), QStringList(u"提示：?|是否删除当前记录？"_qs));
        app.asRun = [](const SqlText &) { return SqlText(u"delete from nothing"_qs); };
        press(Number::Delete, {Yes});
        EXPECT_TRUE(events.value(0).startsWith(u"提示：|8|")) << events.join(u' ').toStdString();
        app.asRun = [](const SqlText &sql) { return sql; };
        for (const char16_t *expected : {u"K2 1/1", u"K2 0/0"}) {
            press(Number::Delete, {Yes});
            EXPECT_EQ(place(), QString::fromUtf16(expected));
        }
        EXPECT_EQ(events.last(), u"客源 K2 已删除，刷新后不再列出！");
        EXPECT_EQ(form.positionLabel().Caption(), u"已删除，共 0 条");
        press(Number::Delete, {Yes, Ok});
        EXPECT_EQ(asked().last(), u"提示:x|数据库中已没有这条客源！");
    });
    host::setRight(*connection, u"U1"_qs, host::CustomerModule, RightDelete, false);
    insertCustomers(u"K1"_qs);
    open(u"C1"_qs, [&] {
        press(Number::Delete, {Ok});
        EXPECT_EQ(asked(), QStringList(u"提示:x|您没有删除客源的权限！"_qs));
        fill(u"乙"_qs);
        connection->execute(u"update fykh set 状态=1,方式=3"_qs);
        desktop.willChoose(0);
        save();
        EXPECT_TRUE(asked().join(u' ').contains(u"状态：有效 → 失效\n方式：（空） → 求购价、求租价\n"_qs));
    });
}

TEST_F(FrmKhTest, ForReadingOnlyNothingChangesAndARowThatIsGoneOpensNothing)
{
    insertCustomers(u"K1 K2"_qs);
    const auto look = [&] {
        for (const auto &control : form.IDesignUI_Controls()) {
            const bool isMove = control->TypeName() == u"CommandButton" &&
                                control->Index() >= Number::Close && control->Index() <= Number::Bottom;
            const bool isOther = control->TypeName() == u"OptionButton" || control->TypeName() == u"Label";
            EXPECT_EQ(control->Enabled(), isMove || isOther) << control->Name().toStdString();
            EXPECT_FALSE(control->isKept());
        }
        form.Opt(1).setValue(1);
        press(Number::Next);
        EXPECT_EQ(place(), u"K2 2/2") << "without a question";
    };
    open(u"C1"_qs, look, true);
    form.py_Init(app, host::CustomerModule, u"gone"_qs, false);
    connection->executeNative("alter table fykh rename to x");
    form.py_Init(app, host::CustomerModule, u"C1"_qs, false);
    ASSERT_EQ(events.size(), 2);
    EXPECT_EQ(events[0], u"FrmKh|2|这条客源已被删除，无法打开！");
    EXPECT_TRUE(events[1].startsWith(u"FrmKh|8|FrmKh-->LoadData::")) << events[1].toStdString();
}

} // namespace
