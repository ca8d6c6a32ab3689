// The list of a picker as a person uses it, without a screen.

#include "library/pickers/picker_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

class PickerPanelTest : public PickerTest
{
protected:
    template<class P> P &loaded(const Parameters &parameters = {})
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
    [[nodiscard]] int row() const { return picker->VS().Row(); }
};

TEST_F(PickerPanelTest, GridsAndControlsAreAsTold)
{
    struct Case
    {
        const char *picker;
        int columns;
        QList<int> hidden;
        QList<int> right;
        QString caption;
    };
    const Case cases[] = {{"dictionary", 5, {4}, {}, {}},
                          {"building", 14, {12, 13}, {7, 8}, u"地区(&T):"_qs},
                          {"kblock", 6, {4, 5}, {3}, u"楼盘字典(&T):"_qs}};
    for (const Case &c : cases) {
        make(c.picker, {});
        const VSFlexGrid &grid = picker->VS();
        ASSERT_EQ(grid.Cols(), c.columns);
        for (int column = 0; column < grid.Cols(); ++column) {
            EXPECT_EQ(grid.ColHidden(column), c.hidden.contains(column)) << column;
            const bool isTick = *c.picker == 'd' && column == 1;
            EXPECT_EQ(grid.ColAlignment(column), isTick                     ? VSFlexGrid::AlignCentre
                                                 : c.right.contains(column) ? VSFlexGrid::AlignRight
                                                                            : VSFlexGrid::AlignLeft);
        }
        EXPECT_EQ(picker->Txt(0).Caption() + picker->Txt(1).Text(), u"查询(&B):1;2;4"_qs);
        EXPECT_EQ(picker->Cmb() ? picker->Cmb()->Caption() : QString(), c.caption);
        EXPECT_EQ(picker->layoutFolder(), folder.path() + u"/selfbb"_qs);
    }
    EXPECT_THROW((void)picker->btn(3), Failure) << "only the dictionary picker has ticks";
}

TEST_F(PickerPanelTest, TickedRowsAreTheChoice)
{
    auto &remarkList = loaded<selPdm>(remarks());
    EXPECT_EQ(shown(2), QStringList({u"12"_qs, u"15"_qs, u"A1"_qs}));
    struct Case
    {
        QList<int> clicked;
        QString choice;
    };
    const Case cases[] = {{{}, u"|"_qs},
                          {{1, 2}, u"12,15|急售,满五唯一"_qs},
                          {{3}, u"0|学位未用"_qs},
                          {{2, 2, 0, 9, 1}, u"12|急售"_qs}};
    for (const Case &c : cases) {
        remarkList.btn(4).press();
        events.clear();
        for (const int clicked : c.clicked)
            remarkList.clickRow(clicked);
        remarkList.VS().setRow(3);
        remarkList.VS().reportDoubleClick();
        EXPECT_EQ(events, QStringList()) << "rows are ticked, not double-clicked";
        remarkList.btn(0).press();
        EXPECT_EQ(events, QStringList(u"select"_qs));
        EXPECT_EQ(choice(), c.choice);
        EXPECT_EQ(object<clsPdm>()->s编号, u"A1"_qs) << "the row is the current one";
    }
    remarkList.VS().setTextMatrix(2, 2, QString());
    remarkList.btn(3).press();
    remarkList.Txt(0).pressReturn();
    EXPECT_EQ(choice(), u"12,0|急售,学位未用"_qs) << "a row without a code is not ticked";

    remarkList.VS().setColHidden(1, true);
    remarkList.clickRow(3);
    EXPECT_EQ(remarkList.VS().TextMatrix(3, 1), u"√"_qs);
    events.clear();
    remarkList.VS().setRow(1);
    remarkList.VS().reportDoubleClick();
    EXPECT_EQ(events, QStringList(u"select"_qs));
    EXPECT_EQ(choice(), u"12|急售"_qs);
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
        list.VS().setRow(0);
        confirm();
        EXPECT_EQ(choice(), u"|"_qs) << "the captions are no building";
        EXPECT_FALSE(list.IPickerUI_Objects());
    }
    EXPECT_EQ(events.count(u"select"_qs), 6);
    list.btn(1).press();
    EXPECT_EQ(events.last(), u"cancel"_qs);
}

TEST_F(PickerPanelTest, FindsInTheSearchedColumnsInTheirOrder)
{
    auto &list = loaded<selPdmLpzd>();
    struct Case
    {
        QString columns; ///< asked for before; empty keeps them
        bool strict;
        QString typedText;
        int row; ///< from row 3
    };
    const Case cases[] = {
        {{}, false, u"云锦"_qs, 3}, // names are not searched until asked for
        {{}, false, u"yj"_qs, 2},
        {{}, true, u"yj"_qs, 3},
        {{}, true, u"yjy"_qs, 2},
        {{}, false, u"住宅"_qs, 1},
        {{}, false, u"3"_qs, 3},
        {u"4;3"_qs, false, u"云锦"_qs, 2},
        {u"12;99;x"_qs, false, u"LP"_qs, 3},
        {u" 4 "_qs, false, u"LP2"_qs, 2}, // one column stands for the current one
        {u"1;2"_qs, false, QString(), 3},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE((c.columns + u'|' + c.typedText).toStdString());
        if (!c.columns.isEmpty()) {
            desktop.willType(c.columns);
            list.askForColumns();
            EXPECT_EQ(desktop.asked().last(), u"查找|请输入欲查询的列(格式: 列1;列2;...列n):"_qs);
        }
        list.Txt(0).setText(u"清空"_qs);
        list.VS().setCurrent(3, 1);
        list.ChkFind().setValue(c.strict ? 1 : 0);
        list.Txt(0).setText(c.typedText);
        EXPECT_EQ(row(), c.row);
        EXPECT_EQ(list.VS().visibleCount(), 3);
    }
    for (const std::optional<QString> &none : {std::optional<QString>(), std::optional(QString())}) {
        desktop.willType(none);
        list.askForColumns();
        EXPECT_EQ(list.Txt(1).Text(), u"1;2"_qs);
    }
}

