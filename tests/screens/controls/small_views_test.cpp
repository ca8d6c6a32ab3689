#include "library/controls/combo_box.h"
#include "library/controls/nav_toolbar.h"
#include "library/controls/option_button.h"
#include "library/controls/search_box.h"
#include "library/controls/text_box.h"
#include "screens/controls/combo_view.h"
#include "screens/controls/flow_layout.h"
#include "screens/controls/option_button_view.h"
#include "screens/controls/search_box_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/controls/tool_bar_view.h"
#include "screens/support/screen.h"

#include <QAbstractItemView>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QToolButton>

using namespace ebtq;
using namespace ebtq::test;

namespace {

TEST(OptionButtonView, OneOfAGroupIsChosenWhoeverChooses)
{
    OptionButton first(u"Opt"_qs, 0);
    OptionButton second(u"Opt"_qs, 1);
    second.exclude(first);
    QWidget group;
    const OptionButtonView firstView(first, &group);
    OptionButtonView secondView(second, &group);
    first.setValue(1);
    secondView.click();
    EXPECT_EQ(first.Value() * 10 + second.Value(), 1);
    first.setValue(1);
    EXPECT_TRUE(firstView.isChecked() && !secondView.isChecked());
}

TEST(TextAreaView, LeavesAStoredTextAloneUntilItIsEdited)
{
    TextBox box(u"Txt"_qs, 1, TextBox::Lines::Many);
    box.setText(u"下午\r\n联系"_qs);
    TextAreaView view(box, nullptr);
    box.setText(u"先电话\r\n后上门"_qs);
    EXPECT_EQ(view.toPlainText(), u"先电话\n后上门"_qs);
    EXPECT_EQ(box.Text(), u"先电话\r\n后上门"_qs);
    view.moveCursor(QTextCursor::End);
    QTest::keyClicks(&view, u"!"_qs);
    EXPECT_EQ(box.Text(), u"先电话\n后上门!"_qs);
}

class ComboViewTest : public testing::Test
{
protected:
    ComboViewTest()
    {
        combo.setItems({u"三天内"_qs, u"十天内"_qs, u"全部"_qs});
        window.setLayout(new QHBoxLayout);
        window.layout()->addWidget(&view);
        window.layout()->addWidget(&other);
        showActive(window);
        view.setFocus();
    }

    XPCombo combo{u"XPCmb"_qs};
    QWidget window;
    ComboView view{combo, nullptr};
    QLineEdit other;
    QSignalSpy confirmed{&view, &ComboView::confirmed};
};

TEST_F(ComboViewTest, StartsEmptyAndTakesAnyTextLetterByLetter)
{
    EXPECT_EQ(view.count(), 3);
    EXPECT_EQ(view.currentText(), QString());
    typeText(view, u" 十天内"_qs);
    EXPECT_EQ(combo.Text(), u" 十天内"_qs) << "the leading blank counts";
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(confirmed.size(), 1);
    EXPECT_EQ(view.count(), 3) << "typed texts do not get into the list";
    view.lineEdit()->selectAll();
    typeText(view, u"三"_qs);
    EXPECT_EQ(combo.Text(), u"三"_qs) << "nothing is completed";
    combo.setText(u" 十天内"_qs);
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(combo.Text(), u" 十天"_qs);
    QTest::keyClick(&view, Qt::Key_Home);
    QTest::keyClicks(&view, u"a"_qs);
    EXPECT_EQ(combo.Text(), u"a 十天"_qs) << "the cursor stays where it was";
}

TEST_F(ComboViewTest, ConfirmsOnEnterOnAChoiceAndOnLeavingWithAnotherText)
{
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(combo.Text(), u"十天内"_qs);
    EXPECT_EQ(confirmed.size(), 0) << "going through the entries decides nothing";
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(confirmed.size(), 1);
    other.setFocus();
    EXPECT_EQ(confirmed.size(), 1) << "it is confirmed already";
    view.setFocus();
    view.showPopup();
    QTest::keyClick(view.view(), Qt::Key_Down);
    QTest::keyClick(view.view(), Qt::Key_Return);
    EXPECT_EQ(combo.Text(), u"全部"_qs);
    EXPECT_EQ(confirmed.size(), 2);
    view.lineEdit()->selectAll();
    typeText(view, u"三天内"_qs);
    other.setFocus();
    EXPECT_EQ(confirmed.size(), 3);
    combo.setText(u"十天内"_qs); // as the layout is restored
    view.setFocus();
    other.setFocus();
    EXPECT_EQ(confirmed.size(), 3);
}

TEST_F(ComboViewTest, FollowsTheRulesWithoutAnswering)
{
    combo.setText(u"foreign"_qs);
    combo.setItems({u"x"_qs});
    EXPECT_EQ(view.count(), 1);
    EXPECT_EQ(view.currentText(), u"foreign"_qs);
    EXPECT_EQ(confirmed.size(), 0);
}

TEST(SearchBoxView, TypesSearchesAndClears)
{
    SearchBox box(u"SearchBox1"_qs);
    QWidget window;
    QLineEdit other(&window);
    SearchBoxView view(box, &window);
    view.takeFindKey();
    showActive(window);
    QSignalSpy searches(&box, &SearchBox::Search);
    const QSignalSpy clears(&box, &SearchBox::Clear);
    other.setFocus();
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(focusName(), u"SearchBox1"_qs);
    QTest::keyClicks(&view, u"ab\r"_qs);
    ASSERT_EQ(searches.size(), 1);
    EXPECT_EQ(searches.takeFirst().at(0).toString(), u"ab"_qs);
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(box.Text(), QString());
    EXPECT_EQ(clears.size(), 1);
    box.setText(u"restored"_qs);
    EXPECT_EQ(view.text(), u"restored"_qs);
}

class ToolBarViewTest : public testing::Test
{
protected:
    ToolBarViewTest()
    {
        bar.setItems({item(u"all"), item(u""), item(u"new", false), item(u""), item(u"refresh"), item(u"")});
        QObject::connect(&bar, &NavToolbar::ButtonClick, [this](const QString &key) { pressed.append(key); });
        showActive(view);
    }
    static NavToolbar::Item item(QStringView key, bool visible = true)
    {
        return {key.toString(), key.toString(), QString(), true, visible};
    }
    [[nodiscard]] QToolButton *button(const QString &key) const
    {
        return view.findChild<QToolButton *>(u"NavToolbar1_"_qs + key);
    }
    [[nodiscard]] int shownSeparators() const
    {
        int shown = 0;
        for (const QFrame *line : view.findChildren<QFrame *>())
            shown += line->property("kind") == u"separator"_qs && line->isVisible() ? 1 : 0;
        return shown;
    }

