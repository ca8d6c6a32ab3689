// What pickers ask the database, what they find for a typed text, and their list as a person uses it.

#include "library/pickers/picker_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

TEST_F(PickerTest, StatementsAreAsTold)
{
    const QString buildings =
        u"select 楼盘编号,拼音缩写,楼盘名称,物业用途,物业类型,建房年代,售均价,管理费,详细地址,备注,地区,"
        u"A.地区ID,楼盘ID from pdmlpzd A left join pdmdq B on A.地区ID=B.地区ID"_qs;
    const QString blocks = u"select 栋座编号,栋座名称,总楼层,栋座ID,楼盘ID from pdmDz"_qs;
    const QString match = u" Where (楼盘编号='b' OR 楼盘名称='b' OR 拼音缩写='b')"_qs;
    // Picker, parameters and typed text, empty for the list; the statement and what is typed in it.
    const std::tuple<const char16_t *, QString, QString> cases[] = {
        {u"selPdm|*|", u"select null,代码,名称,代码 from pdmsjzd where 类型='房源备注' order by 代码"_qs, {}},
        {u"selPdm|*;where=;order=|", u"select null,代码,名称,代码 from pdmsjzd"_qs, {}},
        {u"selPdm|*|急",
         u"select 代码,名称,代码 from pdmsjzd Where (代码='急' OR 名称='急') and 类型='房源备注'"_qs,
         u"急,急"_qs},
        {u"selPdmLpzd||", buildings + u" order by 楼盘编号"_qs, {}},
        {u"selPdmLpzd|地区= 石桥头 |", buildings + u" where A.地区ID=3 order by 楼盘编号"_qs, {}},
        {u"selPdmLpzd|地区=石桥头;lock=0|b", buildings + match, u"b,b,b"_qs},
        {u"selPdmLpzd|地区=石桥头;lock=1|b", buildings + match + u" and 地区='石桥头'"_qs,
         u"b,b,b,石桥头"_qs},
        {u"selPdmDz|楼盘=云锦苑|", blocks + u" where 楼盘ID=32 order by 栋座编号"_qs, {}},
        {u"selPdmDz|楼盘=;lock=1|", blocks + u" order by 栋座编号"_qs, {}},
        // Blanks are cut off, wide ones are part of the name.
        {u"selPdmDz|楼盘= 云锦苑　;lock=1|A",
         u"select 栋座编号,栋座名称,总楼层,栋座ID,A.楼盘ID from pdmDz A left join pdmlpzd B on "
         u"A.楼盘ID=B.楼盘ID "
         u"Where (栋座编号='A' OR 栋座名称='A') and 楼盘名称='云锦苑　'"_qs,
         u"A,A,云锦苑　"_qs},
    };
    for (const auto &[asked, statement, typedSpans] : cases) {
        const QStringList use = QString::fromUtf16(asked).replace(u'*', remarks).split(u'|');
        make(use[0], use[1]);
        app.releases = 0;
        use[2].isEmpty() ? picker->IPickerUI_Refresh() : validate(use[2]);
        EXPECT_EQ(app.lastStatement.text(), statement);
        QStringList spans;
        for (const SqlText::Span &span : app.lastStatement.typedSpans())
            spans.append(app.lastStatement.text().mid(span.begin, span.length));
        EXPECT_EQ(spans.join(u','), typedSpans) << statement.toStdString();
        EXPECT_EQ(app.releases, 1);
        EXPECT_EQ(app.Db().LastError().Description, QString());
    }
}

TEST_F(PickerTest, ValidateFindsWhatMayBeMeant)
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

TEST_F(PickerTest, WhatCannotBeLookedUpMatchesNothingAndLeavesTheReason)
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
TEST_F(PickerTest, RowsCarryEveryFieldOnBothRoads)
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

class PickerPanelTest : public PickerTest
{
protected:
    template<class P> P &loaded(const QString &parameters = {})
    {
        P &result = made<P>(parameters);
        EXPECT_TRUE(result.IPickerUI_Refresh());
        return result;
    }
    /// Value and text of the choice.
    [[nodiscard]] QString choice() const
    {
        return picker->IPickerUI_Value().toString() + u'|' + picker->IPickerUI_Text();
    }
};

