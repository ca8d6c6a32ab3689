#include "library/controls/check_box.h"
#include "library/controls/combo_box.h"
#include "library/controls/flex_grid.h"
#include "library/controls/grid_helper.h"
#include "library/controls/mouse_wheel.h"
#include "library/controls/nav_toolbar.h"
#include "library/controls/search_box.h"
#include "library/support/grids.h"

#include <gtest/gtest.h>

using namespace ebtq;

namespace {

TEST(ControlTest, EachRealChangeIsToldOnce)
{
    CheckBox box(u"Chk"_qs, 1);
    int looks = 0;
    int clicks = 0;
    QObject::connect(&box, &Control::stateChanged, [&] { ++looks; });
    QObject::connect(&box, &CheckBox::Click, [&] { ++clicks; });
    for (int twice = 0; twice < 2; ++twice) {
        box.setCaption(u"出租"_qs);
        box.setEnabled(false);
        box.setVisible(false);
        box.setToolTipText(u"只看出租"_qs);
        box.setValue(1);
    }
    EXPECT_EQ(looks, 4);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(box.setProperty("Value", 0)) << "layouts write by property name";
    EXPECT_EQ(clicks, 2);
}

TEST(ComboTest, TheListChoosesNothingByItselfAndAnyTextCanBeTyped)
{
    XPCombo combo(u"XPCmb"_qs);
    QStringList texts;
    QObject::connect(&combo, &XPCombo::Change, [&] { texts.append(combo.Text()); });
    combo.setItems({u"三天内"_qs});
    combo.setText(u" 十天内"_qs);
    combo.setText(u" 十天内"_qs);
    EXPECT_EQ(texts, QStringList(u" 十天内"_qs));
}

TEST(NavToolbarTest, OnlyWhatCanBePressedIsRaised)
{
    NavToolbar bar(u"NavToolbar1"_qs);
    QStringList pressed;
    QObject::connect(&bar, &NavToolbar::ButtonClick, [&](const QString &key) { pressed.append(key); });
    bar.setItems({{u"all"_qs, u"全部"_qs, {}},
                  {},
                  {u"edit"_qs, u"修改"_qs, {}, false},
                  {u"gj"_qs, u"写跟进"_qs, {}, true, false}});
    for (const QString &key : {u"ALL"_qs, u"edit"_qs, u"gj"_qs, u"nothing"_qs, QString()})
        bar.press(key);
    EXPECT_EQ(pressed, QStringList(u"all"_qs));
    int changes = 0;
    QObject::connect(&bar, &Control::stateChanged, [&] { ++changes; });
    bar.setEnabled(u"Edit"_qs, true);
    bar.setEnabled(u"edit"_qs, true);
    bar.setEnabled(u"nothing"_qs, false);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(bar.isEnabled(u"edit"_qs));
    EXPECT_FALSE(bar.isEnabled(QString()));
    static_cast<Control &>(bar).setEnabled(false);
    bar.press(u"all"_qs);
    EXPECT_EQ(pressed.size(), 1) << "a disabled bar presses nothing";
}

TEST(MouseWheelTest, TurnsStayWithinTheEnds)
{
    VSFlexGrid grid(u"VS"_qs);
    MouseWheel wheel;
    QList<int> values;
    QObject::connect(&wheel, &MouseWheel::Wheel, [&](int value) { values.append(value); });
    wheel.setMin(1);
    wheel.setMax(4);
    wheel.setValue(3);
    wheel.turn(1);
    EXPECT_TRUE(values.isEmpty()) << "it follows no grid yet";
    wheel.bind(&grid);
    for (const int steps : {1, 1, -2, -100, 2'000'000'000})
        wheel.turn(steps);
    wheel.setMax(0); // an empty list
    wheel.turn(1);
    EXPECT_EQ(values, QList<int>({4, 4, 2, 1, 4, 1}));
}

TEST(SearchBoxTest, EmptyingClearsAndEnterSearchesAtOnce)
{
    SearchBox box(u"SearchBox1"_qs);
    box.setSetting(u"500"_qs);
    QStringList events;
    QObject::connect(&box, &SearchBox::Search,
                     [&](const QString &text) { events.append(u"search "_qs + text); });
    QObject::connect(&box, &SearchBox::Clear, [&] { events.append(u"clear"_qs); });
    box.setText(u"海"_qs);
    EXPECT_TRUE(events.isEmpty()) << "the pause is not over";
    box.searchNow();
    box.setText({});
    box.setText({});
    EXPECT_EQ(events, QStringList({u"search 海"_qs, u"clear"_qs}));
}

TEST(GridHelperTest, StylesFindsAndSelects)
{
    VSFlexGrid grid(u"VS"_qs);
    const GridHelper helper;
    helper.style(grid, 0, u" |编号  |名称"_qs);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 0);
    EXPECT_EQ(grid.FixedAlignment(2), VSFlexGrid::AlignCentre);
    grid.LoadArray(test::blockOf(
        3,
        {{u""_qs, u"A1"_qs, u"东湖"_qs}, {u""_qs, u"a12"_qs, u"西湖"_qs}, {u""_qs, u"A12"_qs, u"南湖"_qs}}));
    using enum GridHelper::Match;
    grid.setRowHidden(1, true);
    const std::tuple<int, QString, GridHelper::Match, int, int> cases[] = {{1, u"a1"_qs, Contains, 0, 2},
                                                                           {1, u"A12"_qs, Equals, 0, 2},
                                                                           {1, u"A12"_qs, Equals, 3, 3},
                                                                           {1, u"湖"_qs, Contains, 0, -1},
                                                                           {9, u"湖"_qs, Contains, 0, -1}};
    for (const auto &[column, text, match, from, row] : cases)
        EXPECT_EQ(helper.find(grid, column, text, match, from), row) << text.toStdString();
    EXPECT_TRUE(helper.select(grid, 3));
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_FALSE(helper.select(grid, 0));
    EXPECT_FALSE(helper.select(grid, 4));
    EXPECT_EQ(grid.Row(), 3);
}

} // namespace
