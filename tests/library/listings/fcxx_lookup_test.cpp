#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using ebtq::test::FcxxTest;

namespace {

class FcxxLookupTest : public FcxxTest
{
protected:
    void SetUp() override
    {
        init();
        QObject::connect(&list.qzTxt(3), &qzTxt_S::checkFailed,
                         [this](const QString &text) { refused = text; });
    }
    QString refused;
};

TEST_F(FcxxLookupTest, FieldsAreSetUpForTheirLookUp)
{
    struct Case
    {
        int number;
        QString caption;
        int helpType;
        QString helpCode;
        QString valueColumn;
        QString textColumn;
        QString statement;
    };
    const Case cases[] = {
        {0, u"城区"_qs, qzTxt_S::Custom, {}, {}, {}, {}},
        {1, u"房型"_qs, qzTxt_S::HostList, u"gy_fxrpt"_qs, u"房型编号"_qs, u"房型名称"_qs,
         u"select 房型编号,房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数 as "
         u"房型名称,房间数,客厅数,卫生间数,阳台数 from "
         u"pdmfx where (房型编号='@' or 房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数='@')"_qs},
        {3, u"状态"_qs, qzTxt_S::HostList, u"gy_sjzd_zt"_qs, u"代码"_qs, u"名称"_qs,
         u"select 代码,名称 from pdmsjzd where 类型='交易状态' and (代码='@' or 名称='@')"_qs},
        {4, u"部门"_qs, qzTxt_S::HostList, u"sy_usertype"_qs, u"mtID"_qs, u"mtName"_qs,
         u"select mtcode,mtName,mtID from su_usertype where mtcode='@' or mtname='@'"_qs},
        {5, u"经纪人"_qs, qzTxt_S::Custom, {}, {}, {}, {}},
        {7, u"楼盘"_qs, qzTxt_S::Custom, {}, {}, {}, {}},
    };
    for (const Case &c : cases) {
        const qzTxt_S &field = list.qzTxt(c.number);
        EXPECT_EQ(field.Index(), c.number);
        EXPECT_EQ(field.Caption(), c.caption);
        EXPECT_EQ(field.error_message(), c.caption + u"输入有误，请重新输入！"_qs);
        EXPECT_TRUE(field.help_flag() && field.help_menuflag());
        EXPECT_EQ(field.judge_type(), qzTxt_S::JudgeStatement);
        EXPECT_EQ(field.help_type(), c.helpType) << c.number;
        EXPECT_EQ(field.help_code(), c.helpCode);
        EXPECT_EQ(field.text_field_code(), c.valueColumn);
        EXPECT_EQ(field.text_field_name(), c.textColumn);
        EXPECT_EQ(field.judge_base(), c.statement) << c.number;
    }
    EXPECT_THROW((void)list.qzTxt(2), Failure);
    EXPECT_EQ(list.Chk(1).Caption(), u"出租"_qs);
    EXPECT_THROW((void)list.Chk(2), Failure);
}

TEST_F(FcxxLookupTest, PickersAreAskedWithTheirParameters)
{
    const std::tuple<int, QString, QString, QString> cases[] = {
        {0, u"pdmdq"_qs, u"天河区"_qs, u" pdmsfmx=1"_qs},
        {5, u"pdmgy"_qs, u"天河区"_qs, u" 组织类型=1"_qs},
        {7, u"selpdmlpzd"_qs, u"天河区"_qs, u" lock=1 地区=天河区"_qs},
        {7, u"selpdmlpzd"_qs, QString(), QString()}, // the lock of the case above is gone
    };
    for (const auto &[number, picker, district, parameters] : cases) {
        qzTxt_S &field = list.qzTxt(number);
        list.qzTxt(0).setText(district);
        field.setText(u"旧"_qs);
        script = {};
        field.requestHelp(30, 40);
        EXPECT_EQ(field.Text() + script.textBefore, u"旧旧"_qs) << "left without a choice it changes nothing";
        script.value = 17;
        script.text = u"新"_qs;
        field.requestHelp(30, 40);
        EXPECT_EQ(script.asked, QStringList(2, u"show %1 30 40"_qs.arg(picker) + parameters));
        EXPECT_EQ(field.Text(), u"新"_qs);
        EXPECT_EQ(field.Value(), 17);
        list.qzTxt(0).setText(number == 0 ? QString() : district);
        field.type(u"旧"_qs);
        EXPECT_TRUE(field.check());
        EXPECT_EQ(script.asked.last(), u"validate %1 旧"_qs.arg(picker) + parameters);
        EXPECT_EQ(field.Text(), u"新"_qs);
        script.ready = false;
        field.type(u"别的"_qs);
        field.requestHelp(1, 1);
        EXPECT_FALSE(field.check());
        EXPECT_EQ(script.asked.size(), 3);
    }
    EXPECT_EQ(events, QStringList());
}

TEST_F(FcxxLookupTest, ListsAreTheHosts)
{
    qzTxt_S &field = list.qzTxt(3);
    for (const bool byList : {true, false}) {
        field.setText({});
        if (byList)
            panels.willChoose(u"01"_qs);
        byList ? field.requestHelp(5, 6) : field.type(u"01"_qs);
        EXPECT_TRUE(field.check());
        EXPECT_EQ(field.Text() + field.Value().toString(), u"有效01"_qs);
    }
    field.type(u"乱"_qs);
    EXPECT_FALSE(field.check());
    EXPECT_EQ(refused, u"状态输入有误，请重新输入！"_qs);
    EXPECT_EQ(field.Text(), u"乱"_qs);
}

TEST_F(FcxxLookupTest, LookUpsReleaseTheDatabaseAndTrapFailures)
{
    const auto lookUp = [this] {
        list.qzTxt(0).requestHelp(0, 0);
        list.qzTxt(3).requestHelp(0, 0);
        list.qzTxt(3).type(u"x"_qs);
        EXPECT_FALSE(list.qzTxt(3).check());
    };
    app.releases = 0;
    panels.willChoose({});
    lookUp();
    EXPECT_EQ(app.releases, 3);
    list.IReportUI_Clear();
    events.clear();
    lookUp();
    EXPECT_EQ(events, QStringList({u"error Fcxx-->qzTxt_FieldHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"error Fcxx-->qzTxt_FieldGenericHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"error Fcxx-->qzTxt_FieldCheck::模块尚未初始化！|8|EBTQ_S"_qs}));
}

} // namespace
