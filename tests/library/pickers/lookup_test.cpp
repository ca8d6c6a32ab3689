// What pickers ask the database, and what they find for a typed text without any panel.

#include "library/pickers/picker_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

using PickerLookUpTest = PickerTest;

TEST_F(PickerLookUpTest, StatementsAreAsTold)
{
    const QString buildings =
        u"select 楼盘编号,拼音缩写,楼盘名称,物业用途,物业类型,建房年代,售均价,管理费,详细地址,备注,地区,"
        u"A.地区ID,楼盘ID from pdmlpzd A left join pdmdq B on A.地区ID=B.地区ID"_qs;
    const QString blocks = u"select 栋座编号,栋座名称,总楼层,栋座ID,楼盘ID from pdmDz"_qs;
    const QString match = u" Where (楼盘编号='b' OR 楼盘名称='b' OR 拼音缩写='b')"_qs;
    const struct
    {
        const char16_t *use; ///< picker, parameters and typed text, empty for the list
        QString statement;
        QString typedSpans = {};
    } cases[] = {
        {u"selPdm|*|", u"select null,代码,名称,代码 from pdmsjzd where 类型='房源备注' order by 代码"_qs},
        {u"selPdm|*;where=;order=|", u"select null,代码,名称,代码 from pdmsjzd"_qs},
        {u"selPdm|*|急",
         u"select 代码,名称,代码 from pdmsjzd Where (代码='急' OR 名称='急') and 类型='房源备注'"_qs,
         u"急,急"_qs},
        {u"selPdmLpzd||", buildings + u" order by 楼盘编号"_qs},
        {u"selPdmLpzd|地区= 石桥头 |", buildings + u" where A.地区ID=3 order by 楼盘编号"_qs},
        {u"selPdmLpzd|地区=石桥头;lock=0|b", buildings + match, u"b,b,b"_qs},
        {u"selPdmLpzd|地区=石桥头;lock=1|b", buildings + match + u" and 地区='石桥头'"_qs,
         u"b,b,b,石桥头"_qs},
        {u"selPdmDz|楼盘=云锦苑|", blocks + u" where 楼盘ID=32 order by 栋座编号"_qs},
        {u"selPdmDz|楼盘=;lock=1|", blocks + u" order by 栋座编号"_qs},
        // Blanks are cut off, wide ones are part of the name.
        {u"selPdmDz|楼盘= 云锦苑　;lock=1|A",
         u"select 栋座编号,栋座名称,总楼层,栋座ID,A.楼盘ID from pdmDz A left join pdmlpzd B on "
         u"A.楼盘ID=B.楼盘ID "
         u"Where (栋座编号='A' OR 栋座名称='A') and 楼盘名称='云锦苑　'"_qs,
         u"A,A,云锦苑　"_qs},
    };
    for (const auto &c : cases) {
        const QStringList use = QString::fromUtf16(c.use).replace(u'*', remarks).split(u'|');
        make(use[0], use[1]);
        app.releases = 0;
        use[2].isEmpty() ? picker->IPickerUI_Refresh() : validate(use[2]);
        EXPECT_EQ(app.lastStatement.text(), c.statement);
        QStringList spans;
        for (const SqlText::Span &span : app.lastStatement.typedSpans())
            spans.append(app.lastStatement.text().mid(span.begin, span.length));
        EXPECT_EQ(spans.join(u','), c.typedSpans) << c.statement.toStdString();
        EXPECT_EQ(app.releases, 1);
        EXPECT_EQ(app.Db().LastError().Description, QString());
    }
}

