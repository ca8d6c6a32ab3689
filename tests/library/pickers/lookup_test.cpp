// What pickers ask the database, and what they find for a typed text without any panel.

#include "library/pickers/picker_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

const QString buildings =
    u"select 楼盘编号,拼音缩写,楼盘名称,物业用途,物业类型,建房年代,售均价,管理费,详细地址,备注,地区,"
    u"A.地区ID,楼盘ID from pdmlpzd A left join pdmdq B on A.地区ID=B.地区ID"_qs;
const QString blocks = u"select 栋座编号,栋座名称,总楼层,栋座ID,楼盘ID from pdmDz"_qs;
const QString blocksAndBuildings = u"select 栋座编号,栋座名称,总楼层,栋座ID,A.楼盘ID from pdmDz A left join "
                                   u"pdmlpzd B on A.楼盘ID=B.楼盘ID"_qs;

class PickerLookUpTest : public PickerTest
{
protected:
    [[nodiscard]] QStringList typedSpans() const
    {
        QStringList spans;
        const SqlText &sql = app.database.statements.last();
        for (const SqlText::Span &span : sql.typedSpans())
            spans.append(sql.text().mid(span.begin, span.length));
        return spans;
    }
};

TEST_F(PickerLookUpTest, StatementsAreAsTold)
{
    struct Case
    {
        const char *picker; ///< dictionary, building or block
        Parameters parameters;
        QString typedText; ///< empty for the list
        QString statement;
        QStringList typedSpans;
    };
    const Case cases[] = {
        {"d", remarks({}), {}, u"select null,代码,名称,代码 from pdmsjzd order by 代码"_qs, {}},
        {"d",
         remarks(),
         {},
         u"select null,代码,名称,代码 from pdmsjzd where 类型='房源备注' order by 代码"_qs,
         {}},
        {"d",
         remarks(),
         u"急"_qs,
         u"select 代码,名称,代码 from pdmsjzd Where (代码='急' OR 名称='急') and 类型='房源备注'"_qs,
         {u"急"_qs, u"急"_qs}},
        {"b", {}, {}, buildings + u" order by 楼盘编号"_qs, {}},
        {"b", {{u"地区"_qs, u" 石桥头 "_qs}}, {}, buildings + u" where A.地区ID=3 order by 楼盘编号"_qs, {}},
        {"b",
         {{u"地区"_qs, u"石桥头"_qs}, {u"lock"_qs, 0}},
         u"b"_qs,
         buildings + u" Where (楼盘编号='b' OR 楼盘名称='b' OR 拼音缩写='b')"_qs,
         {u"b"_qs, u"b"_qs, u"b"_qs}},
        {"b",
         {{u"地区"_qs, u"石桥头"_qs}, {u"lock"_qs, u"1"_qs}},
         u"b"_qs,
         buildings + u" Where (楼盘编号='b' OR 楼盘名称='b' OR 拼音缩写='b') and 地区='石桥头'"_qs,
         {u"b"_qs, u"b"_qs, u"b"_qs, u"石桥头"_qs}},
        {"k", {{u"楼盘"_qs, u"云锦苑"_qs}}, {}, blocks + u" where 楼盘ID=32 order by 栋座编号"_qs, {}},
        {"k", {{u"楼盘"_qs, QString()}, {u"lock"_qs, 1}}, {}, blocks + u" order by 栋座编号"_qs, {}},
        {"k",
         {{u"楼盘"_qs, u"云锦苑"_qs}, {u"lock"_qs, 1}},
         u"一栋"_qs,
         blocksAndBuildings + u" Where (栋座编号='一栋' OR 栋座名称='一栋') and 楼盘名称='云锦苑'"_qs,
         {u"一栋"_qs, u"一栋"_qs, u"云锦苑"_qs}},
    };
    for (const Case &c : cases) {
        make(c.picker, c.parameters);
        app.database.releases = 0;
        if (c.typedText.isEmpty())
            EXPECT_TRUE(picker->IPickerUI_Refresh());
        else
            (void)validate(c.typedText);
        EXPECT_EQ(app.database.statements.last().text(), c.statement);
        EXPECT_EQ(typedSpans(), c.typedSpans) << c.statement.toStdString();
        EXPECT_EQ(app.database.releases, 1);
        EXPECT_EQ(app.Db().LastError().Description, QString());
    }
}