    NavToolbar bar{u"NavToolbar1"_qs};
    ToolBarView view{bar, nullptr};
    QStringList pressed;
};

TEST_F(ToolBarViewTest, ShowsWhatIsVisibleAndOneSeparatorBetweenNeighbours)
{
    EXPECT_TRUE(button(u"all"_qs)->isVisible());
    EXPECT_FALSE(button(u"new"_qs)->isVisible());
    EXPECT_EQ(shownSeparators(), 1);
    bar.setItems({item(u""), item(u"all"), item(u""), item(u"new"), item(u""), item(u"refresh")});
    EXPECT_EQ(shownSeparators(), 2);
    EXPECT_TRUE(button(u"new"_qs)->isVisible());
}

TEST_F(ToolBarViewTest, PressesByMouseAndShortcutWithinGuardAndRights)
{
    view.setShortcuts({{u"all"_qs, QKeySequence(Qt::ALT | Qt::Key_A)}});
    EXPECT_EQ(button(u"all"_qs)->toolTip(), u"all (Alt+A)"_qs);
    EXPECT_EQ(button(u"all"_qs)->text(), u"all(&A)"_qs);
    EXPECT_EQ(button(u"refresh"_qs)->text(), u"refresh"_qs);
    QTest::mouseClick(button(u"all"_qs), Qt::LeftButton);
    QTest::keyClick(&view, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 2; }))
        << "a shortcut shows the button pressed first";
    EXPECT_EQ(pressed.value(1), u"all"_qs);
    bar.setEnabled(u"all"_qs, false);
    EXPECT_FALSE(button(u"all"_qs)->isEnabled());
    QTest::mouseClick(button(u"all"_qs), Qt::LeftButton);
    QTest::keyClick(&view, Qt::Key_A, Qt::AltModifier);
    view.setGuard([](const QString &key) { return key != u"refresh"_qs; });
    QTest::mouseClick(button(u"refresh"_qs), Qt::LeftButton);
    EXPECT_EQ(pressed.size(), 2);
}

TEST(FlowLayout, FoldsWithoutCuttingAndGivesTheRestToWhatGrows)
{
    QWidget parent;
    auto *flow = new FlowLayout(&parent);
    flow->setContentsMargins(5, 5, 5, 5);
    flow->setSpacing(10);
    QList<QWidget *> boxes;
    for (int box = 0; box < 4; ++box) {
        auto *widget = new QWidget(&parent);
        box < 3 ? widget->setFixedSize(100, 20) : widget->setMinimumSize(100, 20);
        boxes.append(widget);
        flow->addWidget(widget);
    }
    boxes[3]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    boxes[3]->setMaximumWidth(150);
    const std::tuple<int, int, QRect> cases[] = {
        {600, 30, QRect(335, 5, 150, 20)}, // one line, and no more than it may have
        {460, 30, QRect(335, 5, 120, 20)},
        {240, 60, QRect(115, 35, 120, 20)},
        {110, 120, QRect(5, 95, 100, 20)},
    };
    for (const auto &[width, height, last] : cases) {
        SCOPED_TRACE(width);
        EXPECT_EQ(flow->heightForWidth(width), height);
        parent.resize(width, height);
        flow->setGeometry(QRect(0, 0, width, height));
        EXPECT_EQ(boxes[3]->geometry(), last);
    }
    boxes[1]->hide();
    EXPECT_EQ(flow->heightForWidth(330), 30) << "what is hidden takes no room";
    flow->setGeometry(QRect(0, 0, 330, 30));
    EXPECT_EQ(boxes[2]->x(), 115);
}

} // namespace
