#include "library/listings/fcxx_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

class FcxxLookupTest : public FcxxTest
{
protected:
    void SetUp() override { init(); }
};

TEST_F(FcxxLookupTest, ListsAreTheHosts)
{
    // The row to choose, what may be typed for it, value and text. Of a house type the numbers are its name.
    struct Case
    {
        int number;
        QString caption;
        QString row;
        QStringList typed;
        QString found;
    };
    const Case cases[] = {
        {1, u"房型"_qs, u"F1"_qs, {u"f1"_qs, u"3-2-2-1"_qs}, u"F1|3-2-2-1"_qs},
        {3, u"状态"_qs, u"01"_qs, {u"01"_qs, u"有效"_qs}, u"01|有效"_qs},
        {4, u"部门"_qs, u"01"_qs, {u"01"_qs, u"营业一部"_qs}, u"1|营业一部"_qs},
    };
    for (const Case &c : cases) {
        qzTxt_S &field = list.qzTxt(c.number);
        const auto found = [&] { return field.Value().toString() + u'|' + field.Text(); };
        EXPECT_EQ(field.Caption(), c.caption);
        EXPECT_TRUE(field.help_menuflag());
        panels.willChoose(c.row);
        field.requestHelp(5, 6);
        EXPECT_EQ(found(), c.found);
        for (const QString &text : c.typed) {
            field.type(text);
            EXPECT_TRUE(field.check());
            EXPECT_EQ(found(), c.found) << text.toStdString();
        }
        field.type(u"乱"_qs);
        QString refused;
        QObject::connect(&field, &qzTxt_S::checkFailed, [&](const QString &text) { refused = text; });
        EXPECT_FALSE(field.check());
        EXPECT_EQ(refused, c.caption + u"输入有误，请重新输入！"_qs);
        EXPECT_EQ(field.Text(), u"乱"_qs);
        QObject::disconnect(&field, &qzTxt_S::checkFailed, nullptr, nullptr);
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
        EXPECT_EQ(field.error_message(), field.Caption() + u"输入有误，请重新输入！"_qs);
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
    EXPECT_EQ(list.qzTxt(0).Caption() + list.qzTxt(5).Caption() + list.qzTxt(7).Caption(),
              u"城区经纪人楼盘"_qs);
    EXPECT_EQ(events, QStringList());
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
    EXPECT_EQ(events, QStringList({u"Fcxx-->qzTxt_FieldHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"Fcxx-->qzTxt_FieldGenericHelp::模块尚未初始化！|8|EBTQ_S"_qs,
                                   u"Fcxx-->qzTxt_FieldCheck::模块尚未初始化！|8|EBTQ_S"_qs}));
}

} // namespace