TEST_F(PickerLookUpTest, ValidateFindsWhatMayBeMeant)
{
    // Picker, parameters, typed text, then value and text, then the columns that give them.
    const char16_t *const cases[] = {
        u"selPdm|*|急售|12|急售||",
        u"selPdm|*|a1|A1|学位未用||",
        u"selPdm|*|15|满五唯一|15|名称|代码",
        u"selPdm|*|晚上联系||||", // outside of "where"
        u"selPdm|*|急||||",
        u"selPdmLpzd||lp2|32|云锦苑||",
        u"selPdmLpzd||bthy|31|碧棠花园||",
        u"selPdmLpzd|lock=1;地区=石桥头|云锦苑|32|云锦苑||",
        u"selPdmLpzd|lock=1;地区=石桥头|碧棠花园||||",
        u"selPdmLpzd|lock=1;地区= |碧棠花园|31|碧棠花园||",
        u"selPdmLpzd||LP1|2|湾路1号|地区ID|详细地址",
        u"selPdmLpzd||||||",
        u"selPdmDz||一栋|7|一栋||", // the first of two
        u"selPdmDz|lock=1;楼盘=云锦苑|一栋|8|一栋||",
        u"selPdmDz|lock=1;楼盘=云锦苑|a||||",
        u"selPdmDz|lock=1;楼盘=|b|8|一栋||",
    };
    for (const char16_t *each : cases) {
        SCOPED_TRACE(QString::fromUtf16(each).toStdString());
        const QStringList c = QString::fromUtf16(each).split(u'|');
        make(c[0], c[1] == u"*" ? remarks : c[1]);
        value = text = u"old"_qs;
        EXPECT_EQ(validate(c[2], c[5], c[6]), !c[3].isEmpty());
        EXPECT_EQ(value.toString(), c[3]);
        EXPECT_EQ(text, c[4]);
        EXPECT_EQ(picker->IPickerUI_Value().toString() + picker->IPickerUI_Text(), c[3] + c[4]);
        EXPECT_TRUE(picker->IPickerUI_Objects()) << "an empty one at least";
    }
}

TEST_F(PickerLookUpTest, WhatCannotBeLookedUpMatchesNothingAndLeavesTheReason)
{
    make(u"selPdmLpzd"_qs);
    ASSERT_TRUE(validate(u"LP1"_qs));
    EXPECT_FALSE(validate(u"x' or '1'='1"_qs));
    EXPECT_EQ(value.toString() + text, QString());
    EXPECT_EQ(object<clsLpzd>()->l楼盘ID, 0) << "the row of the look-up before is still there";
    EXPECT_TRUE(app.Db().LastError().Description.contains(u"单引号"));
    app.releases = 0;
    EXPECT_THROW(validate(u"LP1"_qs, u"无此列"_qs), Failure);
    EXPECT_EQ(app.releases, 1);
    picker->IPickerUI_Clear();
    EXPECT_THROW(picker->IPickerUI_Refresh(), Failure);
}

/// The look-up and the choice in the list read the same row from different places.
TEST_F(PickerLookUpTest, RowsCarryEveryFieldOnBothRoads)
{
    for (const bool byList : {false, true}) {
        const auto take = [&](const QString &typedText) {
            EXPECT_TRUE(byList ? picker->IPickerUI_Refresh() : validate(typedText));
            picker->VS().setColHidden(1, byList); // without ticks a dictionary row is chosen as any other
            picker->VS().setRow(1);
            if (byList)
                picker->VS().reportDoubleClick();
        };
        made<selPdmLpzd>();
        take(u"LP1"_qs);
        const auto building = object<clsLpzd>();
        EXPECT_EQ(std::tuple(building->l楼盘ID, building->l地区ID, building->d售均价, building->d管理费),
                  std::tuple(31, 2, 1.25, 0.8));
        EXPECT_EQ(
            QStringList({building->s楼盘编号, building->s楼盘名称, building->s物业用途, building->s物业类型,
                         building->s建房年代, building->s详细地址, building->s备注, building->s拼音缩写}),
            u"LP1;碧棠花园;住宅;多层;2003;湾路1号;近湖;BTHY"_qs.split(u';'));
        made<selPdmDz>();
        take(u"A"_qs);
        const auto block = object<clsDz>();
        EXPECT_EQ(std::tuple(block->l栋座ID, block->l楼盘ID, block->l总楼层), std::tuple(7, 31, 18));
        EXPECT_EQ(block->s栋座编号 + block->s栋座名称, u"A一栋"_qs);
        made<selPdm>(remarks + u";order=代码 desc"_qs);
        take(u"A1"_qs);
        EXPECT_EQ(object<clsPdm>()->s编号 + object<clsPdm>()->s名称, u"A1学位未用"_qs);
        EXPECT_EQ(object<clsPdm>()->lID, 0) << "a code is no number";
        EXPECT_EQ(picker->IPickerUI_Value().toString(), byList ? u"0"_qs : u"A1"_qs);
    }
}

} // namespace
