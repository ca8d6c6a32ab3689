#include "host/host_fixture.h"

namespace ebtq::test {

namespace {

const QString states = u"select 代码,名称 from pdmsjzd where 类型='交易状态' and (代码='@' or 名称='@')"_qs;
const QString houseTypes = u"select 房型编号,房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & "
                           "阳台数 as 房型名称 from pdmfx where (房型编号='@' or "
                           "房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数='@')"_qs;
const QString departments = u"select mtcode,mtName,mtID from su_usertype where mtcode='@' or mtname='@'"_qs;
const QString range = u"|本人;0|本部;1|All;2"_qs;

} // namespace

class TextJudgeTest : public HostTest
{
protected:
    /// `fields` are those of value and text, with a blank between.
    bool judge(const QString &base, const QString &fields, const QString &typedText)
    {
        m_value = m_text = u"old"_qs;
        return m_host->JudgeText(base, fields.section(u' ', 0, 0), fields.section(u' ', 1), typedText,
                                 m_value, m_text);
    }
    QVariant m_value;
    QString m_text;
};

TEST_F(TextJudgeTest, FindsWhatATextStandsFor)
{
    const std::tuple<QString, QString, QString, QString> cases[] = {
        {states, {}, u"A2"_qs, u"A2|已售"_qs},
        {states, {}, u"a2"_qs, u"A2|已售"_qs},
        {states, u"代码 名称"_qs, u"有效"_qs, u"A1|有效"_qs},
        {states, u"名称 代码"_qs, u"有效"_qs, u"有效|A1"_qs},
        {states, {}, u"南"_qs, u"|"_qs},
        {states, {}, u"%"_qs, u"|"_qs},
        {houseTypes, {}, u"3-2-2-1"_qs, u"02|3-2-2-1"_qs},
        {departments, u"MTID mtname"_qs, u"02"_qs, u"6|营业二部"_qs},
        {range, {}, u"本部"_qs, u"1|本部"_qs},
        {range, {}, u"0"_qs, u"0|本人"_qs},
        {range, {}, u"all"_qs, u"2|All"_qs},
        {range, {}, u"本"_qs, u"|"_qs},
        {u"date"_qs, {}, u"2026/09/08"_qs, u"2026-9-8|2026-9-8"_qs},
        {u"date"_qs, {}, u"2026-2-30"_qs, u"|"_qs},
        {{}, {}, u"A1"_qs, u"|"_qs},
    };
    for (const auto &[base, fields, typedText, found] : cases) {
        SCOPED_TRACE((base + u'|' + typedText).toStdString());
        EXPECT_TRUE(judge(base, fields, typedText));
        EXPECT_EQ(m_value.toString() + u'|' + m_text, found);
        EXPECT_EQ(m_host->LastError().Description, QString());
    }
    QString text = u"A1"_qs; // typed, and where what is found goes
    EXPECT_TRUE(m_host->JudgeText(states, {}, {}, text, m_value, text));
    EXPECT_EQ(text, u"有效"_qs);
}

TEST_F(TextJudgeTest, FailedChecksSayWhyAndFindNothing)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {states, {}, u"x' or '1'='1"_qs},
        {states, u"无此列"_qs, u"A1"_qs},
        {states, u"无此列"_qs, u"none of that name"_qs},
        {u"select 代码 from 无此表 where 代码='@'"_qs, {}, u"A1"_qs},
        {u"delete from pdmsjzd where 代码='@'"_qs, {}, u"A1"_qs},
    };
    qsizetype reported = 0;
    for (const auto &[base, fields, typedText] : cases) {
        SCOPED_TRACE((base + u'|' + typedText).toStdString());
        EXPECT_FALSE(judge(base, fields, typedText));
        EXPECT_EQ(m_value.toString() + m_text, QString());
        EXPECT_FALSE(m_host->LastError().Description.isEmpty());
        EXPECT_EQ(m_failures.size(), ++reported);
    }
    EXPECT_EQ(value(u"select count(*) from pdmsjzd").toInt(), 3);
}

} // namespace ebtq::test
