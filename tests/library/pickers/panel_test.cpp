// The list of a picker as a person uses it, without a screen.

#include "library/pickers/picker_fixture.h"

using namespace ebtq;
using namespace ebtq::test;

namespace {

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