TEST_F(PickerPanelTest, GridsAndControlsAreAsTold)
{
    // Alignment of each column, left, centred or right; hidden columns in capitals.
    for (const auto &[name, columns, caption] :
         {std::tuple(u"selPdm"_qs, u"lcllL"_qs, QString()),
          std::tuple(u"selPdmLpzd"_qs, u"lllllllrrlllLL"_qs, u"地区(&T):"_qs),
          std::tuple(u"selPdmDz"_qs, u"lllrLL"_qs, u"楼盘字典(&T):"_qs)}) {
        make(name);
        const VSFlexGrid &grid = picker->VS();
        const QMap<int, QChar> letters{
            {VSFlexGrid::AlignLeft, u'l'}, {VSFlexGrid::AlignCentre, u'c'}, {VSFlexGrid::AlignRight, u'r'}};
        QString shape;
        for (int column = 0; column < grid.Cols(); ++column) {
            const QChar letter = letters.value(grid.ColAlignment(column));
            shape += grid.ColHidden(column) ? letter.toUpper() : letter;
        }
        EXPECT_EQ(shape, columns);
        EXPECT_EQ(grid.FrozenCols(), 3);
        EXPECT_EQ(picker->Txt(0).Caption() + picker->Txt(1).Text(), u"查询(&B):1;2;4"_qs);
        EXPECT_EQ(picker->Cmb() ? picker->Cmb()->Caption() : QString(), caption);
        EXPECT_EQ(picker->layoutFolder(), folder.path() + u"/selfbb"_qs);
    }
    EXPECT_THROW((void)picker->btn(3), Failure) << "only the dictionary picker has ticks";
}

TEST_F(PickerPanelTest, TickedRowsAreTheChoice)
{
    auto &list = loaded<selPdm>(remarks);
    const std::pair<QList<int>, QString> cases[] = {{{}, u"|"_qs},
                                                    {{1, 2}, u"12,15|急售,满五唯一"_qs},
                                                    {{3}, u"0|学位未用"_qs},
                                                    {{2, 2, 0, 9, 1}, u"12|急售"_qs}};
    for (const auto &[clicked, chosen] : cases) {
        list.btn(4).press();
        for (const int row : clicked)
            list.clickRow(row);
        list.VS().setRow(3);
        events.clear();
        list.VS().reportDoubleClick();
        EXPECT_EQ(events, QStringList()) << "rows are ticked, not double-clicked";
        list.btn(0).press();
        EXPECT_EQ(events, QStringList(u"select"_qs));
        EXPECT_EQ(choice(), chosen);
        EXPECT_EQ(object<clsPdm>()->s编号, u"A1"_qs) << "the row is the current one";
    }
    list.VS().setTextMatrix(2, 2, QString());
    list.btn(3).press();
    list.Check().setValue(1);
    list.Txt(0).setText(u"A1"_qs);
    list.Txt(0).pressReturn();
    EXPECT_EQ(choice(), u"12,0|急售,学位未用"_qs) << "no row without a code, but those out of sight";
    list.VS().setColWidth(1, 0);
    list.clickRow(1);
    list.btn(0).press();
    EXPECT_EQ(choice(), u"0|学位未用"_qs) << "ticks that nobody sees do not count";
    list.VS().setColWidth(1, 40);
    list.btn(0).press();
    EXPECT_EQ(choice(), u"12,0|急售,学位未用"_qs) << "and a click sets none";
}

TEST_F(PickerPanelTest, OneRowIsTheChoice)
{
    auto &list = loaded<selPdmLpzd>();
    const std::function<void()> ways[] = {[&] { list.btn(0).press(); }, [&] { list.Txt(0).pressReturn(); },
                                          [&] { list.VS().reportDoubleClick(); }};
    for (const auto &confirm : ways) {
        list.VS().setRow(2);
        confirm();
        EXPECT_EQ(choice(), u"32|云锦苑"_qs);
    }
    list.VS().setRow(0);
    list.Txt(0).pressReturn();
    EXPECT_EQ(events.count(u"select"_qs), 3) << "a search without a hit chooses nothing";
    list.btn(0).press();
    EXPECT_EQ(choice(), u"|"_qs) << "the captions are no building";
    EXPECT_FALSE(list.IPickerUI_Objects());
    EXPECT_EQ(events.count(u"select"_qs), 4);
    list.btn(1).press();
    EXPECT_EQ(events.last(), u"cancel"_qs);
}

TEST_F(PickerPanelTest, FindsInTheSearchedColumnsInTheirOrder)
{
    auto &list = loaded<selPdmLpzd>();
    // Columns asked for before, whole cells, the text, and the row that it is found in from row 3.
    const std::tuple<QString, bool, QString, int> cases[] = {
        {{}, false, u"云锦"_qs, 3}, // names are not searched until asked for
        {{}, false, u"yj"_qs, 2},
        {{}, true, u"yj"_qs, 3},
        {{}, true, u"yjy"_qs, 2},
        {u"4;3"_qs, false, u"云锦"_qs, 2},
        {u"12;99;x"_qs, false, u"LP"_qs, 3},
        {u" 4 "_qs, false, u"LP2"_qs, 2}, // one column stands for the current one
    };
    for (const auto &[columns, wholeCells, wanted, row] : cases) {
        if (!columns.isEmpty()) {
            desktop.willType(columns);
            list.askForColumns();
            EXPECT_EQ(desktop.asked().last(), u"查找|请输入欲查询的列(格式: 列1;列2;...列n):"_qs);
        }
        list.Txt(0).setText(u"清空"_qs);
        list.VS().setCurrent(3, 1);
        list.ChkFind().setValue(wholeCells ? 1 : 0);
        list.Txt(0).setText(wanted);
        EXPECT_EQ(list.VS().Row(), row) << wanted.toStdString();
        EXPECT_EQ(list.VS().visibleCount(), 3);
    }
    desktop.willType(std::nullopt);
    list.askForColumns();
    EXPECT_EQ(list.Txt(1).Text(), u" 4 "_qs);
    desktop.willType(QString());
    list.askForColumns();
    EXPECT_EQ(list.Txt(1).Text(), u" 4 "_qs);
}

