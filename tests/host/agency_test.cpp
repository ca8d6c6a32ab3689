#include "host/start/agency.h"

#include "host/application.h"
#include "host/host_fixture.h"
#include "host/module_ids.h"
#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "library/dictionaries/pdm_lpzd.h"
#include "library/listings/frm_fx.h"
#include "library/listings/frm_fx_fields.h"
#include "support/engine_database.h"
#include "support/messages.h"
#include "support/scripted_desktop.h"

#include <QFile>

#include <gmock/gmock.h>

namespace ebtq::test {

namespace {

using host::NewAgency;
using host::Strength;

NewAgency smallAgency()
{
    return {u"  望澜房产 "_qs,
            u"营业一部"_qs,
            u" 梁佳宁"_qs,
            u"secret-1"_qs,
            host::readDistrictLines(u"云泽市\n\t望澜区\r\n\t\t柳岸\n\n\t\t锦堤  \n\t锦溪区\n"_qs),
            host::readStandardLists(host::builtInStandardLists())};
}

class AgencyStartTest : public EngineTest
{
protected:
    void create(const NewAgency &agency) const
    {
        host::createAgency(*connect(), agency, db::Foreign::IsRefused, host::PasswordCost::lowest());
    }
    [[nodiscard]] QString value(const QString &statement) const
    {
        const RowBlock rows = connect()->query(statement);
        return rows.rowCount() == 0 ? u"(none)"_qs : rows.value(0, 0).toString();
    }
};

/// Fields as "number text", each left as a person leaves it.
void fill(const std::function<qzTxt_S &(int)> &fieldOf, const QString &texts)
{
    for (const QString &text : texts.split(u',')) {
        qzTxt_S &field = fieldOf(text.section(u' ', 0, 0).toInt());
        field.type(text.section(u' ', 1));
        EXPECT_TRUE(field.check()) << text.toStdString() << ": " << field.error_message().toStdString();
    }
}

} // namespace

TEST_P(AgencyStartTest, ANewAgencySavesItsFirstListingAndItsFirstCustomer)
{
    create(smallAgency());
    const auto connection = connect();
    const host::User user = host::signIn(*connection, u"梁佳宁"_qs, u"secret-1"_qs);
    EXPECT_EQ(user.department, u"营业一部");
    QTemporaryDir folder;
    ScriptedPanels panels;
    ScriptedDesktop desktop;
    host::Application app(*connection, user, {folder.path(), loginDate}, panels);

    PdmLpzd buildings(desktop);
    buildings.IFormUI_Init(app, 0, 0);
    EXPECT_TRUE(buildings.IFormUI_Refresh() && buildings.IFormUI_FileNew());
    fill([&](int number) -> qzTxt_S & { return buildings.qzTxt(number); },
         u"0 LP1,1 碧棠花园,2 柳岸,3 01,4 03"_qs);
    buildings.blocks().addRow();
    buildings.blocks().edit(1, PdmLpzd::BlockNumber, u"A"_qs);
    EXPECT_TRUE(buildings.IFormUI_FileSave());
    EXPECT_EQ(value(u"select 栋座ID & 楼盘ID from pdmdz"_qs), u"11");

    FrmFx listing(desktop);
    desktop.willShow([&](QObject &) {
        // By codes: each is looked up in the list of its field.
        fill([&](int number) -> qzTxt_S & { return listing.qzFcTxt(number); },
             u"1 柳岸,4 02,13 梁佳宁,17 01,20 01,23 03,24 01"_qs);
        listing.qzFcTxt(EditorNumber::Building).setText(u"碧棠花园"_qs);
        listing.qzFcTxt(EditorNumber::Block).setText(u"A"_qs);
        desktop.willAnswer(Desktop::Answer::No);
        listing.Cmd(0).press();
    });
    listing.py_Init(app, host::ListingModule, {}, false);
    EXPECT_EQ(value(u"select 地区 & 交易方式 & 交易状态 & 用途 & 朝向 & 房型_房 from fyxx"_qs),
              u"柳岸租售有效住宅南3")
        << desktop.asked().join(u'\n').toStdString();

    frmKh customer(desktop);
    desktop.willShow([&](QObject &) {
        fill([&](int number) -> qzTxt_S & { return customer.qzTxt(number); },
             u"1 陈先生,3 01,4 138,7 锦堤,9 01,11 01,12 02,20 01,21 01"_qs);
        desktop.willAnswer(Desktop::Answer::No);
        customer.Cmd(0).press();
    });
    customer.py_Init(app, host::CustomerModule, {}, false);
    EXPECT_EQ(value(u"select 地区 & 客户名称 & 委托等级 & 用途 & 付佣方式 from fykh"_qs),
              u"锦堤陈先生A级住宅双方各付")
        << desktop.asked().join(u'\n').toStdString();
}

TEST_P(AgencyStartTest, HasEveryListThatFieldsLookIn)
{
    create(smallAgency());
    const QString kinds =
        u"物业用途,物业类型,房屋朝向,交易类型,交易状态,包税费类型,委托方式,房屋来源,房屋现状,装修程度,"
        u"配套设施,家具配置,家电配置,证件名称,付款方式,付佣金方式,看房方式,国籍,委托等级,房源备注,业主联系备注"_qs;
    for (const QString &kind : kinds.split(u','))
        EXPECT_NE(value(u"select 名称 from pdmsjzd where 类型='%1' and 代码='01'"_qs.arg(kind)), u"(none)")
            << kind.toStdString();
    EXPECT_EQ(value(u"select count(*) from pdmcq where 证件名称<>'' and 付佣金方式<>''"_qs), u"6");
    EXPECT_EQ(value(u"select 地区 & 编码 & 级次 & 是否明细 from pdmdq where 编码='010102'"_qs),
              u"锦堤01010231");
    EXPECT_EQ(value(u"select count(*) from pdmdq where 是否明细=1"_qs), u"3");
    const auto connection = connect();
    EXPECT_EQ(host::agencyName(*connection), u"望澜房产");
    connection->execute(u"delete from pdmsjzd where 类型='国籍' or (类型='委托方式' and 代码='01')"_qs);
    EXPECT_EQ(host::writeStandardLists(*connection, smallAgency().lists).join(u','), u"国籍")
        << "a list with rows is left as it is";
}

TEST_P(AgencyStartTest, NothingIsWrittenOfAnAgencyThatCannotBeMade)
{
    const std::function<void(NewAgency &)> mistakes[] = {
        [](NewAgency &agency) { agency.name = u"陈's"_qs; },
        [](NewAgency &agency) { agency.department = u"  "_qs; },
        [](NewAgency &agency) { agency.administrator = QString(200, u'长'); },
        [](NewAgency &agency) { agency.password = u"short"_qs; },
    };
    for (const auto &mistake : mistakes) {
        NewAgency agency = smallAgency();
        mistake(agency);
        EXPECT_NE(messageOf([&] { create(agency); }), "");
        EXPECT_EQ(db::Identity::of(*connect()).standing, db::Identity::Empty);
    }
    create(smallAgency());
    EXPECT_THAT(messageOf([&] { create(smallAgency()); }), ::testing::HasSubstr("已有用户"));
}

ON_EACH_ENGINE(AgencyStartTest);

TEST(DistrictLinesTest, NameTheLineThatCannotBeUsed)
{
    const std::pair<QString, QString> cases[] = {
        {u"市\n  区\n    片\n      里"_qs, u"地区第 4 行：最多 3 级"_qs},
        {u"市\n\n 区\n 区"_qs, u"地区第 4 行：“区”在同一级中重复"_qs},
        {u"  市\n区"_qs, u"地区第 2 行：缩进比第一行还少"_qs},
        {u"市\n 陈's"_qs, u"地区第 2 行：地区名称不能含有单引号，请换一个！"_qs},
        {u"市\n　区\n　　片\n　区二\n　　片"_qs, {}},
        {u" \n\t\n"_qs, {}},
    };
    for (const auto &[text, message] : cases)
        EXPECT_EQ(messageOf([&] { (void)host::readDistrictLines(text); }), message.toStdString());
    QString many = u"市\n"_qs;
    for (int number = 1; number <= 100; ++number)
        many += u" 区%1\n"_qs.arg(number);
    EXPECT_THAT(messageOf([&] { (void)host::readDistrictLines(many); }), ::testing::HasSubstr("第 101 行"));
}

TEST(StandardListsTest, NameTheLineThatCannotBeUsed)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(u"lists.txt"_qs);
    for (const char *text : {"01,甲", "[甲]\n01", "[甲]\n01,乙\n01,丙", "[房型]\n01,甲,1,x,1,1",
                             "[甲]\n01,陈's", "[甲]\n02,乙\n[甲]", "[]\n", "[甲]\n,乙"}) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
        file.close();
        EXPECT_THAT(messageOf([&] { (void)host::readStandardLists(name); }), ::testing::HasSubstr("行有误"))
            << text;
    }
    EXPECT_NE(messageOf([&] { (void)host::readStandardLists(folder.filePath(u"none"_qs)); }), "");
}

TEST(PasswordStrengthTest, GrowsWithLengthAndVariety)
{
    const std::pair<const char16_t *, Strength> cases[] = {
        {u"1234567", Strength::TooShort},      {u"12345678", Strength::Weak},
        {u"aaaaaaaaaaaaaaaa", Strength::Weak}, {u"abcdefg1", Strength::Weak},
        {u"Abcdefg1", Strength::Fair},         {u"abcdefghi1", Strength::Fair},
        {u"Abcdefghi1", Strength::Strong},     {u"correct horse b", Strength::Strong}};
    for (const auto &[password, strength] : cases)
        EXPECT_EQ(host::strengthOf(QString::fromUtf16(password)), strength);
}

} // namespace ebtq::test
