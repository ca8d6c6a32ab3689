#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

using namespace ListingFilter;

class FcxxLookupTest : public FcxxTest
{
protected:
    void SetUp() override { init(); }
};

TEST_F(FcxxLookupTest, ListsAreTheHosts)
{
    // The caption, the row to choose, what may be typed for it, value and text. Of a house type the numbers
    // are its name.
    const std::tuple<int, QString, QString, QString, QString> cases[] = {
        {Rooms, u"房型"_qs, u"F1"_qs, u"f1 3-2-2-1"_qs, u"F1|3-2-2-1"_qs},
        {State, u"状态"_qs, u"01"_qs, u"01 有效"_qs, u"01|有效"_qs},
        {Department, u"部门"_qs, u"01"_qs, u"01 营业一部"_qs, u"1|营业一部"_qs},
    };
    for (const auto &[number, caption, row, typed, found] : cases) {
        qzTxt_S &field = list.qzTxt(number);
        EXPECT_EQ(field.Caption(), caption);
        EXPECT_TRUE(field.help_menuflag());
        EXPECT_EQ(field.error_message(), caption + u"输入有误，请重新输入！"_qs);
        panels.willChoose(row);
        field.requestHelp(5, 6);
        EXPECT_EQ(field.Value().toString() + u'|' + field.Text(), found);
        for (const QString &text : typed.split(u' ')) {
            field.type(text);
            EXPECT_TRUE(field.check());
            EXPECT_EQ(field.Value().toString() + u'|' + field.Text(), found) << text.toStdString();
        }
        field.type(u"乱"_qs);
        EXPECT_FALSE(field.check());
    }
    EXPECT_THROW((void)list.qzTxt(2), Failure);
    EXPECT_THROW((void)list.Chk(2), Failure);
}

TEST_F(FcxxLookupTest, PickersAreAskedWithTheirParameters)
{
    const std::tuple<int, QString, QString, QString, QString> cases[] = {
        {District, u"城区"_qs, u"pdmdq"_qs, u"天河区"_qs, u" pdmsfmx=1"_qs},
        {Agent, u"经纪人"_qs, u"pdmgy"_qs, u"天河区"_qs, u" 组织类型=1"_qs},
        {Building, u"楼盘"_qs, u"selpdmlpzd"_qs, u"天河区"_qs, u" lock=1 地区=天河区"_qs},
        {Building, u"楼盘"_qs, u"selpdmlpzd"_qs, {}, {}}, // the lock of the case above is gone
    };
    for (const auto &[number, caption, picker, district, parameters] : cases) {
        qzTxt_S &field = list.qzTxt(number);
        EXPECT_EQ(field.error_message(), caption + u"输入有误，请重新输入！"_qs);
        type(District, district);
        field.setText(u"旧"_qs);
        script = {};
        field.requestHelp(30, 40);
        EXPECT_EQ(field.Text() + script.textBefore, u"旧旧"_qs) << "left without a choice it changes nothing";
        script = {{}, u"新"_qs, 17, nullptr};
        field.requestHelp(30, 40);
        EXPECT_EQ(script.asked, QStringList(u"show %1 30 40"_qs.arg(picker) + parameters));
        EXPECT_EQ(field.Text() + field.Value().toString(), u"新17"_qs);
        type(District, number == District ? QString() : district);
        field.type(u"旧"_qs);
        EXPECT_TRUE(field.check());
        EXPECT_EQ(script.asked.last(), u"validate %1 旧"_qs.arg(picker) + parameters);
        EXPECT_EQ(field.Text(), u"新"_qs);
        script.ready = false;
        field.type(u"别的"_qs);
        field.requestHelp(1, 1);
        EXPECT_FALSE(field.check());
        EXPECT_EQ(script.asked.size(), 2);
    }
    EXPECT_EQ(events, QStringList());
}

TEST_F(FcxxLookupTest, LookUpsReleaseTheDatabaseAndTrapFailures)
{
    const auto lookUp = [this] {
        list.qzTxt(District).requestHelp(0, 0);
        list.qzTxt(State).requestHelp(0, 0);
        list.qzTxt(State).type(u"x"_qs);
        EXPECT_FALSE(list.qzTxt(State).check());
    };
    app.releases = 0;
    panels.willChoose({});
    lookUp();
    EXPECT_EQ(app.releases, 3);
    list.IReportUI_Clear();
    events.clear();
    lookUp();
    EXPECT_EQ(events, QStringList({u"Fcxx-->qzTxt_FieldHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"Fcxx-->qzTxt_FieldGenericHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"Fcxx-->qzTxt_FieldCheck::模块尚未初始化！|8|EBTQ_S"_qs}));
}

} // namespace