TEST_F(PickerPanelTest, FilterLeavesWhatMatches)
{
    auto &list = loaded<selPdmLpzd>();
    list.Check().setValue(1);
    EXPECT_EQ(list.ChkFind().Caption(), u"左起字符匹配"_qs);
    const std::tuple<QString, bool, QString> cases[] = {
        {u"jy"_qs, false, u"LP2"_qs},    {u"jy"_qs, true, {}},      {u"yj"_qs, true, u"LP2"_qs},
        {u"住"_qs, true, u"LP1 LP3"_qs}, {u"云锦苑"_qs, false, {}}, {{}, false, u"LP1 LP2 LP3"_qs}};
    for (const auto &[wanted, fromBegin, left] : cases) {
        list.ChkFind().setValue(fromBegin ? 1 : 0);
        list.Txt(0).setText(wanted);
        EXPECT_EQ(shown(1).join(u' '), left) << wanted.toStdString();
        const qsizetype choices = events.count(u"select"_qs);
        list.Txt(0).pressReturn();
        EXPECT_EQ(events.count(u"select"_qs) - choices, left.isEmpty() ? 0 : 1);
        EXPECT_TRUE(left.isEmpty() || object<clsLpzd>()->s楼盘编号 == left.section(u' ', 0, 0))
            << "Enter takes the first row in sight, never one out of sight";
    }
    list.Txt(0).setText(u"商铺"_qs);
    list.btn(2).press();
    EXPECT_EQ(shown(1).join(u' '), u"LP2"_qs) << "rows loaded again are filtered again";
    list.Check().setValue(0);
    EXPECT_EQ(list.ChkFind().Caption(), u"全字匹配"_qs);
    EXPECT_EQ(list.VS().visibleCount(), 3);
    EXPECT_EQ(list.VS().Row(), 2) << "and the text is looked for";
}

TEST_F(PickerPanelTest, TheComboBoxNarrowsTheList)
{
    auto &list = loaded<selPdmLpzd>(u"地区=;lock=1"_qs);
    XPCombo &district = *list.Cmb();
    EXPECT_EQ(district.items().join(u' '), u"全部 清水湾 石桥头 清水湾"_qs);
    EXPECT_FALSE(district.Enabled());
    EXPECT_EQ(district.Text() + shown(1).join(u' '), u"全部LP1 LP2 LP3"_qs);
    // Parameters, whether they are another use's, the combo box and the list.
    const std::tuple<QString, bool, QString, QString> cases[] = {
        {u"地区=石桥头"_qs, true, u"石桥头"_qs, u"LP2"_qs},
        {u"lock=0"_qs, false, u"石桥头"_qs, u"LP2"_qs},
        {{}, true, u"全部"_qs, u"LP1 LP2 LP3"_qs},
        {u"地区=无此地区"_qs, true, u"无此地区"_qs, {}},
    };
    for (const auto &[parameters, isNewUse, name, codes] : cases) {
        if (isNewUse)
            list.IPickerUI_Parameters(ParameterList());
        set(parameters);
        EXPECT_TRUE(list.IPickerUI_Refresh());
        EXPECT_TRUE(district.Enabled());
        EXPECT_EQ(district.Text(), name);
        EXPECT_EQ(shown(1).join(u' '), codes) << name.toStdString();
    }
}

TEST_F(PickerPanelTest, ALoadThatFailsLeavesAnEmptyListAndTellsWhy)
{
    Picker &list = loaded<selPdm>(remarks);
    set(u"table="_qs);
    EXPECT_FALSE(list.IPickerUI_Refresh());
    EXPECT_EQ(list.VS().Rows(), 1);
    EXPECT_NE(app.Db().LastError().Description, QString());
    EXPECT_EQ(list.lblFailure().Caption(), app.Db().LastError().Description);
    set(u"table=pdmsjzd"_qs);
    list.btn(2).press();
    EXPECT_EQ(list.lblFailure().Caption(), QString());
    EXPECT_EQ(list.VS().visibleCount(), 3);

    connection->executeNative("drop table pdmlpzd");
    make(u"selPdmDz"_qs);
    EXPECT_FALSE(picker->IPickerUI_Refresh()) << "the blocks are there, the combo box's buildings are not";
    picker->IPickerUI_Clear();
    picker->btn(2).press();
    EXPECT_EQ(picker->lblFailure().Caption(), u"selPdmDz-->RefreshVS::模块尚未初始化！"_qs);
}

} // namespace
