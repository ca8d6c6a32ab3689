#include "host/host_fixture.h"

namespace ebtq::test {

namespace {

const QString states =
    QStringLiteral("select 代码,名称 from pdmsjzd where 类型='交易状态' and (代码='@' or 名称='@')");
const QString houseTypes = QStringLiteral("select 房型编号,房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & "
                                          "阳台数 as 房型名称 from pdmfx where (房型编号='@' or "
                                          "房间数 & '-' & 客厅数 & '-' & 卫生间数 & '-' & 阳台数='@')");
const QString departments =
    QStringLiteral("select mtcode,mtName,mtID from su_usertype where mtcode='@' or mtname='@'");
const QString range = QStringLiteral("|本人;0|本部;1|All;2");

struct Case
{
    QString base;
    QString valueField;
    QString textField;
    QString typedText;
    QString value;
    QString text;
};

} // namespace

class TextJudgeTest : public HostTest
{
protected:
    bool judge(const Case &judged)
    {
        m_value = QStringLiteral("old");
        m_text = QStringLiteral("old");
        return m_host->JudgeText(judged.base, judged.valueField, judged.textField, judged.typedText, m_value,
                                 m_text);
    }
    QVariant m_value;
    QString m_text;
};

TEST_F(TextJudgeTest, FindsWhatATextStandsFor)
{
    const Case cases[] = {
        {states, {}, {}, QStringLiteral("A2"), QStringLiteral("A2"), QStringLiteral("已售")},
        {states, {}, {}, QStringLiteral("a2"), QStringLiteral("A2"), QStringLiteral("已售")},
        {states, QStringLiteral("代码"), QStringLiteral("名称"), QStringLiteral("有效"), QStringLiteral("A1"),
         QStringLiteral("有效")},
        {states, QStringLiteral("名称"), QStringLiteral("代码"), QStringLiteral("有效"),
         QStringLiteral("有效"), QStringLiteral("A1")},
        {states, {}, {}, QStringLiteral("南"), {}, {}},
        {states, {}, {}, QStringLiteral("%"), {}, {}},
        {houseTypes, {}, {}, QStringLiteral("3-2-2-1"), QStringLiteral("02"), QStringLiteral("3-2-2-1")},
        {departments, QStringLiteral("MTID"), QStringLiteral("mtname"), QStringLiteral("02"),
         QStringLiteral("6"), QStringLiteral("营业二部")},
        {range, {}, {}, QStringLiteral("本部"), QStringLiteral("1"), QStringLiteral("本部")},
        {range, {}, {}, QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("本人")},
        {range, {}, {}, QStringLiteral("all"), QStringLiteral("2"), QStringLiteral("All")},
        {range, {}, {}, QStringLiteral("本"), {}, {}},
        {QStringLiteral("date"),
         {},
         {},
         QStringLiteral("2026/09/08"),
         QStringLiteral("2026-9-8"),
         QStringLiteral("2026-9-8")},
        {QStringLiteral("date"), {}, {}, QStringLiteral("2026-2-30"), {}, {}},
        {{}, {}, {}, QStringLiteral("A1"), {}, {}},
    };
    for (const Case &judged : cases) {
        SCOPED_TRACE((judged.base + u'|' + judged.typedText).toStdString());
        EXPECT_TRUE(judge(judged));
        EXPECT_EQ(m_value.toString(), judged.value);
        EXPECT_EQ(m_text, judged.text);
        EXPECT_EQ(m_host->LastError().Description, QString());
    }
}

TEST_F(TextJudgeTest, FailedChecksSayWhyAndFindNothing)
{
    const Case cases[] = {
        {states, {}, {}, QStringLiteral("x' or '1'='1"), {}, {}},
        {states, QStringLiteral("无此列"), {}, QStringLiteral("A1"), {}, {}},
        {states, QStringLiteral("无此列"), {}, QStringLiteral("none of that name"), {}, {}},
        {QStringLiteral("select 代码 from 无此表 where 代码='@'"), {}, {}, QStringLiteral("A1"), {}, {}},
        {QStringLiteral("delete from pdmsjzd where 代码='@'"), {}, {}, QStringLiteral("A1"), {}, {}},
    };
    qsizetype reported = 0;
    for (const Case &judged : cases) {
        SCOPED_TRACE((judged.base + u'|' + judged.typedText).toStdString());
        EXPECT_FALSE(judge(judged));
        EXPECT_EQ(m_value.toString(), QString());
        EXPECT_EQ(m_text, QString());
        EXPECT_FALSE(m_host->LastError().Description.isEmpty());
        EXPECT_EQ(m_failures.size(), ++reported);
    }
    EXPECT_EQ(value(u"select count(*) from pdmsjzd").toInt(), 3);
}

TEST_F(TextJudgeTest, TypedTextMayBeTheTextThatIsFilled)
{
    QVariant found;
    QString text = QStringLiteral("A1");
    EXPECT_TRUE(m_host->JudgeText(states, {}, {}, text, found, text));
    EXPECT_EQ(text, QStringLiteral("有效"));
}

} // namespace ebtq::test