TEST_F(PickerPanelTest, FilterLeavesWhatMatches)
{
    auto &list = loaded<selPdmLpzd>();
    list.VS().setRow(3);
    list.Check().setValue(1);
    EXPECT_EQ(list.ChkFind().Caption(), u"左起字符匹配"_qs);
    struct Case
    {
        QString typedText;
        bool fromBegin;
        QStringList left;
    };
    const Case cases[] = {
        {u"jy"_qs, false, {u"LP2"_qs}}, {u"jy"_qs, true, {}},
        {u"yj"_qs, true, {u"LP2"_qs}},  {u"住"_qs, true, {u"LP1"_qs, u"LP3"_qs}},
        {u"云锦苑"_qs, false, {}},      {QString(), false, {u"LP1"_qs, u"LP2"_qs, u"LP3"_qs}}};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.typedText.toStdString());
        list.ChkFind().setValue(c.fromBegin ? 1 : 0);
        list.Txt(0).setText(c.typedText);
        EXPECT_EQ(shown(1), c.left);
        list.Txt(0).pressReturn();
        EXPECT_EQ(object<clsLpzd>() ? object<clsLpzd>()->s楼盘编号 : QString(), c.left.value(0))
            << "Enter takes the first row in sight, never one out of sight";
    }
    list.Txt(0).setText(u"商铺"_qs);
    list.btn(2).press();
    EXPECT_EQ(shown(1), QStringList(u"LP2"_qs)) << "rows loaded again are filtered again";
    list.Check().setValue(0);
    EXPECT_EQ(list.ChkFind().Caption(), u"全字匹配"_qs);
    EXPECT_EQ(list.VS().visibleCount(), 3);
    EXPECT_EQ(row(), 2) << "and the text is looked for";
}

TEST_F(PickerPanelTest, TheComboBoxNarrowsTheList)
{
    auto &list = loaded<selPdmLpzd>({{u"地区"_qs, QString()}, {u"lock"_qs, 1}});
    XPCombo &district = *list.Cmb();
    EXPECT_EQ(district.items(), QStringList({u"全部"_qs, u"清水湾"_qs, u"石桥头"_qs, u"清水湾"_qs}));
    EXPECT_FALSE(district.Enabled());
    EXPECT_EQ(district.Text(), u"全部"_qs);
    EXPECT_EQ(list.VS().visibleCount(), 3);

    struct Case
    {
        Parameters parameters;
        bool isNewUse;
        QString district;
        QStringList codes;
    };
    const Case cases[] = {
        {{{u"地区"_qs, u"石桥头"_qs}}, true, u"石桥头"_qs, {u"LP2"_qs}},
        {{{u"lock"_qs, u"0"_qs}}, false, u"石桥头"_qs, {u"LP2"_qs}},
        {{}, true, u"全部"_qs, {u"LP1"_qs, u"LP2"_qs, u"LP3"_qs}},
        {{{u"地区"_qs, u"无此地区"_qs}}, true, u"无此地区"_qs, {}},
    };
    for (const Case &c : cases) {
        if (c.isNewUse)
            list.IPickerUI_Parameters(ParameterList());
        set(c.parameters);
        EXPECT_TRUE(list.IPickerUI_Refresh());
        EXPECT_TRUE(district.Enabled());
        EXPECT_EQ(district.Text(), c.district);
        EXPECT_EQ(shown(1), c.codes) << c.district.toStdString();
    }
    district.setListIndex(3); // the second district of that name
    district.reportClick();
    EXPECT_EQ(shown(1), QStringList(u"LP3"_qs));
}

TEST_F(PickerPanelTest, ALoadThatFailsLeavesAnEmptyListAndTellsWhy)
{
    Picker &list = loaded<selPdm>(remarks());
    set({{u"table"_qs, QString()}});
    EXPECT_FALSE(list.IPickerUI_Refresh());
    EXPECT_EQ(list.VS().Rows(), 1);
    EXPECT_NE(app.Db().LastError().Description, QString());
    EXPECT_EQ(list.lblFailure().Caption(), app.Db().LastError().Description);
    set({{u"table"_qs, u"pdmsjzd"_qs}});
    list.btn(2).press();
    EXPECT_EQ(list.lblFailure().Caption(), QString());
    EXPECT_EQ(list.VS().visibleCount(), 3);

    connection->executeNative("drop table pdmdz");
    make("kblock", {});
    EXPECT_FALSE(picker->IPickerUI_Refresh());
    connection->executeNative("drop table pdmlpzd");
    EXPECT_FALSE(picker->IPickerUI_Refresh());
    EXPECT_TRUE(picker->lblFailure().Caption().contains(u"pdmlpzd"))
        << picker->lblFailure().Caption().toStdString();
    picker->IPickerUI_Clear();
    picker->btn(2).press();
    EXPECT_EQ(picker->lblFailure().Caption(), u"selPdmDz-->RefreshVS::模块尚未初始化！"_qs);
}

} // namespace