TEST_F(PickerLookUpTest, ValidateFindsWhatMayBeMeant)
{
    const Parameters locked{{u"lock"_qs, 1}, {u"地区"_qs, u"石桥头"_qs}, {u"楼盘"_qs, u"云锦苑"_qs}};
    const Parameters lockedToNothing{{u"lock"_qs, 1}, {u"地区"_qs, u" "_qs}, {u"楼盘"_qs, QString()}};
    struct Case
    {
        const char *picker;
        Parameters parameters;
        QString typedText;
        QString value;
        QString text;
        QString valueField = {};
        QString textField = {};
    };
    const Case cases[] = {
        {"d", remarks(), u"急售"_qs, u"12"_qs, u"急售"_qs},
        {"d", remarks(), u"a1"_qs, u"A1"_qs, u"学位未用"_qs},
        {"d", remarks(), u"15"_qs, u"满五唯一"_qs, u"15"_qs, u"名称"_qs, u"代码"_qs},
        {"d", remarks(), u"晚上联系"_qs, {}, {}}, // outside of "where"
        {"d", remarks(), u"急"_qs, {}, {}},
        {"b", {}, u"lp2"_qs, u"32"_qs, u"云锦苑"_qs},
        {"b", {}, u"bthy"_qs, u"31"_qs, u"碧棠花园"_qs},
        {"b", locked, u"云锦苑"_qs, u"32"_qs, u"云锦苑"_qs},
        {"b", locked, u"碧棠花园"_qs, {}, {}},
        {"b", lockedToNothing, u"碧棠花园"_qs, u"31"_qs, u"碧棠花园"_qs},
        {"b", {}, u"LP1"_qs, u"2"_qs, u"湾路1号"_qs, u"地区ID"_qs, u"详细地址"_qs},
        {"k", {}, u"一栋"_qs, u"7"_qs, u"一栋"_qs}, // the first of two
        {"k", locked, u"一栋"_qs, u"8"_qs, u"一栋"_qs},
        {"k", lockedToNothing, u"b"_qs, u"8"_qs, u"一栋"_qs},
        {"k", locked, u"a"_qs, {}, {}},
        {"b", {}, QString(), {}, {}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE((QLatin1String(c.picker) + u' ' + c.typedText).toStdString());
        make(c.picker, c.parameters);
        value = text = u"old"_qs;
        EXPECT_EQ(validate(c.typedText, c.valueField, c.textField), !c.value.isEmpty());
        EXPECT_EQ(value, QVariant(c.value));
        EXPECT_EQ(text, c.text);
        EXPECT_EQ(picker->IPickerUI_Value(), value);
        EXPECT_EQ(picker->IPickerUI_Text(), text);
        EXPECT_TRUE(picker->IPickerUI_Objects()) << "an empty one at least";
    }
}

TEST_F(PickerLookUpTest, WhatCannotBeLookedUpMatchesNothingAndLeavesTheReason)
{
    make("building", {});
    ASSERT_TRUE(validate(u"LP1"_qs));
    EXPECT_FALSE(validate(u"x' or '1'='1"_qs));
    EXPECT_EQ(value, QVariant(QString()));
    EXPECT_EQ(text, QString());
    EXPECT_EQ(object<clsLpzd>()->l楼盘ID, 0) << "the row of the look-up before is still there";
    EXPECT_TRUE(app.Db().LastError().Description.contains(u"单引号"));
    app.database.releases = 0;
    EXPECT_THROW(validate(u"LP1"_qs, u"无此列"_qs), Failure);
    EXPECT_EQ(app.database.releases, 1);
    picker->IPickerUI_Clear();
    EXPECT_THROW(picker->IPickerUI_Refresh(), Failure);
}

/// The look-up and the choice in the list read the same row from different places.
TEST_F(PickerLookUpTest, RowsCarryEveryFieldOnBothRoads)
{
    const std::function<void()> roads[] = {[this] { EXPECT_TRUE(validate(u"BTHY"_qs) || validate(u"A"_qs)); },
                                           [this] {
                                               EXPECT_TRUE(picker->IPickerUI_Refresh());
                                               picker->VS().reportDoubleClick();
                                           }};
    for (const auto &take : roads) {
        made<selPdmLpzd>();
        take();
        const auto building = object<clsLpzd>();
        EXPECT_EQ(building->l楼盘ID, 31);
        EXPECT_EQ(building->l地区ID, 2);
        EXPECT_EQ(building->d售均价, 1.25);
        EXPECT_EQ(building->d管理费, 0.8);
        EXPECT_EQ(
            QStringList({building->s楼盘编号, building->s楼盘名称, building->s物业用途, building->s物业类型,
                         building->s建房年代, building->s详细地址, building->s备注, building->s拼音缩写}),
            u"LP1;碧棠花园;住宅;多层;2003;湾路1号;近湖;BTHY"_qs.split(u';'));
        made<selPdmDz>();
        take();
        const auto block = object<clsDz>();
        EXPECT_EQ(std::tuple(block->l栋座ID, block->l楼盘ID, block->l总楼层), std::tuple(7, 31, 18));
        EXPECT_EQ(block->s栋座编号 + block->s栋座名称, u"A一栋"_qs);
    }
}

TEST_F(PickerLookUpTest, AKeyThatIsNoNumberIsNoneInTheRow)
{
    for (const auto &[typedText, key] : {std::pair(u"学位未用"_qs, 0), std::pair(u"15"_qs, 15)}) {
        made<selPdm>(remarks());
        ASSERT_TRUE(validate(typedText));
        EXPECT_EQ(object<clsPdm>()->lID, key);
    }
    EXPECT_EQ(object<clsPdm>()->s编号 + object<clsPdm>()->s名称, u"15满五唯一"_qs);
}

} // namespace
